// SPDX-License-Identifier: GPL-3.0-or-later

#include "TablePlan.h"

#include "JetValues.h"

#include <algorithm>
#include <set>
#include <utility>

namespace accessimport {

namespace {

/// Takes the name, or derives one if the table has it already.
std::string freeColumnName(const std::string& wanted, std::set<std::string>& used)
{
    std::string name = wanted;
    for (int number = 1; !used.insert(foldedName(name)).second; ++number)
        name = wanted + "_IMPORTED" + (number == 1 ? "" : std::to_string(number));
    return name;
}

TablePlan planOwnTable(const SourceTable& source, const TargetTable& own, TargetDatabase& target)
{
    TablePlan plan;
    plan.source = &source;
    plan.target = own.name;
    plan.isOwn = true;
    std::set<const SourceColumn*> taken;
    std::set<std::string> used;
    for (const TargetColumn& column : own.columns) {
        used.insert(foldedName(column.name));
        const auto found =
            std::find_if(source.columns.begin(), source.columns.end(),
                         [&](const auto& candidate) { return isSameName(candidate.name, column.name); });
        if (found == source.columns.end()) {
            plan.missingColumns.push_back(column.name);
        } else {
            plan.columns.push_back({&*found, column.name, column.form, column.isKey});
            taken.insert(&*found);
        }
    }
    plan.ownColumns = plan.columns.size();
    for (const SourceColumn& column : source.columns) {
        if (taken.contains(&column)) continue;
        const std::string name = freeColumnName(column.name, used);
        target.addColumn(plan.target, name, declaredType(column.type));
        plan.columns.push_back({&column, name, HeldForm::Plain});
    }
    return plan;
}

TablePlan planUnknownTable(const SourceTable& source, TargetDatabase& target)
{
    TablePlan plan;
    plan.source = &source;
    plan.target = target.freeTableName(source.name);
    std::set<std::string> used;
    std::vector<std::pair<std::string, std::string>> columns;
    for (const SourceColumn& column : source.columns) {
        columns.emplace_back(freeColumnName(column.name, used), declaredType(column.type));
        plan.columns.push_back({&column, columns.back().first, HeldForm::Plain});
    }
    target.createTable(plan.target, columns);
    return plan;
}

} // namespace

ImportPlan makePlan(const SourceCatalog& catalog, TargetDatabase& target)
{
    ImportPlan plan;
    std::set<const SourceTable*> taken;
    for (const TargetTable& own : target.ownTables()) {
        const auto found =
            std::find_if(catalog.tables.begin(), catalog.tables.end(),
                         [&own](const auto& candidate) { return isSameName(candidate.name, own.name); });
        if (found == catalog.tables.end()) {
            plan.missingTables.push_back(own.name);
        } else {
            plan.tables.push_back(planOwnTable(*found, own, target));
            taken.insert(&*found);
        }
    }
    for (const SourceTable& source : catalog.tables)
        if (!taken.contains(&source)) plan.tables.push_back(planUnknownTable(source, target));
    return plan;
}

std::string declaredType(ColumnType type)
{
    switch (type) {
    case ColumnType::YesNo:
        return "BOOLEAN";
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::LongInteger:
    case ColumnType::LargeInteger:
    case ColumnType::Complex:
        return "INTEGER";
    case ColumnType::Single:
    case ColumnType::Double:
        return "REAL";
    case ColumnType::Currency:
        return "CURRENCY TEXT";
    case ColumnType::Decimal:
        return "DECIMAL TEXT";
    case ColumnType::DateTime:
        return "DATETIME TEXT";
    case ColumnType::Identifier:
    case ColumnType::Text:
    case ColumnType::Memo:
        return "TEXT";
    default:
        return "BLOB";
    }
}

} // namespace accessimport
