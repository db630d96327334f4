// SPDX-License-Identifier: GPL-3.0-or-later

// A save of each kind, beside the same rows written by hand in one transaction of SQLite, on two copies
// of the same large database. A save also looks for a title that is taken, and reads what it changes. The
// file that a new document takes is copied on both sides, and both write a row of the journal.

#include "BenchWindow.h"
#include "Saves.h"
#include "data/HeldRows.h"
#include "files/FileCopy.h"
#include "journal/Snapshot.h"
#include "records/OrganizationStore.h"

#include <QDir>
#include <QFile>

#include <SQLiteCpp/SQLiteCpp.h>

#include <variant>

namespace {

constexpr int fullSize = 31000; // identifiers end at 32767, and each round adds one
constexpr int rounds = 100;

using Bound = std::variant<std::int64_t, std::string>;
using Row = std::vector<std::pair<std::string, Bound>>;

/// SQLite alone, with the program's own care for the disk.
class ByHand
{
public:
    explicit ByHand(const QString& file) : m_database(file.toStdString(), SQLite::OPEN_READWRITE)
    {
        m_database.exec("PRAGMA synchronous = FULL; PRAGMA cache_size = -16000");
    }

    void begin() { m_database.exec("BEGIN IMMEDIATE"); }
    void commit() { m_database.exec("COMMIT"); }

    std::int64_t nextNumber(const std::string& table)
    {
        return m_database.execAndGet("SELECT max(" + table + "ID) + 1 FROM " + table).getInt64();
    }

    void insert(const std::string& table, const Row& row)
    {
        std::string columns;
        std::string places;
        for (const auto& [column, value] : row) {
            columns += (columns.empty() ? "" : ", ") + column;
            places += places.empty() ? "?" : ", ?";
        }
        run("INSERT INTO " + table + " (" + columns + ") VALUES (" + places + ")", row);
    }

    void update(const std::string& table, const Row& row, std::int64_t id, const std::string& key = "rowid")
    {
        std::string assignments;
        for (const auto& [column, value] : row)
            assignments += (assignments.empty() ? "" : ", ") + column + " = ?";
        run("UPDATE " + table + " SET " + assignments + " WHERE " + key + " = " + std::to_string(id), row);
    }

    /// Replaces the links of a record by two, each with a setting if it has one.
    void link(const std::string& table, const std::string& record, const std::string& other, std::int64_t id)
    {
        m_database.exec("DELETE FROM " + table + " WHERE " + record + " = " + std::to_string(id));
        SQLite::Statement insert(m_database,
                                 "INSERT INTO " + table + " (" + record + ", " + other + ") VALUES (?, ?)");
        for (const int key : {2, 3}) {
            insert.bind(1, id);
            insert.bind(2, key);
            insert.exec();
            insert.reset();
        }
    }

    void settings(const std::string& table, const std::string& other, std::int64_t id, std::size_t count)
    {
        m_database.exec("DELETE FROM " + table + " WHERE OrganizationProfileID = " + std::to_string(id));
        SQLite::Statement insert(m_database, "INSERT INTO " + table + " (OrganizationProfileID, " + other +
                                                 ", Setting) VALUES (?, ?, 1)");
        for (std::size_t key = 1; key <= count; ++key) {
            insert.bind(1, id);
            insert.bind(2, static_cast<std::int64_t>(key));
            insert.exec();
            insert.reset();
        }
    }

    /// Adds a row to the journal with a text of that length for what was there after the save and, of a
    /// change, before it.
    void note(const std::string& kind, std::int64_t id, bool adds, std::size_t length)
    {
        const auto number =
            m_database.execAndGet("SELECT ifnull(max(Number), 0) + 1 FROM Journal").getInt64();
        const std::string snapshot(length, 'x');
        Row row{{"Number", number},           {"Step", number},    {"Moment", "2005-06-15 12:00:00"},
                {"What", "change"},           {"Kind", kind},      {"Identifier", id},
                {"Title", "Saved"},           {"After", snapshot}, {"UndoStep", number},
                {"RedoStep", std::int64_t{0}}};
        if (!adds) row.emplace_back("Before", snapshot);
        insert("Journal", row);
    }

    std::int64_t count(const std::string& table)
    {
        return m_database.execAndGet("SELECT count(*) FROM " + table).getInt64();
    }

private:
    void run(const std::string& statement, const Row& row)
    {
        SQLite::Statement prepared(m_database, statement);
        int place = 0;
        for (const auto& [column, value] : row) {
            std::visit([&](const auto& bound) { prepared.bind(++place, bound); }, value);
        }
        prepared.exec();
    }

    SQLite::Database m_database;
};

/// A folder with two copies of the large database and a document's file.
class Copies
{
public:
    Copies()
    {
        QDir().mkpath(path(QStringLiteral("data/documents")));
        for (const char* copy : {"ours.sqlite", "plain.sqlite"})
            QFile::copy(largeDatabase(fullSize), path(QLatin1String(copy)));
        QFile document(path(QStringLiteral("report.pdf")));
        if (document.open(QIODevice::WriteOnly)) document.write(QByteArray(200000, 'x'));
    }

    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
};

/// Both sides of a comparison, each with its own copy.
struct Setting
{
    Setting() { state.session.open(copies.path(QStringLiteral("ours.sqlite"))); }

    [[nodiscard]] std::function<bool()> saving(RecordKind kind, bool adds)
    {
        return Saves::saving(state, clock, copies.path(QStringLiteral("report.pdf")), kind, adds);
    }

    Copies copies;
    ProgramState state{ProgramFolder(copies.path(QString()))};
    SystemClock clock;
    ByHand hand{copies.path(QStringLiteral("plain.sqlite"))};
    int round = 0;
};

const std::string text(Saves::textLength, 'x');

/// How long the journal's text is for a record as it is saved.
std::size_t snapshotLength(Setting& setting, RecordKind kind, qint64 id)
{
    const Value json = Snapshots::toJson(Snapshots::ofRecord(setting.state.session, kind, id));
    return static_cast<std::size_t>(std::get<QString>(json).toUtf8().size());
}

/// Both sides must have written the same number of rows.
void compareCounts(benchmark::State& state, Setting& setting, const std::vector<std::string>& tables)
{
    const HeldRows ours(setting.state.session);
    for (const std::string& table : tables) {
        const auto count =
            ours.read(QStringLiteral("SELECT count(*) AS n FROM ") + QString::fromStdString(table));
        if (wholeNumberOf(count.front(), u"n") != setting.hand.count(table))
            state.SkipWithError(("the two wrote other rows: " + table).c_str());
    }
}

Row documentRow(const std::string& name, const std::string& fileName)
{
    return {{"DocumentName", name},
            {"Author", ""},
            {"DocumentDate", ""},
            {"Publication", ""},
            {"PageNum", ""},
            {"PubNum", ""},
            {"Volume", ""},
            {"URL", "http://"},
            {"OriginalFilename", fileName},
            {"KeyDocument", std::int64_t{0}},
            {"DocumentDescription", text},
            {"Notes", ""},
            {"FileTypeID", std::int64_t{2}},
            {"OrganizationID", std::int64_t{2}}};
}

Row with(Row row, const Row& more)
{
    row.insert(row.end(), more.begin(), more.end());
    return row;
}

const Row documentConstants{{"dStatus", "ACTIVE"},
                            {"UserID", std::int64_t{1}},
                            {"POCID", std::int64_t{1}},
                            {"Status", "SUBMITTED"},
                            {"FileLocation", "1.pdf"}};
const Row updateTime{{"UpdateTime", "2005-06-15 12:00:00"}};

void finishDocument(ByHand& hand, const Row& row, std::int64_t id)
{
    hand.link("DocumentTypes", "DocumentID", "DocumentTypeID", id);
    hand.link("DocumentCategories", "DocumentID", "DocumentCategoryID", id);
    hand.link("DocumentVenues", "DocumentID", "VenueID", id);
    hand.insert("Document_HIST", with(with(row, documentConstants), with({{"DocumentID", id}}, updateTime)));
}

void document(benchmark::State& state, bool adds)
{
    Setting setting;
    const QString source = setting.copies.path(QStringLiteral("report.pdf"));
    const std::size_t length = snapshotLength(setting, RecordKind::Document, 2);
    const auto byHand = [&] {
        const Row row = documentRow("Saved " + std::to_string(++setting.round), source.toStdString());
        ByHand& hand = setting.hand;
        hand.begin();
        const std::int64_t id = adds ? hand.nextNumber("Document") : 2;
        if (adds) {
            hand.insert("Document", with(row, documentConstants));
            FileCopy::copyFile(source.toStdString(),
                               setting.copies.path(QStringLiteral("plain.pdf")).toStdString());
        } else {
            hand.update("Document", row, id);
        }
        finishDocument(hand, row, id);
        hand.note("Document", id, adds, length);
        hand.commit();
    };
    const auto save = setting.saving(RecordKind::Document, adds);
    const auto ours = [&] {
        if (!save()) state.SkipWithError("the save was refused");
    };
    compare(state, byHand, ours);
    compareCounts(
        state, setting,
        {"Document", "DocumentTypes", "DocumentCategories", "DocumentVenues", "Document_HIST", "Journal"});
}

Row eventRow(const std::string& name)
{
    return {{"EventName", name},           {"EventDescription", text},  {"Notes", ""},
            {"KeyEvent", std::int64_t{1}}, {"StartDate", "2001-09-11"}, {"EndDate", "2001-09-12"},
            {"StartTime", "08:46"},        {"EndTime", "10:00"}};
}

const Row constants{{"Status", "ACTIVE"}, {"UserID", std::int64_t{1}}};

void event(benchmark::State& state, bool adds)
{
    Setting setting;
    const std::size_t length = snapshotLength(setting, RecordKind::Event, 2);
    const auto byHand = [&] {
        const Row row = eventRow("Saved " + std::to_string(++setting.round));
        ByHand& hand = setting.hand;
        hand.begin();
        const std::int64_t id = adds ? hand.nextNumber("Event") : 2;
        adds ? hand.insert("Event", with(row, constants)) : hand.update("Event", row, id);
        hand.link("EventVenues", "EventID", "VenueID", id);
        hand.link("EventFunctions", "EventID", "FunctionID", id);
        hand.link("DocumentEvents", "EventID", "DocumentID", id);
        hand.link("OrganizationEvents", "EventID", "OrganizationID", id);
        hand.insert("Event_HIST", with(with(row, constants), with({{"EventID", id}}, updateTime)));
        hand.note("Event", id, adds, length);
        hand.commit();
    };
    const auto save = setting.saving(RecordKind::Event, adds);
    const auto ours = [&] {
        if (!save()) state.SkipWithError("the save was refused");
    };
    compare(state, byHand, ours);
    compareCounts(state, setting,
                  {"Event", "EventVenues", "EventFunctions", "DocumentEvents", "OrganizationEvents",
                   "Event_HIST", "Journal"});
}

Row organizationRow(const std::string& name)
{
    return {{"OrganizationName", name},
            {"Address1", ""},
            {"Address2", ""},
            {"Address3", ""},
            {"City", "Austin"},
            {"State", "TX"},
            {"Zip", ""},
            {"Fax", ""},
            {"Telephone", ""},
            {"Website", ""},
            {"ResponseActivities", text},
            {"Notes", ""},
            {"FunctionID", std::int64_t{2}},
            {"OrganizationTypeID", std::int64_t{2}},
            {"OrganizationSubTypeID", std::int64_t{2}}};
}

const Row profileRow{{"MissionStatement", text},
                     {"SwornEmployees", std::int64_t{100}},
                     {"AnnualBudget", "1000000"},
                     {"Resources", ""},
                     {"Training", ""},
                     {"Other", ""},
                     {"OrganizationChart", ""},
                     {"ChartOption", std::int64_t{0}}};

void organization(benchmark::State& state, bool adds)
{
    Setting setting;
    const qint64 changed = Saves::changedOrganization(setting.state.session);
    const OrganizationRecord settings =
        OrganizationStore(setting.state.session, setting.state.folder, setting.clock).blank();
    const std::size_t length = snapshotLength(setting, RecordKind::Organization, changed);
    const auto byHand = [&] {
        const Row row = organizationRow("Saved " + std::to_string(++setting.round));
        ByHand& hand = setting.hand;
        hand.begin();
        const std::int64_t id = adds ? hand.nextNumber("Organization") : changed;
        adds ? hand.insert("Organization", with(row, constants)) : hand.update("Organization", row, id);
        if (adds)
            hand.insert("OrganizationProfile", with({{"OrganizationProfileID", id}}, profileRow));
        else
            hand.update("OrganizationProfile", profileRow, id, "OrganizationProfileID");
        hand.settings("OrganizationProfileJurisdictions", "JurisdictionID", id,
                      settings.jurisdictions.size());
        hand.settings("OrganizationProfilePopulations", "PopulationID", id, settings.populations.size());
        hand.link("OrganizationVenues", "OrganizationID", "VenueID", id);
        hand.insert("Organization_HIST",
                    with(with(row, constants), with({{"OrganizationID", id}}, updateTime)));
        hand.note("Organization", id, adds, length);
        hand.commit();
    };
    const auto save = setting.saving(RecordKind::Organization, adds);
    const auto ours = [&] {
        if (!save()) state.SkipWithError("the save was refused");
    };
    compare(state, byHand, ours);
    compareCounts(state, setting,
                  {"Organization", "OrganizationProfile", "OrganizationProfileJurisdictions",
                   "OrganizationProfilePopulations", "OrganizationVenues", "Organization_HIST", "Journal"});
}

void add(benchmark::State& state, void (*save)(benchmark::State&, bool))
{
    save(state, true);
}

void change(benchmark::State& state, void (*save)(benchmark::State&, bool))
{
    save(state, false);
}

} // namespace

#define SAVE(how, kind)                                                                                      \
    BENCHMARK_CAPTURE(how, kind, kind)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(rounds)
SAVE(add, document);
SAVE(change, document);
SAVE(add, event);
SAVE(change, event);
SAVE(add, organization);
SAVE(change, organization);
