// SPDX-License-Identifier: GPL-3.0-or-later

#include "Dialogs.h"
#include "Journey.h"
#include "editors/RecordEditors.h"
#include "support/TestFiles.h"

#include <QComboBox>
#include <QDir>
#include <QTabWidget>

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The words that the program and its file have for the records of a kind.
struct KindNames
{
    const char* form;
    const char* table;
    const char* status;
};

KindNames namesOf(RecordKind kind)
{
    if (kind == RecordKind::Document) return {"frmDocument", "Document", "dStatus"};
    if (kind == RecordKind::Event) return {"frmEvent", "Event", "Status"};
    return {"frmOrganization", "Organization", "Status"};
}

/// The program with one record of each kind, all of the number 2.
class Saving
{
public:
    explicit Saving(const char* more = "")
    {
        journey.database.runFile("journeys/rows/Save.sql");
        journey.database.run(more);
        QDir().mkpath(charts);
        journey.start();
    }

    void edit(RecordKind kind, const std::function<void(OpenDialog&)>& work)
    {
        inDialog(
            namesOf(kind).form, [&] { journey.find<RecordEditors>("").edit(kind, 2); }, work);
    }

    /// What is stored of a record, in its own row.
    std::string row(RecordKind kind)
    {
        const QString table = QString::fromLatin1(namesOf(kind).table);
        return rows(u"SELECT * FROM %1 WHERE %1ID = 2"_s.arg(table));
    }

    /// Every row of the file, in order, but for those of earlier versions.
    QStringList rowsWithoutVersions()
    {
        QStringList rows = journey.dump();
        rows.removeIf([](const QString& row) { return row.section(u'|', 0, 0).endsWith(u"_HIST'"); });
        rows.sort();
        return rows;
    }

    std::string rows(const QString& statement) { return journey.database.ask(statement).toStdString(); }

    void run(const QString& statements) { journey.database.run(statements); }
    ScriptedMessages& messages() { return journey.desktop.messages; }

    Journey journey;
    QString charts = journey.dataFolder() + u"orgcharts/"_s;
};

TEST(Save, LeavesAloneWhatItsUserDidNotChange)
{
    const struct
    {
        RecordKind kind;
        const char* stored;
    } cases[] = {
        {RecordKind::Document, "UPDATE Document SET FileTypeID = 99"},
        {RecordKind::Document, "UPDATE Document SET FileTypeID = 40000, OrganizationID = 500"},
        {RecordKind::Document,
         "UPDATE Document SET FileTypeID = NULL, OrganizationID = NULL, KeyDocument = -1"},
        {RecordKind::Document, "UPDATE Document SET Author = printf('%040000d', 7)"},
        {RecordKind::Document, "INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES "
                               "(7, 'Levee Board ', 'ACTIVE'); UPDATE Document SET OrganizationID = 7"},
        {RecordKind::Event, "UPDATE Event SET StartTime = '09:05:30', EndTime = ''"},
        {RecordKind::Organization,
         "UPDATE Organization SET OrganizationSubTypeID = 5 WHERE OrganizationID = 2"},
        {RecordKind::Organization,
         "UPDATE Organization SET OrganizationTypeID = 99 WHERE OrganizationID = 2"},
        {RecordKind::Organization, "UPDATE Organization SET FunctionID = 77, OrganizationTypeID = NULL, "
                                   "OrganizationSubTypeID = NULL WHERE OrganizationID = 2"},
        {RecordKind::Organization, "UPDATE Organization SET State = 'or' WHERE OrganizationID = 2"},
    };
    for (const auto& [kind, stored] : cases) {
        SCOPED_TRACE(stored);
        Saving saving(stored);
        const std::string before = saving.row(kind);
        saving.edit(kind, [](OpenDialog& dialog) {
            const auto combos = dialog.dialog().findChildren<QComboBox*>();
            for (QComboBox* combo : combos)
                combo->setFocus();
            dialog.type("rtbNotes", u"mine"_s);
            dialog.click("cmdOK");
        });
        const QString table = QString::fromLatin1(namesOf(kind).table);
        EXPECT_EQ(saving.rows(u"SELECT Notes FROM %1_HIST"_s.arg(table)), "mine");
        saving.run(u"UPDATE %1 SET Notes = NULL WHERE Notes = 'mine'"_s.arg(table));
        EXPECT_EQ(saving.row(kind), before);
    }
}

/// The question about fields that were changed by someone else meanwhile.
QString changed(const char* fields)
{
    return u"This record was changed after you opened it. These fields differ:\n\n%1\n\n"
           "Save over these changes?"_s.arg(QLatin1String(fields));
}

/// What happens to a record while it is edited, and what the program asks.
struct Meanwhile
{
    RecordKind kind;
    const char* statements;
    QString question;
};

std::vector<Meanwhile> whatHappensMeanwhile()
{
    const QString deleted =
        u"This record was deleted after you opened it. Save your changes to it all the same? "
        "It stays deleted."_s;
    const QString deletedAndChanged =
        u"This record was deleted after you opened it, and these fields differ:\n\nTitle\n\n"
        "Save over these changes all the same? The record stays deleted."_s;
    return {
        {RecordKind::Document, "UPDATE Document SET Author = 'other', FileTypeID = 1",
         changed("Author\nFile type")},
        {RecordKind::Document,
         "INSERT INTO DocumentVenues VALUES (2, 1); INSERT INTO DocumentTypes VALUES (2, 2); "
         "INSERT INTO DocumentCategories VALUES (2, 2)",
         changed("Document types\nCategories\nVenues")},
        {RecordKind::Document, "UPDATE Document SET dStatus = 'DELETED'", deleted},
        {RecordKind::Document, "UPDATE Document SET DocumentName = 'Dams', dStatus = 'DELETED'",
         deletedAndChanged},
        {RecordKind::Event,
         "UPDATE Event SET EndDate = '1927-05-01'; INSERT INTO EventFunctions VALUES (2, 2); "
         "INSERT INTO EventVenues VALUES (2, 1); INSERT INTO DocumentEvents VALUES (2, 2); "
         "INSERT INTO OrganizationEvents VALUES (2, 2)",
         changed("End date\nVenues\nFunctions\nRelated documents\nRelated organizations")},
        {RecordKind::Event, "UPDATE Event SET Status = 'DELETED'", deleted},
        {RecordKind::Organization,
         "UPDATE Organization SET Telephone = '1' WHERE OrganizationID = 2; "
         "UPDATE OrganizationProfile SET Training = 'x', Volunteers = 5; "
         "UPDATE OrganizationProfileJurisdictions SET Setting = 1; "
         "UPDATE OrganizationProfilePopulations SET Setting = 1; INSERT INTO OrganizationVenues VALUES (2, "
         "1)",
         changed("Telephone\nVolunteers\nTraining\nJurisdictions\nPopulations\nVenues")},
        {RecordKind::Organization, "UPDATE Organization SET Status = 'DELETED' WHERE OrganizationID = 2",
         deleted},
    };
}

TEST(Save, AsksBeforeItWritesOverWhatSomebodyElseChanged)
{
    for (const auto& [kind, meanwhile, question] : whatHappensMeanwhile()) {
        SCOPED_TRACE(meanwhile);
        const auto [form, table, status] = namesOf(kind);
        Saving saving;
        saving.edit(kind, [&](OpenDialog& dialog) { dialog.click("cmdOK"); }); // writes the placeholders
        const QStringList before = saving.rowsWithoutVersions();
        saving.edit(kind,
                    [&, &kind = kind, &meanwhile = meanwhile, &question = question](OpenDialog& dialog) {
                        dialog.type("rtbNotes", u"mine"_s);
                        saving.run(QString::fromLatin1(meanwhile));
                        const std::string theirs = saving.row(kind);
                        saving.messages().expectQuestion(question, false, Question::Loss);
                        dialog.click("cmdOK");
                        EXPECT_EQ(saving.row(kind), theirs);
                        saving.messages().expectQuestion(question, true, Question::Loss);
                        dialog.click("cmdOK");
                    });
        const bool isDeleted = question.contains(u"deleted"_s);
        EXPECT_EQ(saving.rows(u"SELECT %1 FROM %2_HIST WHERE Notes = 'mine'"_s.arg(QLatin1String(status),
                                                                                   QLatin1String(table))),
                  isDeleted ? "DELETED" : "ACTIVE");
        saving.run(u"UPDATE %1 SET Notes = NULL WHERE Notes = 'mine'"_s.arg(QLatin1String(table)));
        if (isDeleted) {
            EXPECT_NE(saving.rowsWithoutVersions(), before);
            saving.run(u"UPDATE %1 SET %2 = 'ACTIVE'"_s.arg(QLatin1String(table), QLatin1String(status)));
        }
        EXPECT_EQ(saving.rowsWithoutVersions(), before);
    }
}

TEST(Save, ShowsAndChangesTheFirstOfTwoProfiles)
{
    Saving saving("INSERT INTO OrganizationProfile (OrganizationProfileID, MissionStatement, ChartOption) "
                  "VALUES (2, 'Second', NULL), (2, 'Third', 1)");
    for (const char* mission : {"First", "one", "two"}) {
        saving.edit(RecordKind::Organization, [&](OpenDialog& dialog) {
            EXPECT_EQ(dialog.text("rtbMissionStatement"), mission);
            dialog.find<QTabWidget>("tabOrganization").setCurrentIndex(1);
            dialog.type("rtbMissionStatement",
                        QString::fromLatin1(mission == std::string("First") ? "one" : "two"));
            dialog.click("cmdOK");
        });
    }
    EXPECT_EQ(saving.rows(u"SELECT MissionStatement, ChartOption FROM OrganizationProfile "
                          "ORDER BY rowid"_s),
              "two|0\nSecond|NULL\nThird|1");
}

/// A chart as it is stored, and what becomes of it when something else of its organization is changed.
struct StoredChart
{
    const char* text;
    int option;
    QStringList files; ///< in the charts folder
    bool isDropped;
    QString copy; ///< if the chart stays, the file that the program opens for it
};

TEST(Save, KeepsAChartWhoseFileOrCopyIsThereAndAsksBeforeItDropsAnother)
{
    const QString ending = u" Saving drops the organization's chart. Save all the same?"_s;
    const StoredChart cases[] = {
        {"2.pdf", 1, {u"2.pdf"_s}, false, u"2.pdf"_s}, // as the sample has it
        {"C:\\charts\\ferry.PDF", 1, {u"2.pdf"_s}, false, u"2.pdf"_s},
        {"/gone/ferry.png", 1, {u"2.png"_s, u"2.pdf"_s}, false, u"2.png"_s},
        {"ferry.png", 1, {u"ferry.png"_s}, false, u"2.png"_s},
        {"ferry.png", 1, {u"ferry.png"_s, u"2.png"_s}, false, u"2.png"_s},
        {"ferry.png", 0, {u"2.png"_s}, false, u"2.png"_s},
        {"", 1, {u"2.pdf"_s}, false, u"2.pdf"_s},
        {"", 0, {u"2.pdf"_s}, false, u"2.pdf"_s},
        {"C:\\charts\\ferry.png", 1, {u"2.pdf"_s, u"3.png"_s}, true, {}},
        {"../orgcharts/3.png", 1, {u"3.png"_s}, true, {}},
        {"", 1, {}, true, {}},
    };
    for (const auto& [text, option, files, isDropped, copy] : cases) {
        SCOPED_TRACE(text);
        Saving saving;
        const QString path = QString::fromLatin1(text);
        saving.run(
            u"UPDATE OrganizationProfile SET OrganizationChart = '%1', ChartOption = %2"_s.arg(path).arg(
                option));
        for (const QString& name : files)
            writeFile(saving.charts + name, name.toUtf8());
        const QString chart = u"SELECT OrganizationChart, ChartOption FROM OrganizationProfile"_s;
        const std::string before = saving.rows(chart);
        saving.edit(RecordKind::Organization, [&, isDropped = isDropped](OpenDialog& dialog) {
            auto& tabs = dialog.find<QTabWidget>("tabOrganization");
            EXPECT_EQ(tabs.tabToolTip(1).isEmpty(), !isDropped);
            dialog.type("txtTelephone", u"555 0100"_s);
            const QString question = (path.isEmpty() ? u"The file of the organization's chart is missing."_s
                                                     : path + u"\n\nThere is no file at this path."_s) +
                                     ending;
            if (isDropped) {
                saving.messages().expectQuestion(question, false, Question::Loss);
                dialog.click("cmdOK");
                EXPECT_EQ(tabs.currentIndex(), 1);
                EXPECT_EQ(dialog.focus(), "txtOrganizationChart");
                EXPECT_EQ(saving.rows(chart), before);
                saving.messages().expectQuestion(question, true, Question::Loss);
            }
            dialog.click("cmdOK");
        });
        EXPECT_EQ(saving.rows(chart), isDropped ? "|0" : before);
        EXPECT_EQ(saving.rows(u"SELECT Telephone FROM Organization WHERE OrganizationID = 2"_s), "555 0100");
        if (isDropped) continue;
        EXPECT_EQ(contentOf(saving.charts + copy), (files.contains(copy) ? copy : files.front()).toUtf8());
    }
}

} // namespace
