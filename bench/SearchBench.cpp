// SPDX-License-Identifier: GPL-3.0-or-later

// Searches as the user makes them, from the press of the button to the last row of the list, beside
// what SQLite alone takes to step the same statements over the stored queries as plain views, with its
// own LIKE.

#include "BenchWindow.h"
#include "LastRow.h"
#include "browse/window/frmMain.h"
#include "filetext/FileTextIndex.h"
#include "search/AdvancedSearch.h"
#include "search/KeywordSearch.h"

#include <QAction>
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>

#include <SQLiteCpp/SQLiteCpp.h>

#include <cmath>
#include <random>
#include <string>

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

/// Every text has this word, one of them the next.
const QString commonWord = QStringLiteral("county");
const QString plantedWord = QStringLiteral("xylophone");

/// Adds texts of 2,000 words, of which few are frequent, as in real ones.
void addTexts(SQLite::Database& index, int count)
{
    constexpr int wordsOfText = 2000;
    constexpr double vocabulary = 30000;
    std::mt19937 random(1);
    std::uniform_real_distribution<double> rank(0, 1);
    SQLite::Statement text(index, "INSERT INTO FileText (rowid, Text) VALUES (?, ?)");
    for (int file = 1; file <= count; ++file) {
        std::string words = commonWord.toStdString();
        if (file == count / 2) words += ' ' + plantedWord.toStdString();
        for (int i = 0; i < wordsOfText; ++i) {
            const auto word = static_cast<unsigned>(std::pow(vocabulary, rank(random)));
            words += ' ';
            for (unsigned rest = word * 7919; rest != 0; rest /= 26)
                words += static_cast<char>('a' + rest % 26);
        }
        text.bind(1, file);
        text.bind(2, words);
        text.exec();
        text.reset();
    }
}

/// Makes the index of a large database, with a file for each document.
QString indexOf(int documents)
{
    QString path = FileTextIndex::pathOf(largeDatabase(documents));
    if (QFile::exists(path)) return path;
    SQLite::Database database(largeDatabase(documents).toStdString(), SQLite::OPEN_READWRITE);
    database.exec("UPDATE Document SET FileLocation = DocumentID || '.pdf'");
    SQLite::Database index(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    SQLite::Transaction transaction(index);
    index.exec(FileTextIndex::tables);
    index.exec("PRAGMA user_version = " + std::to_string(FileTextIndex::version));
    index.exec("WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i <= " +
               std::to_string(documents) + ") INSERT INTO File (FileID, Name) SELECT i, i || '.pdf' FROM n");
    addTexts(index, documents + 1);
    transaction.commit();
    return path;
}

/// A search for documents in 2,000 files, too, from the press of GO to the list painted with its passages,
/// beside the statement of the index alone.
void keywordsInFiles(benchmark::State& state, const QString& words, const char* expression, bool isInAll)
{
    constexpr int files = 2000;
    const QString index = indexOf(files);
    BenchWindow window(files);
    frmMain& shown = *window.program().window();
    KeywordDialog dialog(shown);
    auto& list = *shown.findChild<QTreeView*>(QStringLiteral("ListView1"));
    const QString plain = QStringLiteral("SELECT rowid FROM FileText WHERE FileText MATCH '%1'")
                              .arg(QLatin1StringView(expression));
    std::int64_t rows = 0;
    const auto search = [&] {
        dialog.fill(RecordKind::Document, words);
        shown.findChild<QCheckBox*>(QStringLiteral("chkFiles"))->setChecked(true);
        const auto begin = std::chrono::steady_clock::now();
        dialog.go();
        list.viewport()->repaint();
        return Milliseconds(std::chrono::steady_clock::now() - begin);
    };
    search(); // makes the graphic, as the first view of a kind does
    compareTimed(
        state, [&] { return timeOf([&] { rows = stepPlain(index, plain); }); }, search);
    if (isInAll ? list.model()->rowCount() < files / 2 : list.model()->rowCount() != rows)
        state.SkipWithError("the list has other rows than the index");
    state.counters["rows"] = list.model()->rowCount();
}

} // namespace

BENCHMARK_CAPTURE(keywordsInFiles, planted, plantedWord, "xylophone*", false)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(2);
BENCHMARK_CAPTURE(keywordsInFiles, common, commonWord, "county*", true)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(2);
BENCHMARK_CAPTURE(keywordsInFiles, letter, QStringLiteral("a b"), "a* AND b*", true)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(2);
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
