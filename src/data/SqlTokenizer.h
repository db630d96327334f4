// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/SqlLexer.h"

#include <QString>

#include <vector>

/// One token of a statement, with a text of its own.
struct SqlToken
{
    using Kind = SqlLexeme::Kind;

    Kind kind = Kind::Symbol;
    QString text; ///< a literal without its delimiters, each doubled quote as the one that it stands for

    [[nodiscard]] bool isSymbol(QStringView symbol) const { return kind == Kind::Symbol && text == symbol; }
    [[nodiscard]] bool isWord(QStringView word) const
    {
        return kind == Kind::Word && text.compare(word, Qt::CaseInsensitive) == 0;
    }

    /// Whether it is a word of the dialect that stands inside expressions and so never is a name.
    [[nodiscard]] bool isKeyword() const;
};

/// All tokens of a statement. Throws Error for what the lexer refuses.
std::vector<SqlToken> tokenizeSql(QStringView statement);

/// A text as a literal of SQLite, and a name in quotes, as SQLite takes it whatever it holds.
QString quoteSqlText(const QString& text);
QString quoteSqlName(const QString& name);
