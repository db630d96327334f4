// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/TextPairs.h"

#include "util/TextCompare.h"

#include <QStringList>

#include <string>

namespace {

constexpr std::size_t shortestChain = 8; ///< pairs; fewer are as quickly tried one by one
constexpr qsizetype longestText = 1000;  ///< characters; longer ones are refused or cut elsewhere

QString folded(const QString& text)
{
    std::string result;
    TextCompare::fold(text.toStdString(), result);
    return QString::fromStdString(result);
}

/// Reads the chain from left to right.
class ChainReader
{
public:
    ChainReader(const std::vector<SqlToken>& tokens, std::size_t begin, std::size_t end)
        : m_tokens(tokens), m_at(begin), m_end(end)
    {
    }

    std::optional<TextPairs> read()
    {
        TextPairs pairs;
        do {
            QString first;
            QString second;
            const bool isPair = takeSymbol(u"(") && takeMatch(pairs.first, first) && takeWord(u"AND") &&
                                takeMatch(pairs.second, second) && takeSymbol(u")");
            if (!isPair) return std::nullopt;
            pairs.texts.emplace_back(first, second);
        } while (takeWord(u"OR"));
        if (m_at != m_end || pairs.texts.size() < shortestChain) return std::nullopt;
        return pairs;
    }

private:
    /// `name LIKE 'text'`; the name is the one that `known` holds already, if it holds one.
    bool takeMatch(TextPairs::Name& known, QString& text)
    {
        const auto name = takeName();
        if (!name || !(known.column.isEmpty() || *name == known)) return false;
        known = *name;
        return takeWord(u"LIKE") && takeText(text);
    }

    std::optional<TextPairs::Name> takeName()
    {
        if (!isKind(SqlToken::Kind::Word) || m_tokens[m_at].isKeyword()) return std::nullopt;
        TextPairs::Name name{{}, m_tokens[m_at++].text};
        if (!takeSymbol(u".")) return name;
        if (!isKind(SqlToken::Kind::Word)) return std::nullopt;
        return TextPairs::Name{name.column, m_tokens[m_at++].text};
    }

    bool takeText(QString& text)
    {
        if (!isKind(SqlToken::Kind::Text)) return false;
        text = m_tokens[m_at++].text;
        return text.size() <= longestText && !text.contains(u'%') && !text.contains(u'_');
    }

    bool takeSymbol(QStringView symbol)
    {
        if (m_at >= m_end || !m_tokens[m_at].isSymbol(symbol)) return false;
        ++m_at;
        return true;
    }

    bool takeWord(QStringView word)
    {
        if (m_at >= m_end || !m_tokens[m_at].isWord(word)) return false;
        ++m_at;
        return true;
    }

    [[nodiscard]] bool isKind(SqlToken::Kind kind) const
    {
        return m_at < m_end && m_tokens[m_at].kind == kind;
    }

    const std::vector<SqlToken>& m_tokens;
    std::size_t m_at;
    std::size_t m_end;
};

} // namespace

QString TextPairs::sql(const QString& firstColumn, const QString& secondColumn) const
{
    QStringList rows;
    for (const auto& [one, other] : texts)
        rows << QStringLiteral("(%1, %2)").arg(quoteSqlText(folded(one)), quoteSqlText(folded(other)));
    return QStringLiteral("(lower(%1), lower(%2)) IN (VALUES %3)")
        .arg(firstColumn, secondColumn, rows.join(QStringLiteral(", ")));
}

std::optional<TextPairs> readTextPairs(const std::vector<SqlToken>& tokens, std::size_t begin,
                                       std::size_t end)
{
    return ChainReader(tokens, begin, end).read();
}
