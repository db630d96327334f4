// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/SqlTokenizer.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

/// The clauses of a select, in the order of the language.
enum class Clause
{
    Select,
    From,
    Where,
    Group,
    Having,
    Order
};

/// A run of tokens, from one to before another.
struct Span
{
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// Where each clause of a select stands, its keywords left out.
using ClauseSpans = std::array<std::optional<Span>, 6>;

/// The tokens of a statement, and where its clauses, lists and parentheses begin and end.
class StatementTokens
{
public:
    /// Throws Error for what no statement of the program holds.
    explicit StatementTokens(const QString& statement) : m_tokens(tokenizeSql(statement)) {}

    [[nodiscard]] const std::vector<SqlToken>& all() const { return m_tokens; }
    [[nodiscard]] std::size_t size() const { return m_tokens.size(); }
    [[nodiscard]] const SqlToken& operator[](std::size_t i) const { return m_tokens[i]; }

    /// Whether a token is there, and is that word or that symbol.
    [[nodiscard]] bool isWordAt(std::size_t i, QStringView word) const;
    [[nodiscard]] bool isSymbolAt(std::size_t i, QStringView symbol) const;

    /// The position of a word outside of parentheses, or the end of the span.
    [[nodiscard]] std::size_t findWord(Span span, QStringView word) const;

    /// Throws Error if there is none.
    [[nodiscard]] std::size_t closingParenthesis(std::size_t open, std::size_t end) const;

    /// The clause that begins at a token, and how many words name it; std::nullopt if none does.
    [[nodiscard]] std::optional<std::pair<Clause, std::size_t>> clauseAt(std::size_t i) const;

    /// The clauses of a select. Each may stand once, in the order of the language: a second one is what a
    /// text that broke out of its quotes would need. Throws Error for anything else.
    [[nodiscard]] ClauseSpans splitClauses(Span span) const;

    /// The items of a list, without the commas between them.
    [[nodiscard]] std::vector<Span> split(Span span) const;

private:
    std::vector<SqlToken> m_tokens;
};

/// Throws the Error of a token that stands where it has no meaning.
[[noreturn]] void refuseToken(const SqlToken& token);
