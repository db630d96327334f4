// SPDX-License-Identifier: GPL-3.0-or-later

// The chart of documents by type: counting and drawing, beside SQLite's own time for the count over plain
// views that hold all the joins.

#include "BenchWindow.h"
#include "browse/window/frmMain.h"
#include "chart/ChartPane.h"

namespace {

constexpr int fullSize = 32000;

void drawCharts(benchmark::State& state)
{
    BenchWindow window(fullSize);
    ProgramState& program = window.program().state();
    const SharedQuery query = program.queries.documents;
    program.history.addView({ViewKind::Documents, query, QStringLiteral("All")});
    auto* pane = window.program().window()->findChild<ChartPane*>(QStringLiteral("ChartPane"));
    const QString clauses =
        QString(query->FromClause + u' ' + query->WhereClause).remove(QStringLiteral("Document."));
    const QString plain =
        QStringLiteral("SELECT DocumentTypeID, DocumentTypeName, count(DocumentID) as Docs ") + clauses +
        QStringLiteral(" AND DocumentTypeID > 0 GROUP BY DocumentTypeID, DocumentTypeName");
    std::int64_t rows = 0;
    compare(
        state, [&] { rows = stepPlain(largeDatabase(fullSize), plain); }, [&] { pane->drawCharts(); });
    state.counters["types"] = static_cast<double>(rows);
}

} // namespace

BENCHMARK(drawCharts)->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(4);
