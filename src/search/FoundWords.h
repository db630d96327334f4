// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <vector>

/// Finds the words of a keyword search in a text, so that they can be marked.
class FoundWords
{
public:
    /// A run of characters, counted from 0.
    struct Range
    {
        qsizetype begin = 0;
        qsizetype end = 0; ///< one past its last character

        friend bool operator==(const Range&, const Range&) = default;
    };

    FoundWords() = default;

    /// In a word, `%` matches any run of characters and `_` a single one. Words of only these are ignored.
    explicit FoundWords(const QStringList& words);

    [[nodiscard]] bool isEmpty() const { return m_words.empty(); }

    /// Returns the places of all words in the text, from left to right, without regard to case. Places that
    /// touch or overlap are merged.
    [[nodiscard]] std::vector<Range> in(const QString& text) const;

private:
    std::vector<QRegularExpression> m_words;
};
