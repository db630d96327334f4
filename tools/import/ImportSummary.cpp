// SPDX-License-Identifier: GPL-3.0-or-later

#include "ImportSummary.h"

#include <algorithm>
#include <array>

namespace accessimport {

namespace {

void reportTable(const TablePlan& plan, const CopiedTable& copied, const std::string& unfitTable,
                 Report& report)
{
    const std::string& name = plan.source->name;
    report.summary({"table", name, std::to_string(copied.rows), plan.target});
    if (!plan.isOwn) report.summary({"unknown-table", name, plan.target});
    for (std::size_t at = plan.ownColumns; plan.isOwn && at < plan.columns.size(); ++at)
        report.summary({"unknown-column", name, plan.columns[at].source->name, plan.columns[at].target});
    for (const std::string& column : plan.missingColumns)
        report.summary({"missing-column", name, column});
    if (copied.repeatedRows > 0)
        report.summary({"repeated", name, std::to_string(copied.repeatedRows), copied.repeatedTable});
    for (const auto& [column, count] : copied.unfitValues)
        report.summary({"unfit", name, column, std::to_string(count), unfitTable});
}

/// Row 1 is the reserved row, which is never shown whatever its status.
void reportHiddenRecords(TargetDatabase& target, Report& report)
{
    struct StatusColumn
    {
        std::string table;
        std::string key;
        std::string status;
    };
    const std::array<StatusColumn, 3> kinds = {{{"Document", "DocumentID", "dStatus"},
                                                {"Event", "EventID", "Status"},
                                                {"Organization", "OrganizationID", "Status"}}};
    for (const StatusColumn& kind : kinds) {
        const std::string rows = "SELECT count(*) FROM " + kind.table + " WHERE " + kind.key + " > 1 AND ";
        const std::int64_t deleted = target.count(rows + kind.status + " = 'DELETED' COLLATE NOCASE");
        const std::int64_t noStatus = target.count(rows + kind.status + " IS NULL");
        report.summary({"hidden", kind.table, std::to_string(deleted), std::to_string(noStatus)});
    }
}

void reportWarnings(const ImportFindings& findings, Report& report)
{
    for (std::size_t at = 0; at < findings.catalog.tables.size(); ++at) {
        const SourceTable& table = findings.catalog.tables[at];
        if (findings.census.rows[at] == table.statedRows) continue;
        report.summary({"warning", "Table " + table.name + " states " + std::to_string(table.statedRows) +
                                       " rows, but has " + std::to_string(findings.census.rows[at]) + "."});
    }
    if (findings.census.strayRows > 0)
        report.summary({"warning", std::to_string(findings.census.strayRows) +
                                       " rows in the file belong to no table that it lists; they are not "
                                       "imported."});
}

} // namespace

void reportSummary(const ImportFindings& findings, TargetDatabase& target, Report& report)
{
    const std::vector<TablePlan>& tables = findings.plan.tables;
    const auto known =
        std::count_if(tables.begin(), tables.end(), [](const TablePlan& plan) { return plan.isOwn; });
    report.summary({"source", findings.kind});
    report.summary({"tables", std::to_string(tables.size())});
    report.summary({"rows", std::to_string(findings.census.totalRows)});
    report.summary({"known", std::to_string(known)});
    for (std::size_t at = 0; at < tables.size(); ++at)
        reportTable(tables[at], findings.copied[at], findings.unfitTable, report);
    for (const std::string& name : findings.plan.missingTables)
        report.summary({"missing-table", name});
    for (const std::string& name : findings.catalog.linkedTables)
        report.summary({"linked-table", name});
    reportHiddenRecords(target, report);
    for (const OrphanCount& orphan : findings.orphans)
        report.summary({"orphans", orphan.table, orphan.column, orphan.parent, std::to_string(orphan.rows)});
    reportWarnings(findings, report);
}

} // namespace accessimport
