// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "util/TextRange.h"

#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <vector>

/// Finds the words of a keyword search in a text, so that they can be marked.
class FoundWords
{
public:
    FoundWords() = default;

    /// In a word, `%` matches any run of characters and `_` a single one. Words of only these are ignored.
    explicit FoundWords(const QStringList& words);

    [[nodiscard]] bool isEmpty() const { return m_words.empty(); }

    /// Returns the places of all words in the text, from left to right, without regard to case. Places that
    /// touch or overlap are merged.
    [[nodiscard]] std::vector<TextRange> in(const QString& text) const;

private:
    std::vector<QRegularExpression> m_words;
};
