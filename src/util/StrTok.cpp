// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/StrTok.h"

#include "util/Error.h"
#include "util/UtilTexts.h"

#include <cerrno>
#include <limits>
#include <new>

void StrTok::AddDelimiter(const QString& d)
{
    try {
        m_delimiters.push_back(d);
    } catch (const std::bad_alloc&) {
        throw Error(ENOMEM, UtilTexts::tr("Couldn't add delimiter!"));
    }
}

void StrTok::setDataString(const QString& text)
{
    m_text = text;
    m_atEnd = text.isEmpty();
    m_position = 1;
}

QString StrTok::NextToken()
{
    constexpr int none = std::numeric_limits<int>::max();
    if (m_position == 0 || m_position > m_text.size()) return {};
    int found = none;
    for (const QString& delimiter : m_delimiters) {
        // indexes count from 0, so this begins one character after the token's first
        const auto index = static_cast<int>(m_text.indexOf(delimiter, m_position));
        if (index >= 0 && !delimiter.isEmpty()) found = imin(found, index + 1);
    }
    if (found == none) {
        m_atEnd = true;
        return m_text.mid(m_position - 1);
    }
    QString token = m_text.mid(m_position - 1, found - m_position);
    m_position = found + 1;
    return token;
}
