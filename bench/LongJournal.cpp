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
    SQLite::Statement add(database,
                          "INSERT INTO Journal VALUES (?1, ?1, '2005-06-15 12:00:00', 'change', ?2, ?3, "
                          "'A title', ?4, ?4, NULL, ?1, 0)");
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
