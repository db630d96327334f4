// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <SQLiteCpp/SQLiteCpp.h>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

/// A value of a column; std::monostate is NULL.
using FieldValue = std::variant<std::monostate, qint64, double, QString>;
using Field = std::pair<const char*, FieldValue>;

/// NULL if the text is empty.
FieldValue textOrNull(const QString& text);

/// The database file while it is being built: created from the schema, filled in one transaction, checked.
/// Unless finish() was reached, the file holds no row.
class SampleDatabase
{
public:
    /// Throws SQLite::Exception if the file exists already or the schema has an error.
    SampleDatabase(const QString& path, const QString& schema);

    void insert(const std::string& table, const std::vector<Field>& fields);

    /// One link row for each of the identifiers.
    void link(const std::string& table, const char* ownColumn, qint64 own, const char* otherColumn,
              const std::set<qint64>& others);

    /// Copies a record as it stands now into the history table of its kind ("Event" into "Event_HIST"), with
    /// one column set to an earlier value if `field` is not empty. Returns false if there is no such column.
    bool copyToHistory(const std::string& kind, qint64 identifier, const QString& updateTime,
                       const std::string& field, const FieldValue& earlier);

    /// Commits and checks. Throws SQLite::Exception if the file is not sound or a reference leads nowhere.
    void finish();

private:
    SQLite::Statement& prepared(const std::string& sql);
    static void bind(SQLite::Statement& statement, int index, const FieldValue& value);

    SQLite::Database m_database;
    std::optional<SQLite::Transaction> m_transaction;
    std::map<std::string, SQLite::Statement> m_statements;
};
