// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/SqlTokenizer.h"

#include <QString>

#include <optional>
#include <utility>
#include <vector>

/// A long chain of `(A LIKE 'text' AND B LIKE 'text')` joined by OR, as a search for many places spells it.
///
/// Tried one by one, hundreds of pairs for each of thousands of records take seconds; as one set of folded
/// texts they are looked up once for each record.
struct TextPairs
{
    struct Name
    {
        QString qualifier; ///< empty if there is none
        QString column;
        bool operator==(const Name&) const = default;
    };

    Name first;
    Name second;
    std::vector<std::pair<QString, QString>> texts;

    /// The condition for SQLite, with the two columns as it is to read them.
    [[nodiscard]] QString sql(const QString& firstColumn, const QString& secondColumn) const;
};

/// Reads the tokens from `begin` to `end`, the parentheses around them left out; std::nullopt if they are
/// something else or a short chain, or if a text holds a wildcard.
[[nodiscard]] std::optional<TextPairs> readTextPairs(const std::vector<SqlToken>& tokens, std::size_t begin,
                                                     std::size_t end);
