// SPDX-License-Identifier: GPL-3.0-or-later

#include "SampleDatabase.h"

FieldValue textOrNull(const QString& text)
{
    return text.isEmpty() ? FieldValue() : FieldValue(text);
}

SampleDatabase::SampleDatabase(const QString& path, const QString& schema)
    : m_database(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
{
    m_database.exec(schema.toStdString());
    m_transaction.emplace(m_database);
}

SQLite::Statement& SampleDatabase::prepared(const std::string& sql)
{
    auto found = m_statements.find(sql);
    if (found == m_statements.end()) found = m_statements.try_emplace(sql, m_database, sql).first;
    found->second.reset();
    return found->second;
}

void SampleDatabase::bind(SQLite::Statement& statement, int index, const FieldValue& value)
{
    if (const auto* number = std::get_if<qint64>(&value))
        statement.bind(index, static_cast<int64_t>(*number));
    else if (const auto* real = std::get_if<double>(&value))
        statement.bind(index, *real);
    else if (const auto* text = std::get_if<QString>(&value))
        statement.bind(index, text->toStdString());
    else
        statement.bind(index);
}

void SampleDatabase::insert(const std::string& table, const std::vector<Field>& fields)
{
    std::string columns;
    std::string places;
    for (const Field& field : fields) {
        columns += (columns.empty() ? "" : ", ") + std::string(field.first);
        places += places.empty() ? "?" : ", ?";
    }
    SQLite::Statement& statement =
        prepared("INSERT INTO " + table + " (" + columns + ") VALUES (" + places + ")");
    int index = 0;
    for (const Field& field : fields)
        bind(statement, ++index, field.second);
    statement.exec();
}

void SampleDatabase::link(const std::string& table, const char* ownColumn, qint64 own,
                          const char* otherColumn, const std::set<qint64>& others)
{
    for (const qint64 other : others)
        insert(table, {{ownColumn, own}, {otherColumn, other}});
}

bool SampleDatabase::copyToHistory(const std::string& kind, qint64 identifier, const QString& updateTime,
                                   const std::string& field, const FieldValue& earlier)
{
    const std::string history = kind + "_HIST";
    if (!field.empty()) {
        SQLite::Statement& known = prepared("SELECT count(*) FROM pragma_table_info(?) WHERE name = ?");
        known.bind(1, history);
        known.bind(2, field);
        known.executeStep();
        if (known.getColumn(0).getInt() == 0) return false;
    }
    SQLite::Statement& copy =
        prepared("INSERT INTO " + history + " SELECT *, ? FROM " + kind + " WHERE " + kind + "ID = ?");
    copy.bind(1, updateTime.toStdString());
    copy.bind(2, static_cast<int64_t>(identifier));
    copy.exec();
    if (!field.empty()) {
        SQLite::Statement& change =
            prepared("UPDATE " + history + " SET " + field + " = ? WHERE rowid = last_insert_rowid()");
        bind(change, 1, earlier);
        change.exec();
    }
    return true;
}

void SampleDatabase::finish()
{
    m_statements.clear();
    m_transaction->commit();
    SQLite::Statement integrity(m_database, "PRAGMA integrity_check");
    integrity.executeStep();
    const std::string verdict = integrity.getColumn(0).getString();
    if (verdict != "ok") throw SQLite::Exception("the database is not sound: " + verdict);
    SQLite::Statement references(m_database, "PRAGMA foreign_key_check");
    if (references.executeStep())
        throw SQLite::Exception("a row of " + references.getColumn(0).getString() + " refers to no row of " +
                                references.getColumn(2).getString());
}
