// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/Catalog.h"
#include "data/MomentCondition.h"
#include "data/StatementScope.h"
#include "data/StatementTokens.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// Turns the expressions of a statement into those of SQLite: conditions, items of lists, assignments.
/// It lives as long as the translation of one statement; the catalog and the tokens outlive it.
class ExpressionTranslator
{
public:
    /// Translates a sub-select at a span, inside a scope and at a depth of parentheses.
    using SubSelect = std::function<QString(Span, StatementScope&, int)>;

    /// Dates that are among `dates` become parameters, numbered from 1.
    ExpressionTranslator(const Catalog& catalog, const StatementTokens& tokens, QStringList dates,
                         SubSelect subSelect)
        : m_catalog(catalog), m_tokens(tokens), m_dates(std::move(dates)), m_subSelect(std::move(subSelect))
    {
    }

    /// The translation of a span of a clause at that depth of parentheses. Tells the scope which columns it
    /// names. Throws Error for what cannot be read.
    [[nodiscard]] QString expression(Span span, StatementScope& scope, Clause clause, int depth) const;

private:
    [[nodiscard]] QString part(std::size_t& i, std::size_t end, StatementScope& scope, Clause clause,
                               int depth) const;
    [[nodiscard]] QString symbol(std::size_t& i, std::size_t end, StatementScope& scope, Clause clause,
                                 int depth) const;
    [[nodiscard]] std::optional<QString> momentCondition(Span span, StatementScope& scope) const;
    [[nodiscard]] std::optional<QString> pairCondition(Span span, StatementScope& scope) const;
    [[nodiscard]] QString date(const QString& compared) const;
    [[nodiscard]] std::optional<QString> comparedSql(const MomentComparison& comparison,
                                                     StatementScope& scope) const;
    [[nodiscard]] QString candidates(const RunningCondition& running, StatementScope& scope) const;
    [[nodiscard]] QString function(std::size_t& i, std::size_t end, StatementScope& scope, Clause clause,
                                   int depth) const;
    [[nodiscard]] QString column(std::size_t& i, std::size_t end, StatementScope& scope, Clause clause,
                                 int depth) const;
    [[nodiscard]] bool excludesReservedRow(std::size_t i) const;
    [[nodiscard]] bool takesReservedRow(std::size_t i, std::size_t end) const;
    [[nodiscard]] bool meetsDate(std::size_t begin, std::size_t i, std::size_t end) const;
    [[nodiscard]] static QString timeOrMidnight(const ResolvedColumn& time, const QString& qualifier,
                                                const QString& name, StatementScope& scope);
    [[nodiscard]] std::optional<std::size_t> endOfMatch(std::size_t i, std::size_t end) const;

    const Catalog& m_catalog;
    const StatementTokens& m_tokens;
    QStringList m_dates;
    SubSelect m_subSelect;
};
