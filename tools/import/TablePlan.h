// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Cell.h"
#include "SourceTable.h"
#include "TargetDatabase.h"

#include <string>
#include <vector>

namespace accessimport {

/// Where one column of the source goes.
struct ColumnPlan
{
    const SourceColumn* source = nullptr;
    std::string target;
    HeldForm form = HeldForm::Plain;
    bool isKey = false;
};

/// Where one table of the source goes, and what there is to say about it.
struct TablePlan
{
    const SourceTable* source = nullptr;
    std::string target;
    bool isOwn = false; ///< one of the program's tables
    std::vector<ColumnPlan> columns;
    std::size_t ownColumns = 0; ///< how many of `columns`, at their start, are columns of the program
    std::vector<std::string> missingColumns;
};

struct ImportPlan
{
    std::vector<TablePlan> tables;
    std::vector<std::string> missingTables;
};

/// Decides where everything goes, and adds to the target what it needs for that: columns that the program
/// does not know to its tables, and tables that it does not know. The catalog must outlive the plan.
ImportPlan makePlan(const SourceCatalog& catalog, TargetDatabase& target);

/// The type that a column is declared with in the target when the program does not know it.
std::string declaredType(ColumnType type);

} // namespace accessimport
