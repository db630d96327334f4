// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "util/TextRange.h"

#include <QString>

#include <string>
#include <string_view>
#include <vector>

/// The words by which a list is narrowed, compared without regard to case and accents. A word matches
/// anywhere in a text; one with a minus before it leaves out what it matches.
class FilterWords
{
public:
    FilterWords() = default;

    /// Takes words apart at blanks. A minus by itself is ignored.
    explicit FilterWords(const QString& typed);

    /// Whether there is nothing to narrow by.
    [[nodiscard]] bool isEmpty() const { return m_wanted.empty() && m_unwanted.empty(); }

    /// Whether a text holds all the words, and none of those with a minus. The text must be in UTF-8, without
    /// case and accents.
    [[nodiscard]] bool match(std::string_view folded) const;

    /// Returns the places of the words in a text, from left to right and apart from each other.
    [[nodiscard]] std::vector<TextRange> in(const QString& text) const;

    friend bool operator==(const FilterWords&, const FilterWords&) = default;

private:
    std::vector<std::string> m_wanted; ///< in the form of the texts that they are compared with
    std::vector<std::string> m_unwanted;
};
