// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/WindowCall.h"

#include <QList>

namespace {

const QByteArray head = "orvik-database 1\n";
const QByteArray tail = "\nend\n";
const QByteArray argumentWord = "argument ";
const QByteArray tokenWord = "token ";

/// Line ends within a text are encoded, so that each text is one line.
QByteArray encoded(const QString& text)
{
    return text.toUtf8().toPercentEncoding();
}

QString decoded(const QByteArray& text)
{
    return QString::fromUtf8(QByteArray::fromPercentEncoding(text));
}

} // namespace

QByteArray WindowCall::message() const
{
    QByteArray bytes = head + tokenWord + encoded(activationToken);
    for (const QString& argument : arguments)
        bytes += '\n' + argumentWord + encoded(argument);
    return bytes + tail;
}

bool WindowCall::isBegun(const QByteArray& bytes)
{
    return bytes.size() <= longestMessage && (bytes.startsWith(head) || head.startsWith(bytes));
}

bool WindowCall::isWhole(const QByteArray& bytes)
{
    return bytes.endsWith(tail);
}

std::optional<WindowCall> WindowCall::fromMessage(const QByteArray& bytes)
{
    if (!isBegun(bytes) || !isWhole(bytes) || bytes.size() < head.size() + tail.size()) return std::nullopt;
    const QByteArray body = bytes.mid(head.size(), bytes.size() - head.size() - tail.size());
    WindowCall call;
    for (const QByteArray& line : body.split('\n')) {
        if (line.startsWith(tokenWord)) {
            call.activationToken = decoded(line.mid(tokenWord.size()));
        } else if (line.startsWith(argumentWord)) {
            call.arguments << decoded(line.mid(argumentWord.size()));
        } else {
            return std::nullopt;
        }
    }
    return call;
}
