// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/SqlTokenizer.h"

#include <QString>

#include <optional>
#include <vector>

/// A day and a time of day compared with a moment, as the statements of the program spell it:
/// `(A > #day#) OR (A = #day# AND B >= #time#)`, or the same with `<`.
struct MomentComparison
{
    struct Name
    {
        QString qualifier; ///< empty if there is none
        QString column;
    };

    Name dayColumn;
    Name timeColumn;
    QString day;          ///< in held form
    QString time;         ///< in held form
    bool isAfter = false; ///< with `>`
    bool isInclusive = false;

    /// The comparison for SQLite, with the day bounded on its own as well, so that an index of days
    /// serves it. A missing time is midnight. The literals are in the form that SQLite reads.
    [[nodiscard]] QString sql(const QString& dayExpression, const QString& timeExpression,
                              const QString& dayLiteral, const QString& timeLiteral) const;
};

/// Reads the tokens from `begin` to `end`, the parentheses around them left out; std::nullopt if they
/// are something else.
[[nodiscard]] std::optional<MomentComparison> readMomentComparison(const std::vector<SqlToken>& tokens,
                                                                   std::size_t begin, std::size_t end);

/// What started before one moment and ended after another: `(comparison) AND (comparison)`.
struct RunningCondition
{
    MomentComparison started;
    MomentComparison ended;
};

[[nodiscard]] std::optional<RunningCondition> readRunningCondition(const std::vector<SqlToken>& tokens,
                                                                   std::size_t begin, std::size_t end);

/// The index that keeps events apart by how many digits the number of their days has. What runs on a day is
/// found in it by looking back, for each number of digits, only as far as events of that length can reach.
namespace EventsByLength {

inline constexpr QStringView indexName = u"EventByLength";

/// Selects the identifiers of the events that started on a day or before it and ended on another or after it;
/// both are expressions of SQLite.
[[nodiscard]] QString candidates(const QString& startedBy, const QString& endedFrom);

} // namespace EventsByLength
