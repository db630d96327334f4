// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/StoredQuery.h"

#include "data/DataTexts.h"
#include "data/SqlTokenizer.h"
#include "util/Error.h"

#include <algorithm>

namespace {

constexpr int syntaxErrorNumber = 1;

using Tokens = std::vector<SqlToken>;

/// A token as SQLite reads it.
QString render(const SqlToken& token)
{
    if (token.kind == SqlToken::Kind::Text) return quoteSqlText(token.text);
    return token.text;
}

class ViewParser
{
public:
    ViewParser(const QString& createView, const StoredQuery::KeyOfTable& keyOfTable)
        : m_tokens(tokenizeSql(createView)), m_keyOfTable(keyOfTable)
    {
    }

    StoredQuery run()
    {
        expect(u"CREATE");
        expect(u"VIEW");
        m_query.name = takeWord();
        if (!readsTablesOnly()) fail();
        expect(u"AS");
        expect(u"SELECT");
        const std::size_t columnsBegin = m_at;
        skipTo({u"FROM"});
        const std::size_t columnsEnd = m_at;
        expect(u"FROM");
        m_query.baseTable = takeWord();
        m_query.baseKey = m_keyOfTable(m_query.baseTable).value_or(QString());
        while (m_at < m_tokens.size())
            parseJoin();
        m_at = columnsBegin;
        while (m_at < columnsEnd)
            parseColumn(columnsEnd);
        return std::move(m_query);
    }

private:
    /// A view among the sources could stand for views of views, each of them doubling what SQLite has to
    /// take apart before it can even be stopped.
    [[nodiscard]] bool readsTablesOnly() const
    {
        std::vector<bool> namesSources{
            false}; // for each open parenthesis, whether its tables are being named
        for (std::size_t i = 0; i < m_tokens.size(); ++i) {
            const SqlToken& token = m_tokens[i];
            if (token.isSymbol(u"(")) namesSources.push_back(false);
            if (token.isSymbol(u")") && namesSources.size() > 1) namesSources.pop_back();
            if (token.isWord(u"WHERE") || token.isWord(u"GROUP") || token.isWord(u"ORDER"))
                namesSources.back() = false;
            if (token.isWord(u"WITH") || (token.isSymbol(u",") && namesSources.back())) return false;
            if (token.isWord(u"IN") && !isSymbolAt(i + 1, u"(")) return false;
            if (!token.isWord(u"FROM") && !token.isWord(u"JOIN")) continue;
            namesSources.back() = true;
            if (!isTableAt(i + 1) && !isSelectAt(i + 1)) return false;
        }
        return true;
    }

    [[nodiscard]] bool isSymbolAt(std::size_t i, QStringView symbol) const
    {
        return i < m_tokens.size() && m_tokens[i].isSymbol(symbol);
    }

    [[nodiscard]] bool isTableAt(std::size_t i) const
    {
        return i < m_tokens.size() && m_tokens[i].kind == SqlToken::Kind::Word &&
               m_keyOfTable(m_tokens[i].text).has_value() && !isSymbolAt(i + 1, u"(") &&
               !isSymbolAt(i + 1, u".");
    }

    [[nodiscard]] bool isSelectAt(std::size_t i) const
    {
        return isSymbolAt(i, u"(") && i + 1 < m_tokens.size() && m_tokens[i + 1].isWord(u"SELECT");
    }

    void parseJoin()
    {
        const std::size_t begin = m_at;
        expect(u"LEFT");
        expect(u"JOIN");
        StoredQuery::Join join;
        const bool grouped = parseJoinedTable(join);
        expect(u"ON");
        const std::size_t condition = m_at;
        skipTo({u"LEFT"});
        join.sql = sql(begin, m_at);
        const bool bound = bindsKey(join.alias, condition);
        join.single = grouped || bound;
        constexpr std::size_t keyAndEquals = 4;
        if (bound) join.boundTo = sql(condition + keyAndEquals, m_at);
        for (const QString& table : mentionedTables(condition, m_at)) {
            if (const auto other = joinOf(table)) join.dependsOn.push_back(*other);
        }
        m_query.joins.push_back(std::move(join));
    }

    /// Returns true if the joined table is a select with one row for each group that the condition names.
    bool parseJoinedTable(StoredQuery::Join& join)
    {
        if (m_at >= m_tokens.size() || !m_tokens[m_at].isSymbol(u"(")) {
            join.alias = takeWord();
            skipTo({u"ON"});
            return false;
        }
        const std::size_t begin = m_at;
        ++m_at;
        skipTo({u")"});
        const bool grouped = std::any_of(m_tokens.begin() + static_cast<std::ptrdiff_t>(begin),
                                         m_tokens.begin() + static_cast<std::ptrdiff_t>(m_at),
                                         [](const SqlToken& token) { return token.isWord(u"GROUP"); });
        ++m_at;
        expect(u"AS");
        join.alias = takeWord();
        return grouped;
    }

    void parseColumn(std::size_t end)
    {
        const std::size_t begin = m_at;
        skipTo({u"AS", u"FROM"});
        StoredQuery::Column column;
        column.sql = sql(begin, m_at);
        column.qualifiers = mentionedTables(begin, m_at);
        expect(u"AS");
        column.name = takeWord();
        for (const QString& table : column.qualifiers) {
            if (const auto join = joinOf(table)) column.joins.push_back(*join);
        }
        m_query.columns.push_back(std::move(column));
        if (m_at < end && m_tokens[m_at].isSymbol(u",")) ++m_at;
    }

    /// Whether the condition begins with the equality of the table's own key, which at most one row meets.
    [[nodiscard]] bool bindsKey(const QString& table, std::size_t condition) const
    {
        const QString key = m_keyOfTable(table).value_or(QString());
        return !key.isEmpty() && condition + 3 < m_tokens.size() && m_tokens[condition].isWord(table) &&
               m_tokens[condition + 1].isSymbol(u".") && m_tokens[condition + 2].isWord(key) &&
               m_tokens[condition + 3].isSymbol(u"=");
    }

    [[nodiscard]] QStringList mentionedTables(std::size_t begin, std::size_t end) const
    {
        QStringList tables;
        for (std::size_t i = begin; i + 1 < end; ++i) {
            if (m_tokens[i].kind != SqlToken::Kind::Word || !m_tokens[i + 1].isSymbol(u".")) continue;
            if (!tables.contains(m_tokens[i].text, Qt::CaseInsensitive)) tables << m_tokens[i].text;
        }
        return tables;
    }

    [[nodiscard]] std::optional<std::size_t> joinOf(const QString& table) const
    {
        for (std::size_t i = 0; i < m_query.joins.size(); ++i) {
            if (m_query.joins[i].alias.compare(table, Qt::CaseInsensitive) == 0) return i;
        }
        return std::nullopt;
    }

    [[nodiscard]] QString sql(std::size_t begin, std::size_t end) const
    {
        QStringList parts;
        for (std::size_t i = begin; i < end; ++i)
            parts << render(m_tokens[i]);
        return parts.join(u' ');
    }

    /// Moves to the first of the words or symbols that stands outside parentheses, or to the end.
    void skipTo(std::initializer_list<QStringView> stops)
    {
        int depth = 0;
        for (; m_at < m_tokens.size(); ++m_at) {
            const SqlToken& token = m_tokens[m_at];
            if (depth == 0 && std::any_of(stops.begin(), stops.end(), [&token](QStringView stop) {
                    return token.isWord(stop) || token.isSymbol(stop);
                })) {
                return;
            }
            if (token.isSymbol(u"(")) ++depth;
            if (token.isSymbol(u")")) --depth;
        }
    }

    void expect(QStringView word)
    {
        if (m_at >= m_tokens.size() || !m_tokens[m_at].isWord(word)) fail();
        ++m_at;
    }

    QString takeWord()
    {
        if (m_at >= m_tokens.size() || m_tokens[m_at].kind != SqlToken::Kind::Word) fail();
        return m_tokens[m_at++].text;
    }

    [[noreturn]] void fail() const
    {
        throw Error(syntaxErrorNumber,
                    DataTexts::tr("The stored query %1 is not of the expected form.").arg(m_query.name));
    }

    Tokens m_tokens;
    const StoredQuery::KeyOfTable& m_keyOfTable;
    std::size_t m_at = 0;
    StoredQuery m_query;
};

} // namespace

const StoredQuery::Column* StoredQuery::findColumn(QStringView qualifier, QStringView column) const
{
    for (const Column& candidate : columns) {
        if (candidate.name.compare(column, Qt::CaseInsensitive) != 0) continue;
        if (qualifier.isEmpty() || name.compare(qualifier, Qt::CaseInsensitive) == 0 ||
            candidate.qualifiers.contains(qualifier, Qt::CaseInsensitive)) {
            return &candidate;
        }
    }
    return nullptr;
}

void StoredQuery::addDependencies(std::set<std::size_t>& needed) const
{
    std::vector<std::size_t> open(needed.begin(), needed.end());
    while (!open.empty()) {
        const std::size_t join = open.back();
        open.pop_back();
        for (const std::size_t other : joins.at(join).dependsOn) {
            if (needed.insert(other).second) open.push_back(other);
        }
    }
}

StoredQuery StoredQuery::parse(const QString& createView, const KeyOfTable& keyOfTable)
{
    return ViewParser(createView, keyOfTable).run();
}
