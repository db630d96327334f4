// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Census.h"
#include "Report.h"
#include "SourceTable.h"
#include "TableCopier.h"
#include "TablePlan.h"
#include "TargetDatabase.h"

#include <string>
#include <vector>

namespace accessimport {

/// Everything that an import found out; refers to what its maker holds.
struct ImportFindings
{
    const std::string& kind;
    const SourceCatalog& catalog;
    const Census& census;
    const ImportPlan& plan;
    const std::vector<CopiedTable>& copied; ///< in the plan's order
    const std::string& unfitTable;
    const std::vector<OrphanCount>& orphans;
};

/// Writes the summary lines.
void reportSummary(const ImportFindings& findings, TargetDatabase& target, Report& report);

} // namespace accessimport
