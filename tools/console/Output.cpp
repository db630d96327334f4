// SPDX-License-Identifier: GPL-3.0-or-later

#include "Output.h"

#include "util/Error.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

QString Output::printable(QString text, bool keepsLines)
{
    for (QChar& each : text) {
        const bool isCommand = each.category() == QChar::Other_Control || each == QChar::LineSeparator ||
                               each == QChar::ParagraphSeparator;
        if (isCommand && !(keepsLines && each == u'\n')) each = u' ';
    }
    return text;
}

void Output::line(const QString& text)
{
    m_text += printable(text).toStdString();
    m_text += '\n';
}

void Output::write()
{
    errno = 0;
    const bool isWritten = std::fwrite(m_text.data(), 1, m_text.size(), stdout) == m_text.size();
    // a full disk shows at the latest when the last of it goes there
    if (!isWritten || std::fflush(stdout) != 0) {
        throw Error(errno, QStringLiteral("The output cannot be written: %1")
                               .arg(QString::fromLocal8Bit(std::strerror(errno))));
    }
    m_text.clear();
}
