// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/SqlTokenizer.h"

#include <algorithm>
#include <array>

namespace {

QString withoutDelimiters(const SqlLexeme& lexeme)
{
    const QStringView inner = lexeme.text.sliced(1, lexeme.text.size() - 2);
    const QChar quote = lexeme.text.front();
    if (lexeme.kind == SqlLexeme::Kind::Date || !inner.contains(quote)) return inner.toString();
    return inner.toString().replace(QString(2, quote), QString(quote));
}

} // namespace

bool SqlToken::isKeyword() const
{
    static constexpr std::array keywords{u"AND",  u"OR",    u"NOT",     u"IN",      u"IS",     u"NULL",
                                         u"LIKE", u"AS",    u"ASC",     u"DESC",    u"TRUE",   u"CASE",
                                         u"WHEN", u"THEN",  u"ELSE",    u"END",     u"EXISTS", u"ON",
                                         u"SET",  u"FALSE", u"BETWEEN", u"DISTINCT"};
    return std::any_of(keywords.begin(), keywords.end(),
                       [this](const char16_t* keyword) { return isWord(keyword); });
}

std::vector<SqlToken> tokenizeSql(QStringView statement)
{
    std::vector<SqlToken> tokens;
    SqlLexer lexer(statement);
    while (const auto lexeme = lexer.next()) {
        const bool isLiteral = lexeme->kind == SqlLexeme::Kind::Text || lexeme->kind == SqlLexeme::Kind::Date;
        tokens.push_back({lexeme->kind, isLiteral ? withoutDelimiters(*lexeme) : lexeme->text.toString()});
    }
    return tokens;
}

QString quoteSqlText(const QString& text)
{
    return u'\'' + QString(text).replace(u'\'', QStringLiteral("''")) + u'\'';
}

QString quoteSqlName(const QString& name)
{
    return u'"' + QString(name).replace(u'"', QStringLiteral("\"\"")) + u'"';
}
