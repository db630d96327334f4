// SPDX-License-Identifier: GPL-3.0-or-later

// A list read with what uses it, and a merge of two of its entries, on a database of full size in which every
// record uses the first. Each merge works on a copy of its own.

#include "BenchWindow.h"
#include "data/DatabaseSession.h"
#include "lists/ListStore.h"
#include "platform/Clock.h"

#include <QFile>

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>
#include <utility>

namespace {

constexpr int fullSize = 32000;

/// Lets every record use entry 2 of a list, which has an entry 3 of the same kind.
void useOneEntry(const QString& file, ListKind list)
{
    SQLite::Database database(file.toStdString(), SQLite::OPEN_READWRITE);
    database.exec("UPDATE OrganizationSubTypes SET OrganizationTypeID = 2 WHERE OrganizationSubTypeID > 1;"
                  "INSERT OR REPLACE INTO States VALUES (2, 'QA', ''), (3, 'QB', '')");
    if (list == ListKind::States) database.exec("UPDATE Organization SET State = 'QA'");
    if (list == ListKind::Cities) {
        database.exec("UPDATE Organization SET City = known.City, State = known.State "
                      "FROM CityLocations known WHERE known.LocationID = 2");
    }
    if (list == ListKind::States || list == ListKind::Cities) return;
    for (const ListReference& each : listTable(list).references) {
        const std::string table = each.table.toStdString();
        if (each.hasSetting) {
            database.exec("INSERT INTO " + table +
                          " SELECT OrganizationProfileID, 2, 1 FROM OrganizationProfile");
            database.exec("INSERT INTO " + table +
                          " SELECT OrganizationProfileID, 3, 0 FROM OrganizationProfile");
        } else {
            database.exec("UPDATE " + table + " SET " + each.entryColumn.toStdString() + " = 2");
        }
    }
}

/// How many records use one of the entries, and how many rows say so, counted by plain SQL.
std::pair<int, int> usesByHand(const QString& file, ListKind list, const std::string& entries)
{
    SQLite::Database database(file.toStdString(), SQLite::OPEN_READONLY);
    std::pair<int, int> uses;
    const auto add = [&](const std::string& record, const std::string& table, const std::string& condition) {
        SQLite::Statement count(database, "SELECT count(DISTINCT " + record + "), count(*) FROM " + table +
                                              " WHERE " + condition);
        count.executeStep();
        uses.first += count.getColumn(0).getInt();
        uses.second += count.getColumn(1).getInt();
    };
    if (list == ListKind::States) {
        add("OrganizationID", "Organization",
            "OrganizationID > 1 AND State IN "
            "(SELECT StateAbbreviation FROM States WHERE StateID IN (" +
                entries + "))");
    } else if (list == ListKind::Cities) {
        add("OrganizationID", "Organization",
            "OrganizationID > 1 AND EXISTS (SELECT * FROM CityLocations c WHERE "
            "c.City = Organization.City AND c.State = Organization.State AND LocationID IN (" +
                entries + "))");
    } else {
        for (const ListReference& each : listTable(list).references) {
            const std::string record = each.recordColumn.toStdString();
            add(record, each.table.toStdString(),
                record + " > 1 AND " + each.entryColumn.toStdString() + " IN (" + entries + ")");
        }
    }
    return uses;
}

void merge(benchmark::State& state)
{
    const auto list = static_cast<ListKind>(state.range(0));
    std::vector<double> reads;
    std::vector<double> merges;
    double records = 0;
    for (auto _ : state) {
        const QTemporaryDir folder;
        const QString copy = folder.filePath(QStringLiteral("copy.sqlite"));
        if (!QFile::copy(largeDatabase(fullSize), copy)) state.SkipWithError("no copy");
        useOneEntry(copy, list);
        DatabaseSession session;
        session.open(copy);
        const SystemClock clock;
        ListStore store(session, clock);
        reads.push_back(timeOf([&] { (void)store.read(list); }).count());
        const int before = usesByHand(copy, list, "2, 3").first;
        ListOutcome outcome;
        merges.push_back(timeOf([&] { outcome = store.merge(list, 2, 3); }).count());
        if (!outcome.problem.isEmpty()) state.SkipWithError("refused");
        // each record that used one of them uses the other now, and says so once
        if (usesByHand(copy, list, "3") != std::pair(before, before)) state.SkipWithError("miscounted");
        records = static_cast<double>(outcome.records);
        state.SetIterationTime(merges.back() / 1000);
    }
    state.SetLabel(listTable(list).table.toStdString());
    state.counters["records"] = records;
    state.counters["read_ms"] = medianOf(reads);
    state.counters["merge_ms"] = medianOf(merges);
}

BENCHMARK(merge)
    ->DenseRange(0, static_cast<int>(listKinds.size()) - 1)
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);

} // namespace
