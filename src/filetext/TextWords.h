// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <functional>
#include <string_view>

/// Splits texts into words just as the index does, with its letters folded and without accents.
class TextWords
{
public:
    /// The connection must outlive the object. Throws SQLite::Exception.
    explicit TextWords(SQLite::Database& database);
    ~TextWords();
    TextWords(const TextWords&) = delete;
    TextWords& operator=(const TextWords&) = delete;

    /// Takes a word as the index has it, and the bytes in the text that it begins and ends at; returns false
    /// if it needs no more.
    using Taker = std::function<bool(std::string_view word, int begin, int end)>;

    /// Hands over the words of a text from the first to the last. Throws SQLite::Exception.
    void split(std::string_view text, const Taker& take) const;

private:
    fts5_tokenizer m_functions{};
    Fts5Tokenizer* m_tokenizer = nullptr;
};
