// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "editors/RecordEditors.h"
#include "support/CaseFile.h"

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
    explicit Saving(const QString& more = {})
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
    const QStringList cases = linesIn("journeys/cases/kept.txt");
    ASSERT_EQ(cases.size(), 10);
    for (const QString& line : cases) {
        SCOPED_TRACE(line.toStdString());
        const RecordKind kind = kindNamed(line.section(u':', 0, 0));
        Saving saving(line.section(u": "_s, 1));
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

TEST(Save, AsksBeforeItWritesOverWhatSomebodyElseChanged)
{
    // what happens to a record while it is edited, and what the program asks
    for (const auto& [meanwhile, asked] : casesIn("journeys/cases/meanwhile.txt", 8)) {
        SCOPED_TRACE(meanwhile.toStdString());
        const RecordKind kind = kindNamed(meanwhile.section(u':', 0, 0));
        const QString statements = meanwhile.section(u": "_s, 1);
        const QString question = asked.chopped(1);
        const auto [form, table, status] = namesOf(kind);
        Saving saving;
        saving.edit(kind, [&](OpenDialog& dialog) { dialog.click("cmdOK"); }); // writes the placeholders
        const QStringList before = saving.rowsWithoutVersions();
        saving.edit(kind, [&](OpenDialog& dialog) {
            dialog.type("rtbNotes", u"mine"_s);
            saving.run(statements);
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
    Saving saving(u"INSERT INTO OrganizationProfile (OrganizationProfileID, MissionStatement, ChartOption) "
                  "VALUES (2, 'Second', NULL), (2, 'Third', 1)"_s);
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
