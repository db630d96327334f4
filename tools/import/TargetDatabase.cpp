// SPDX-License-Identifier: GPL-3.0-or-later

#include "TargetDatabase.h"

#include "JetValues.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace accessimport {

namespace {

HeldForm formOf(const std::string& column, const std::string& declaredType)
{
    if (column == "DocumentDate") return HeldForm::MonthDayYear;
    if (declaredType == "DATE TEXT") return HeldForm::Date;
    if (declaredType == "TIME TEXT") return HeldForm::Time;
    if (declaredType == "DATETIME TEXT") return HeldForm::DateTime;
    if (declaredType == "BOOLEAN") return HeldForm::Boolean;
    if (declaredType == "CURRENCY TEXT" || declaredType == "TEXT") return HeldForm::Text;
    return HeldForm::Plain;
}

} // namespace

TargetDatabase::TargetDatabase(const std::string& path)
    : m_database(path, SQLite::OPEN_READWRITE), m_schema(divideScript(embeddedSchema()))
{
    m_database.exec("PRAGMA page_size = 4096");
    m_database.exec("PRAGMA synchronous = OFF");
    m_database.exec("PRAGMA journal_mode = MEMORY");
    m_database.exec("PRAGMA locking_mode = EXCLUSIVE");
    m_database.exec("PRAGMA cache_size = -8192");
    m_database.exec("PRAGMA foreign_keys = OFF");
    m_database.exec("BEGIN");
    for (const std::string& statement : m_schema.tables)
        m_database.exec(statement);
    for (const std::string& name : m_schema.names)
        m_usedNames.insert(foldedName(name));
    readOwnTables();
}

void TargetDatabase::readOwnTables()
{
    SQLite::Statement query(m_database,
                            "SELECT m.name, c.name, c.type, c.pk FROM sqlite_master AS m, "
                            "pragma_table_info(m.name) AS c WHERE m.type = 'table' AND m.name <> 'Journal' "
                            "ORDER BY m.rowid, c.cid");
    while (query.executeStep()) {
        const std::string table = query.getColumn(0);
        const std::string column = query.getColumn(1);
        const std::string type = query.getColumn(2);
        if (m_ownTables.empty() || m_ownTables.back().name != table) m_ownTables.push_back({table, {}});
        m_ownTables.back().columns.push_back(
            {column, formOf(column, type), query.getColumn(3).getInt() != 0});
    }
}

std::string TargetDatabase::quoted(const std::string& name)
{
    std::string text = "\"";
    for (const char character : name) {
        if (character == '"') text += '"';
        text += character;
    }
    return text + '"';
}

std::string TargetDatabase::freeTableName(const std::string& wanted)
{
    const bool isReserved = wanted.empty() || isSameName(std::string_view(wanted).substr(0, 7), "sqlite_");
    const std::string base = isReserved ? "IMPORTED_" + wanted : wanted;
    std::string name = base;
    for (int number = 1; !m_usedNames.insert(foldedName(name)).second; ++number)
        name = base + "_IMPORTED" + (number == 1 ? "" : std::to_string(number));
    return name;
}

void TargetDatabase::addColumn(const std::string& table, const std::string& column, const std::string& type)
{
    m_database.exec("ALTER TABLE " + quoted(table) + " ADD COLUMN " + quoted(column) + ' ' + type);
}

void TargetDatabase::createTable(const std::string& table,
                                 const std::vector<std::pair<std::string, std::string>>& columns)
{
    std::string statement = "CREATE TABLE " + quoted(table) + " (";
    for (const auto& [name, type] : columns) {
        if (statement.back() != '(') statement += ", ";
        statement += quoted(name) + ' ' + type;
    }
    m_database.exec(statement + ')');
}

void TargetDatabase::createTableLike(const std::string& table, const std::string& model)
{
    m_database.exec("CREATE TABLE " + quoted(table) + " AS SELECT * FROM " + quoted(model) + " WHERE 0");
}

SQLite::Statement TargetDatabase::prepareInsert(const std::string& table,
                                                const std::vector<std::string>& columns)
{
    std::string names;
    std::string values;
    for (const std::string& column : columns) {
        names += (names.empty() ? "" : ", ") + quoted(column);
        values += values.empty() ? "?" : ", ?";
    }
    return {m_database, "INSERT INTO " + quoted(table) + " (" + names + ") VALUES (" + values + ')'};
}

void TargetDatabase::finish()
{
    for (const std::string& statement : m_schema.rest)
        m_database.exec(statement);
    m_database.exec("COMMIT");
}

std::string TargetDatabase::findFault()
{
    const std::string result = m_database.execAndGet("PRAGMA integrity_check(1)");
    return result == "ok" ? std::string() : result;
}

std::int64_t TargetDatabase::rowsOf(const std::string& table)
{
    return count("SELECT count(*) FROM " + quoted(table));
}

std::int64_t TargetDatabase::count(const std::string& query)
{
    return m_database.execAndGet(query).getInt64();
}

std::vector<OrphanCount> TargetDatabase::findOrphans()
{
    std::map<std::tuple<std::string, std::string, int>, std::int64_t> counts;
    SQLite::Statement check(m_database, "PRAGMA foreign_key_check");
    while (check.executeStep())
        ++counts[{check.getColumn(0).getString(), check.getColumn(2).getString(),
                  check.getColumn(3).getInt()}];

    std::vector<OrphanCount> orphans;
    for (const auto& [key, rows] : counts) {
        const auto& [table, parent, number] = key;
        SQLite::Statement name(m_database, "SELECT \"from\" FROM pragma_foreign_key_list(?) WHERE id = ?");
        name.bind(1, table);
        name.bind(2, number);
        if (name.executeStep()) orphans.push_back({table, name.getColumn(0).getString(), parent, rows});
    }
    return orphans;
}

} // namespace accessimport
