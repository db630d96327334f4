// SPDX-License-Identifier: GPL-3.0-or-later

// LIKE without regard to case for every letter, beside SQLite's own, which knows ASCII alone.

#include "BenchWindow.h"
#include "data/EngineRules.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace {

void like(benchmark::State& state, const char* word)
{
    const std::string file = largeDatabase(32000).toStdString();
    SQLite::Database plain(file);
    SQLite::Database ours(file);
    addTextRules(ours.getHandle());
    for (SQLite::Database* database : {&plain, &ours}) {
        // in memory, so that what is compared is the matching and not the disk
        database->exec("PRAGMA cache_size = -200000");
    }
    const std::string statement =
        std::string("SELECT count(*) FROM Document WHERE DocumentDescription LIKE '%") + word + "%'";
    int plainCount = 0;
    int ourCount = 0;
    const auto count = [&statement](SQLite::Database& database, int& found) {
        SQLite::Statement rows(database, statement);
        rows.executeStep();
        found = rows.getColumn(0).getInt();
    };
    compare(
        state, [&] { count(plain, plainCount); }, [&] { count(ours, ourCount); });
    if (plainCount != ourCount) state.SkipWithError("the counts differ");
}

} // namespace

BENCHMARK_CAPTURE(like, rare, "xylophone")->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(2);
BENCHMARK_CAPTURE(like, frequent, "Storm")->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(2);
BENCHMARK_CAPTURE(like, two_words, "water%volunteers")
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(2);
