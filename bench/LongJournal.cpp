// SPDX-License-Identifier: GPL-3.0-or-later

#include "LongJournal.h"

#include "data/DatabaseSession.h"
#include "journal/RecordParts.h"
#include "journal/Snapshot.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>
#include <variant>
#include <vector>

namespace {

constexpr int changedRecords = 500; // of each kind

struct ChangedRecord
{
    std::string kind;
    std::int64_t identifier;
    std::string snapshot;
};

std::vector<ChangedRecord> readRecords(const QString& file)
{
    DatabaseSession session;
    session.open(file);
    std::vector<ChangedRecord> records;
    for (std::int64_t identifier = 2; identifier < 2 + changedRecords; ++identifier) {
        for (const RecordKind kind : recordKinds) {
            const Value json = Snapshots::toJson(Snapshots::ofRecord(session, kind, identifier));
            records.push_back({recordParts(kind).names.record.toStdString(), identifier,
                               std::get<QString>(json).toStdString()});
        }
    }
    return records;
}

} // namespace

void addToJournal(const QString& file, int steps)
{
    const std::vector<ChangedRecord> records = readRecords(file);
    SQLite::Database database(file.toStdString(), SQLite::OPEN_READWRITE);
    database.exec("PRAGMA synchronous = OFF; PRAGMA journal_mode = OFF; BEGIN");
    SQLite::Statement add(
        database, "INSERT INTO Journal (Number, Step, Moment, What, Kind, Identifier, Title, Before, After, "
                  "UndoStep, RedoStep) "
                  "VALUES (?1, ?1, '2005-06-15 12:00:00', 'change', ?2, ?3, 'A title', ?4, ?4, ?1, 0)");
    for (int number = 1; number <= steps; ++number) {
        const ChangedRecord& record = records[static_cast<std::size_t>(number) % records.size()];
        add.bind(1, number);
        add.bind(2, record.kind);
        add.bind(3, record.identifier);
        add.bindNoCopy(4, record.snapshot);
        add.exec();
        add.reset();
    }
    database.exec("COMMIT; PRAGMA journal_mode = DELETE");
}

void deleteAll(const QString& file)
{
    SQLite::Database database(file.toStdString(), SQLite::OPEN_READWRITE);
    database.exec("BEGIN");
    for (const RecordKind kind : recordKinds) {
        const RecordParts& record = recordParts(kind);
        const QString changes = QStringLiteral(
            "UPDATE %1 SET %2 = 'DELETED' WHERE %3 > 1; "
            "INSERT INTO Journal (Number, Step, Moment, What, Kind, Identifier, Title, Before, After, "
            "UndoStep, RedoStep) SELECT (SELECT ifnull(max(Number), 0) FROM Journal) + %3, 1, "
            "'2005-06-15 12:00:00', 'delete', '%1', %3, %4, json_object('%1', json_array(json_object('%2', "
            "'ACTIVE'))), json_object('%1', json_array(json_object('%2', 'DELETED'))), 1, 0 FROM %1 "
            "WHERE %3 > 1");
        database.exec(
            changes.arg(record.names.record, record.statusColumn, record.names.key, record.names.name)
                .toStdString());
    }
    database.exec("COMMIT");
}
