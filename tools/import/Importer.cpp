// SPDX-License-Identifier: GPL-3.0-or-later

#include "Importer.h"

#include "CatalogReader.h"
#include "Census.h"
#include "ImportError.h"
#include "ImportSummary.h"
#include "SourceFile.h"
#include "TableCopier.h"
#include "TablePlan.h"
#include "TargetDatabase.h"

#include <sys/resource.h>

namespace accessimport {

namespace {

constexpr int percentCopied = 70;
constexpr int percentIndexed = 85;

/// libmdb can run in circles on a damaged file; the system ends the process then. Everything else that is
/// done here ends by itself, however long it takes.
class ProcessorTimeLimit
{
public:
    ProcessorTimeLimit()
    {
        constexpr rlim_t seconds = 20;
        ::getrlimit(RLIMIT_CPU, &m_before);
        rusage used = {};
        ::getrusage(RUSAGE_SELF, &used);
        rlimit limit = m_before;
        limit.rlim_cur = static_cast<rlim_t>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) + seconds;
        if (limit.rlim_cur < m_before.rlim_cur) ::setrlimit(RLIMIT_CPU, &limit);
    }
    ~ProcessorTimeLimit() { ::setrlimit(RLIMIT_CPU, &m_before); }
    ProcessorTimeLimit(const ProcessorTimeLimit&) = delete;
    ProcessorTimeLimit& operator=(const ProcessorTimeLimit&) = delete;

private:
    rlimit m_before = {};
};

SourceCatalog readCatalogWithinLimit(SourceFile& file)
{
    const ProcessorTimeLimit limit;
    return readCatalog(file);
}

/// A table that states more rows than there are has lost some.
void checkStatedRows(const SourceCatalog& catalog, const Census& census, bool salvage)
{
    for (std::size_t at = 0; at < catalog.tables.size() && !salvage; ++at) {
        const SourceTable& table = catalog.tables[at];
        if (census.rows[at] >= table.statedRows) continue;
        throw ImportError(ExitStatus::Damaged, "The file is damaged: table " + table.name + " should have " +
                                                   std::to_string(table.statedRows) + " rows, but only " +
                                                   std::to_string(census.rows[at]) + " are there.");
    }
}

std::vector<CopiedTable> copyTables(SourceFile& file, const ImportPlan& plan, TargetDatabase& target,
                                    UnfitValues& unfitValues, std::uint64_t totalRows, Report& report)
{
    std::vector<CopiedTable> copied;
    std::uint64_t before = 0;
    for (const TablePlan& table : plan.tables) {
        TableCopier copier(file, table, target, unfitValues);
        copied.push_back(copier.run([&](std::uint64_t rows) {
            const std::uint64_t done = before + rows;
            const std::uint64_t percent = done * percentCopied / (totalRows == 0 ? 1 : totalRows);
            report.progress(static_cast<int>(percent), done, totalRows, table.source->name);
        }));
        before += copied.back().rows;
    }
    return copied;
}

void verifyRows(const ImportPlan& plan, const std::vector<CopiedTable>& copied, const SourceCatalog& catalog,
                const Census& census, TargetDatabase& target)
{
    for (std::size_t at = 0; at < plan.tables.size(); ++at) {
        const SourceTable* source = plan.tables[at].source;
        const std::uint64_t expected = census.rows[static_cast<std::size_t>(source - catalog.tables.data())];
        auto found = static_cast<std::uint64_t>(target.rowsOf(plan.tables[at].target));
        if (!copied[at].repeatedTable.empty())
            found += static_cast<std::uint64_t>(target.rowsOf(copied[at].repeatedTable));
        if (found == expected) continue;
        throw ImportError(ExitStatus::Unverified, "Table " + source->name + " has " +
                                                      std::to_string(expected) + " rows, but " +
                                                      std::to_string(found) + " were written.");
    }
}

} // namespace

void importDatabase(const CommandLine& line, const std::string& temporary, Report& report)
{
    report.phase("reading");
    SourceFile file(line.source);
    const SourceCatalog catalog = readCatalogWithinLimit(file);
    const Census census = takeCensus(file, catalog);
    checkStatedRows(catalog, census, line.salvage);

    report.phase("copying");
    TargetDatabase target(temporary);
    const ImportPlan plan = makePlan(catalog, target);
    UnfitValues unfitValues(target);
    const std::vector<CopiedTable> copied =
        copyTables(file, plan, target, unfitValues, census.totalRows, report);

    report.phase("indexing");
    target.finish();
    report.progress(percentIndexed, census.totalRows, census.totalRows, {});

    report.phase("verifying");
    verifyRows(plan, copied, catalog, census, target);
    if (const std::string fault = target.findFault(); !fault.empty())
        throw ImportError(ExitStatus::Unverified, "The new database is not sound: " + fault);
    const std::vector<OrphanCount> orphans = target.findOrphans();
    report.progress(100, census.totalRows, census.totalRows, {});
    reportSummary({file.kind(), catalog, census, plan, copied, unfitValues.tableName(), orphans}, target,
                  report);
}

} // namespace accessimport
