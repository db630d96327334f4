#pragma once

#include <QString>

#include <vector>

/// One token of a statement.
struct SqlToken
{
    enum class Kind
    {
        Word,
        Number,
        Text,
        Date,
        Symbol
    };

    Kind kind = Kind::Symbol;
    QString text; ///< a text or date literal comes without its delimiters

    [[nodiscard]] bool isSymbol(QStringView symbol) const { return kind == Kind::Symbol && text == symbol; }
    [[nodiscard]] bool isWord(QStringView word) const
    {
        return kind == Kind::Word && text.compare(word, Qt::CaseInsensitive) == 0;
    }

    /// Whether it is a word of the dialect that stands inside expressions and so never is a name.
    [[nodiscard]] bool isKeyword() const;
};

/// Splits a statement of the program's dialect: names and keywords, numbers, texts in single or double quotes
/// (the quote doubled stands for itself), dates and times between `#`, operators and parentheses.
///
/// Throws Error for what no statement of the program holds: a comment, a semicolon, a NUL, a literal without
/// its end. A text that a user typed can so break a statement, but never add another one.
std::vector<SqlToken> tokenizeSql(QStringView statement);

/// A text as a literal of the engine, and a name as the engine takes it whatever it holds.
QString quoteSqlText(const QString& text);
QString quoteSqlName(const QString& name);
