// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <vector>

/// Splits a text at any of a set of delimiters, token by token. A delimiter at the very place where a token
/// begins belongs to that token, so repeated delimiters give tokens that begin with one.
class StrTok
{
public:
    /// Throws Error if there is no memory for it.
    void AddDelimiter(const QString& d);

    /// Takes the text to split and begins at its first character.
    void setDataString(const QString& text);
    [[nodiscard]] const QString& DataString() const { return m_text; }

    /// The next token, not trimmed. After the last one it is the last one again, or empty if the text ends
    /// in a delimiter: check `atEnd` first.
    QString NextToken();

    /// Whether the token that runs to the end of the text has been taken.
    [[nodiscard]] bool atEnd() const { return m_atEnd; }

    [[nodiscard]] static int imin(int a, int b) { return a < b ? a : b; }

private:
    std::vector<QString> m_delimiters;
    QString m_text;
    int m_position = 0; ///< where the next token begins, from 1; 0 before the first text
    bool m_atEnd = true;
};
