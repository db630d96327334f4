// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/StatementTokens.h"

#include "data/DataTexts.h"

void refuseToken(const SqlToken& token)
{
    refuseStatement(DataTexts::tr("%1 stands where it has no meaning").arg(token.text));
}

bool StatementTokens::isWordAt(std::size_t i, QStringView word) const
{
    return i < m_tokens.size() && m_tokens[i].isWord(word);
}

bool StatementTokens::isSymbolAt(std::size_t i, QStringView symbol) const
{
    return i < m_tokens.size() && m_tokens[i].isSymbol(symbol);
}

std::size_t StatementTokens::findWord(Span span, QStringView word) const
{
    int depth = 0;
    for (std::size_t i = span.begin; i < span.end; ++i) {
        if (depth == 0 && m_tokens[i].isWord(word)) return i;
        if (m_tokens[i].isSymbol(u"(")) ++depth;
        if (m_tokens[i].isSymbol(u")")) --depth;
    }
    return span.end;
}

std::size_t StatementTokens::closingParenthesis(std::size_t open, std::size_t end) const
{
    int depth = 0;
    for (std::size_t i = open; i < end; ++i) {
        if (m_tokens[i].isSymbol(u"(")) ++depth;
        if (m_tokens[i].isSymbol(u")") && --depth == 0) return i;
    }
    refuseStatement(DataTexts::tr("a parenthesis is not closed"));
}

std::optional<std::pair<Clause, std::size_t>> StatementTokens::clauseAt(std::size_t i) const
{
    if (isWordAt(i, u"SELECT")) return std::pair{Clause::Select, std::size_t{1}};
    if (isWordAt(i, u"FROM")) return std::pair{Clause::From, std::size_t{1}};
    if (isWordAt(i, u"WHERE")) return std::pair{Clause::Where, std::size_t{1}};
    if (isWordAt(i, u"GROUP") && isWordAt(i + 1, u"BY")) return std::pair{Clause::Group, std::size_t{2}};
    if (isWordAt(i, u"HAVING")) return std::pair{Clause::Having, std::size_t{1}};
    if (isWordAt(i, u"ORDER") && isWordAt(i + 1, u"BY")) return std::pair{Clause::Order, std::size_t{2}};
    return std::nullopt;
}

ClauseSpans StatementTokens::splitClauses(Span span) const
{
    ClauseSpans spans;
    std::optional<std::size_t> current;
    int depth = 0;
    for (std::size_t i = span.begin; i < span.end; ++i) {
        const SqlToken& token = m_tokens[i];
        if (token.isSymbol(u"(")) ++depth;
        if (token.isSymbol(u")") && --depth < 0) {
            refuseStatement(DataTexts::tr("a parenthesis was not opened"));
        }
        const auto clause = depth == 0 ? clauseAt(i) : std::nullopt;
        if (!clause) continue;
        const auto index = static_cast<std::size_t>(clause->first);
        if (current ? index <= *current : index != 0) refuseToken(token);
        if (current) spans[*current]->end = i;
        current = index;
        spans[index] = Span{i + clause->second, span.end};
        i += clause->second - 1;
    }
    if (!current) refuseStatement(DataTexts::tr("it is no SELECT"));
    return spans;
}

std::vector<Span> StatementTokens::split(Span span) const
{
    std::vector<Span> items;
    int parentheses = 0;
    Span item{span.begin, span.begin};
    for (std::size_t i = span.begin; i <= span.end; ++i) {
        if (i < span.end && m_tokens[i].isSymbol(u"(")) ++parentheses;
        if (i < span.end && m_tokens[i].isSymbol(u")")) --parentheses;
        if (i < span.end && (parentheses > 0 || !m_tokens[i].isSymbol(u","))) continue;
        item.end = i;
        items.push_back(item);
        item.begin = i + 1;
    }
    return items;
}
