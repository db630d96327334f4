// SPDX-License-Identifier: GPL-3.0-or-later

// Searches as the user makes them, from the press of the button to the last row of the list, beside
// what SQLite alone takes to step the same statements over the stored queries as plain views, with its
// own LIKE.

#include "BenchWindow.h"
#include "LastRow.h"
#include "browse/window/frmMain.h"
#include "search/AdvancedSearch.h"
#include "search/KeywordSearch.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>

namespace {

constexpr int fullSize = 32000;

/// Both in the name of few documents, and in no description.
const QString rareWords = QStringLiteral("fairwood drought");

/// A statement without the table names that plain views do not know, and with dates and times as the file
/// holds them.
QString plainStatement(const SQLObject& query)
{
    QString statement = query.sqlStr();
    statement.replace(QStringLiteral("#1/1/1950#"), QStringLiteral("'1950-01-01'"));
    statement.replace(QStringLiteral("#12/31/1990#"), QStringLiteral("'1990-12-31'"));
    statement.replace(QStringLiteral("#06:00#"), QStringLiteral("'06:00'"));
    statement.replace(QStringLiteral("#18:00#"), QStringLiteral("'18:00'"));
    for (const char16_t* table : {u"Document.", u"EventFunctions.", u"Event.", u"Organization."})
        statement.remove(QString::fromUtf16(table));
    return statement;
}

/// The keyword dialog, filled in and ready.
class KeywordDialog
{
public:
    explicit KeywordDialog(frmMain& window) : m_window(window) {}

    void fill(std::optional<RecordKind> scope, const QString& text)
    {
        m_window.findChild<QAction*>(QStringLiteral("mnuSearchKeyword"))->trigger();
        const int index = scope ? 1 + static_cast<int>(*scope) : 0;
        m_window.findChild<QRadioButton*>(QStringLiteral("optSearch(%1)").arg(index))->setChecked(true);
        m_window.findChild<QLineEdit*>(QStringLiteral("txtKeywords"))->setText(text);
    }

    void go() { m_window.findChild<QPushButton*>(QStringLiteral("cmdGO"))->click(); }

private:
    frmMain& m_window;
};

const QAbstractItemModel& listOf(const frmMain& window)
{
    return *window.findChild<QTreeView*>(QStringLiteral("ListView1"))->model();
}

/// From the press of GO to the last row of the list, or to the end of it all if there is none.
Milliseconds timeOfSearch(KeywordDialog& dialog, const LastRow& lastRow, std::optional<RecordKind> scope)
{
    dialog.fill(scope, rareWords);
    const auto begin = std::chrono::steady_clock::now();
    dialog.go();
    return lastRow.since(begin);
}

/// A search of one kind, with the graphic of the kind beside its list.
void keywordsOfOneKind(benchmark::State& state, RecordKind scope)
{
    BenchWindow window(fullSize);
    const QAbstractItemModel& list = listOf(*window.program().window());
    KeywordDialog dialog(*window.program().window());
    const LastRow lastRow(list);
    const clsView view = keywordView(window.program().state().queries, scope, rareWords);
    const QString plain = plainStatement(*view.SQL);
    std::int64_t rows = 0;
    timeOfSearch(dialog, lastRow, scope); // makes the graphic, as the first view of a kind does
    compareTimed(
        state, [&] { return timeOf([&] { rows = stepPlain(largeDatabase(fullSize), plain); }); },
        [&] { return timeOfSearch(dialog, lastRow, scope); });
    if (list.rowCount() != rows) state.SkipWithError("the list has other rows than the statement");
    state.counters["rows"] = static_cast<double>(rows);
}

void keywordsOfAllKinds(benchmark::State& state)
{
    BenchWindow window(fullSize);
    KeywordDialog dialog(*window.program().window());
    const LastRow lastRow(listOf(*window.program().window()));
    const StandardQueries& queries = window.program().state().queries;
    QStringList statements;
    for (const RecordKind kind : recordKinds)
        statements << plainStatement(*keywordQuery(queries, kind, splitWords(rareWords).words));
    compareTimed(
        state,
        [&] {
            return timeOf([&] {
                for (const QString& statement : statements)
                    stepPlain(largeDatabase(fullSize), statement);
            });
        },
        [&] { return timeOfSearch(dialog, lastRow, std::nullopt); });
}

clsAdvSearch::Items items(int first, int count)
{
    clsAdvSearch::Items chosen;
    for (int identifier = first; identifier < first + count; ++identifier)
        chosen.push_back(clsPickListItem::of(identifier, QString()));
    return chosen;
}

/// All four criteria of a kind.
clsAdvSearch fourCriteria(RecordKind kind)
{
    clsAdvSearch search;
    for (const SearchCriterion& criterion : criteriaOf(kind)) {
        search.*criterion.flag = true;
        // several venues of documents would be read as one
        const bool single = criterion.items == &clsAdvSearch::docVenues;
        if (criterion.items != nullptr) search.*criterion.items = items(2, single ? 1 : 6);
    }
    search.docOrgs = search.eventOrgs = items(2, 200);
    search.eventStartDate = QDate(1950, 1, 1);
    search.eventStartTime = QTime(6, 0);
    search.eventEndDate = QDate(1990, 12, 31);
    search.eventEndTime = QTime(18, 0);
    search.orgLocations = {{2, QStringLiteral("Austin, TX")}, {3, QStringLiteral("Chicago, IL")}};
    search.buildAdvSQL();
    return search;
}

void criteria(benchmark::State& state, RecordKind kind)
{
    BenchWindow window(fullSize);
    ProgramState& program = window.program().state();
    const QAbstractItemModel& list = listOf(*window.program().window());
    const LastRow lastRow(list);
    const clsView view = advancedView(program.queries, kind, fourCriteria(kind));
    const QString plain = plainStatement(*view.SQL);
    const auto search = [&] {
        program.history.addView(view);
        return lastRow.ofList();
    };
    search(); // makes the graphic, as the first view of a kind does
    std::int64_t rows = 0;
    compareTimed(
        state, [&] { return timeOf([&] { rows = stepPlain(largeDatabase(fullSize), plain); }); }, search);
    if (list.rowCount() != rows) state.SkipWithError("the list has other rows than the statement");
    state.counters["rows"] = static_cast<double>(rows);
}

} // namespace

BENCHMARK_CAPTURE(keywordsOfOneKind, documents, RecordKind::Document)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(2);
BENCHMARK_CAPTURE(keywordsOfOneKind, events, RecordKind::Event)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(2);
BENCHMARK_CAPTURE(keywordsOfOneKind, organizations, RecordKind::Organization)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(2);
BENCHMARK(keywordsOfAllKinds)->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(2);
BENCHMARK_CAPTURE(criteria, documents, RecordKind::Document)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(2);
BENCHMARK_CAPTURE(criteria, events, RecordKind::Event)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(2);
BENCHMARK_CAPTURE(criteria, organizations, RecordKind::Organization)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(2);
