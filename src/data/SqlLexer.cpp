// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/SqlLexer.h"

#include "data/DataTexts.h"
#include "util/Error.h"

#include <array>

namespace {

constexpr int syntaxErrorNumber = 1;

bool beginsWord(QChar c)
{
    return c.isLetter() || c == u'_';
}

bool continuesWord(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

/// The names of the program are ASCII; digits of other scripts are letters to it.
bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

} // namespace

void refuseStatement(const QString& why)
{
    throw Error(syntaxErrorNumber, DataTexts::tr("The statement cannot be read: %1.").arg(why));
}

std::optional<SqlLexeme> SqlLexer::next()
{
    while (!isAtEnd() && m_statement[m_at].isSpace())
        ++m_at;
    if (isAtEnd()) return std::nullopt;

    const auto begin = m_at;
    const QChar first = m_statement[begin];
    auto kind = SqlLexeme::Kind::Symbol;
    if (beginsWord(first)) {
        kind = SqlLexeme::Kind::Word;
        while (!isAtEnd() && continuesWord(m_statement[m_at]))
            ++m_at;
    } else if (isDigit(first)) {
        kind = SqlLexeme::Kind::Number;
        while (!isAtEnd() && (isDigit(m_statement[m_at]) || m_statement[m_at] == u'.'))
            ++m_at;
    } else if (first == u'\'' || first == u'"') {
        kind = SqlLexeme::Kind::Text;
        skipQuoted(first);
    } else if (first == u'#') {
        kind = SqlLexeme::Kind::Date;
        skipDate();
    } else {
        skipSymbol();
    }
    return SqlLexeme{kind, m_statement.sliced(begin, m_at - begin)};
}

void SqlLexer::skipQuoted(QChar quote)
{
    const auto begin = m_at;
    qsizetype end = m_statement.indexOf(quote, begin + 1);
    while (end >= 0 && end + 1 < m_statement.size() && m_statement[end + 1] == quote)
        end = m_statement.indexOf(quote, end + 2);
    m_at = end < 0 ? m_statement.size() : end + 1;
    if (m_statement.sliced(begin, m_at - begin).contains(QChar()))
        refuseStatement(DataTexts::tr("a text holds a NUL character"));
    if (end < 0) refuseStatement(DataTexts::tr("a text has no closing %1").arg(quote));
    refuseRest(quote);
}

/// A text that goes on behind its end was ended by a quote that is part of it.
void SqlLexer::refuseRest(QChar quote) const
{
    static constexpr QStringView follows = u"(),.=<>+-*/|;?";
    if (isAtEnd()) return;
    const QChar next = m_statement[m_at];
    if (next.isSpace() || next.isNull() || follows.contains(next)) return;
    if (quote == u'"') refuseStatement(DataTexts::tr("a quotation mark in a text ends it too early"));
    refuseStatement(
        DataTexts::tr("an apostrophe in a text ends it too early. In a search, type _ in its place"));
}

void SqlLexer::skipDate()
{
    const auto end = m_statement.indexOf(u'#', m_at + 1);
    if (end < 0) refuseStatement(DataTexts::tr("a date has no closing #"));
    m_at = end + 1;
}

void SqlLexer::skipSymbol()
{
    static constexpr std::array<QStringView, 4> pairs{u"<>", u"<=", u">=", u"||"};
    static constexpr QStringView singles = u"(),.=<>+-*/";

    const QStringView rest = m_statement.sliced(m_at);
    if (rest.startsWith(u"--") || rest.startsWith(u"/*"))
        refuseStatement(DataTexts::tr("a comment stands in it"));
    for (const QStringView pair : pairs) {
        if (!rest.startsWith(pair)) continue;
        m_at += pair.size();
        return;
    }
    if (!singles.contains(rest.front()))
        refuseStatement(DataTexts::tr("the character %1 has no meaning in it").arg(rest.front()));
    ++m_at;
}
