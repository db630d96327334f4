// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// A piece of a statement, as it stands there. It refers to the statement, which must outlive it.
struct SqlLexeme
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
    QStringView text; ///< a text or date literal with its delimiters
};

/// Reads a statement of the program's dialect piece by piece without copying any of it: names and keywords,
/// numbers, texts in single or double quotes (the quote doubled stands for itself), dates and times between
/// `#`, operators and parentheses. Whatever reads the characters of a statement reads them through this
/// class, so that no two readers can disagree on where a literal ends.
class SqlLexer
{
public:
    /// The statement must outlive the lexer.
    explicit SqlLexer(QStringView statement) : m_statement(statement) {}

    /// The next piece, or std::nullopt at the end of the statement.
    ///
    /// Throws Error for what no statement of the program holds: a comment, a semicolon, a NUL, a literal
    /// without its end. A text that a user typed can so break a statement, but never add another one.
    std::optional<SqlLexeme> next();

private:
    [[nodiscard]] bool isAtEnd() const { return m_at >= m_statement.size(); }
    void skipQuoted(QChar quote);
    void refuseRest(QChar quote) const;
    void skipDate();
    void skipSymbol();

    QStringView m_statement;
    qsizetype m_at = 0;
};

/// Throws the Error of a statement that cannot be read.
[[noreturn]] void refuseStatement(const QString& why);
