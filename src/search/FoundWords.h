#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <vector>

/// Where the words of a keyword search stand in a text, so that they can be marked.
class FoundWords
{
public:
    /// A run of characters, counted from 0.
    struct Range
    {
        qsizetype begin = 0;
        qsizetype end = 0; ///< the first character behind it

        friend bool operator==(const Range&, const Range&) = default;
    };

    FoundWords() = default;

    /// In a word, `%` stands for any run of characters and `_` for one. Words of these alone mark nothing.
    explicit FoundWords(const QStringList& words);

    [[nodiscard]] bool isEmpty() const { return m_words.empty(); }

    /// Every place where a word stands, without regard to case, from the left to the right; places that touch
    /// or overlap are one.
    [[nodiscard]] std::vector<Range> in(const QString& text) const;

private:
    std::vector<QRegularExpression> m_words;
};
