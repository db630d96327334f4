// SPDX-License-Identifier: GPL-3.0-or-later

// The record that is read beside the list.

#include "Journey.h"

namespace {

class DetailsJourney : public testing::Test
{
protected:
    DetailsJourney() { journey.database.runFile("journeys/rows/Portrait.sql"); }

    /// Starts with the details of a view.
    void start(const char* view = "mnuViewDocuments")
    {
        journey.start();
        journey.program->window()->resize(1280, 800);
        journey.trigger(view);
        journey.trigger("mnuViewDetails");
        EXPECT_TRUE(journey.list().hasFocus());
    }

    QTextBrowser& page() { return journey.find<QTextBrowser>("txtDetails"); }

    /// Waits until the page begins with that text.
    bool begins(const QString& text)
    {
        return QTest::qWaitFor([&] { return page().toPlainText().startsWith(text); });
    }

    void expectBegins(const QString& text)
    {
        EXPECT_TRUE(begins(text)) << page().toPlainText().toStdString();
    }

    /// Clicks into the middle of a text of the page.
    void click(const QString& text)
    {
        QTextCursor cursor = page().document()->find(text);
        ASSERT_FALSE(cursor.isNull()) << text.toStdString();
        cursor.setPosition(cursor.selectionStart() + 2);
        page().setTextCursor(cursor);
        QTest::mouseClick(page().viewport(), Qt::LeftButton, {}, page().cursorRect(cursor).center());
    }

    Journey journey;
};

/// Gives every column for texts of the record 2 its own name as content.
void fillTexts(const TestDatabase& database, const QString& table)
{
    database.run(
        database.ask(u"SELECT 'UPDATE %1 SET ' || group_concat('\"' || name || '\" = ''held in ' || name || "
                     "'''') || ' WHERE %1ID = 2' FROM pragma_table_info('%1') "
                     "WHERE type = 'TEXT' AND name NOT IN ('Status', 'dStatus')"_s.arg(table)));
}

} // namespace

TEST_F(DetailsJourney, ShowEveryFieldOfEveryKind)
{
    const TestDatabase& database = journey.database;
    database.run(
        "INSERT INTO OrganizationProfile VALUES (2, '', 1801, 1802, 1803, '1804.5', '', '', '', '', 1);"
        "INSERT INTO OrganizationProfileJurisdictions VALUES (2, 2, 1);"
        "INSERT INTO OrganizationProfilePopulations VALUES (2, 2, 1);"
        "UPDATE Organization SET Lat = 30.25, Lon = -97.5; UPDATE Event SET EndDate = '1927-05-02'");
    for (const char* table : {"Document", "Event", "Organization", "OrganizationProfile"})
        fillTexts(database, QLatin1StringView(table));
    start();
    // what the other fields have, and the names of what they lead to
    const std::map<RecordKind, QString> others{
        {RecordKind::Document,
         u"Yes|Adobe PDF|held in OrganizationName|Plan|Report|Floods|Forest|held in EventName"_s},
        {RecordKind::Event, u"Yes|04/01/1927|06:02|05/02/1927|06:07|Coast|Relief|held in DocumentName|"
                            "held in OrganizationName"_s},
        {RecordKind::Organization, u"State|Board|Law|Coast|1801|1802|1803|1804.5|30.25|-97.5|Town|Adults|"
                                   "held in DocumentName|held in EventName"_s}};
    for (const auto& [kind, texts] : others) {
        const RecordNames names = recordNames(kind);
        journey.trigger(qPrintable(u"mnuView%1s"_s.arg(names.record)));
        journey.select(qPrintable(u"held in "_s + names.name));
        expectBegins(u"held in "_s + names.name);
        const QString columns = database.ask(
            u"SELECT 'held in ' || name FROM pragma_table_info('%1') WHERE type = 'TEXT' AND name NOT IN "
            "('Status', 'dStatus', 'FileLocation')"_s.arg(names.record));
        for (const QString& text : texts.split(u'|') + columns.split(u'\n', Qt::SkipEmptyParts))
            EXPECT_TRUE(page().toPlainText().contains(text)) << text.toStdString();
    }
    for (const char* text : {"MissionStatement", "Resources", "Training", "Other", "OrganizationChart"})
        EXPECT_TRUE(page().toPlainText().contains(u"held in "_s + QLatin1StringView(text))) << text;
}

TEST_F(DetailsJourney, FollowTheSelectionAndTheData)
{
    start();
    expectBegins(u"Select a record to see its details."_s);
    journey.select("Levees");
    expectBegins(u"Levees"_s);
    QTest::keyClick(&journey.list(), Qt::Key_A, Qt::ControlModifier);
    expectBegins(u"2 records are selected."_s);
    journey.select("Levees");
    expectBegins(u"Levees"_s);
    journey.database.run("UPDATE Document SET Author = 'B. Writer' WHERE DocumentID = 2");
    journey.trigger("mnuViewRefresh");
    EXPECT_TRUE(QTest::qWaitFor([this] { return page().toPlainText().contains(u"B. Writer"_s); }));

    // the end of a text that is too long is left out; 20,000 bytes end within a letter
    journey.database.run(
        "UPDATE Document SET Notes = 'x' || replace(hex(zeroblob(5001)), '00', 'é') || 'end'");
    journey.trigger("mnuViewRefresh");
    EXPECT_TRUE(QTest::qWaitFor([this] { return page().toPlainText().contains(u"éé"_s); }));
    EXPECT_TRUE(page().toPlainText().contains(u"éend"_s));
    journey.database.run("UPDATE Document SET Notes = replace(Notes, 'é', 'éé')");
    journey.trigger("mnuViewRefresh");
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return page().toPlainText().contains(u"é\n… View the record to read on."_s); }));
    EXPECT_FALSE(page().toPlainText().contains(u"end"_s));

    // text that is marked is copied, not the row
    page().setFocus();
    page().setTextCursor(page().document()->find(u"B. Writer"_s));
    QTest::keyClick(&page(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"B. Writer"_s);

    journey.trigger("mnuViewDetails");
    EXPECT_FALSE(page().isVisible());
    EXPECT_FALSE(journey.find<QAction>("mnuViewDetails").isChecked());
}

TEST_F(DetailsJourney, LeadToTheRecordsAndPagesThatARecordNames)
{
    start();
    journey.select("Levees");
    expectBegins(u"Levees"_s);
    click(u"Levee Board"_s);
    EXPECT_EQ(journey.viewPanel(), u"View Only Levee Board"_s);
    EXPECT_EQ(journey.selected(), "Levee Board");
    EXPECT_EQ(journey.column(0), "Levee Board");
    expectBegins(u"Levee Board"_s);
    journey.addDocuments(202);
    journey.database.run("UPDATE Document SET OrganizationID = 2 WHERE DocumentID > 1");
    journey.trigger("mnuViewRefresh");
    EXPECT_TRUE(QTest::qWaitFor([this] { return page().toPlainText().contains(u"… and 4 more."_s); }));
    click(u"Flood"_s);
    EXPECT_EQ(journey.viewPanel(), u"View Only Flood"_s);
    expectBegins(u"Flood"_s);

    journey.trigger("mnuNavigateBack");
    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(journey.viewPanel(), u"View ALL Documents"_s);
    EXPECT_EQ(journey.selected(), "Levees");
    expectBegins(u"Levees"_s);
    click(u"http://levees.example"_s);
    EXPECT_EQ(journey.desktop.shell.opened, QStringList{u"http://levees.example"_s});

    journey.desktop.shell.hasProgram = false;
    journey.desktop.messages.expectMessage(
        u"There is no program to open this address: http://levees.example"_s);
    click(u"http://levees.example"_s);
    journey.database.run("UPDATE Organization SET Status = 'DELETED'");
    journey.desktop.messages.expectMessage(u"This record was deleted."_s);
    click(u"Levee Board"_s);
    journey.desktop.messages.finish();
    EXPECT_EQ(journey.viewPanel(), u"View ALL Documents"_s);
}

TEST_F(DetailsJourney, ShowTheFileAndOpenIt)
{
    QImage image(30, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer bytes;
    image.save(&bytes, "PNG");
    const QString chart = journey.database.folder() + u"/data/orgcharts/2.png"_s;
    writeFile(chart, bytes.data());
    journey.database.run("INSERT INTO OrganizationProfile (OrganizationProfileID, OrganizationChart, "
                         "ChartOption) VALUES (2, '/charts/board.png', 1)");
    journey.desktop.programs = QStringLiteral(ORVIK_PROGRAMS);
    start("mnuViewOrganizations");
    auto& picture = journey.find<QLabel>("imgDetails");
    auto& open = journey.find<QPushButton>("cmdDetailsFile");
    journey.select("Watch");
    expectBegins(u"Watch"_s);
    EXPECT_FALSE(picture.isVisible());
    EXPECT_FALSE(open.isVisible());
    journey.select("Levee Board");
    EXPECT_TRUE(QTest::qWaitFor([&] { return picture.pixmap(Qt::ReturnByValue).size() == image.size(); }));
    EXPECT_EQ(picture.pixmap(Qt::ReturnByValue).toImage().pixelColor(3, 3), QColor(Qt::red));
    QTest::mouseClick(&open, Qt::LeftButton);
    EXPECT_EQ(journey.desktop.shell.opened, QStringList{chart});

    writeFile(chart, "damaged");
    journey.trigger("mnuViewRefresh");
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return picture.text() == u"The first page of this file cannot be shown.\nIt is damaged."_s; }));
    // an event has no file
    journey.trigger("mnuViewEvents");
    journey.select("Flood");
    expectBegins(u"Flood"_s);
    EXPECT_FALSE(picture.isVisible());
    EXPECT_FALSE(open.isVisible());
}

TEST_F(DetailsJourney, AreThereAgainInTheirWidth)
{
    const QString value = u"SOFTWARE/Tessary/Orvik Database/1.0/Window/Details"_s;
    journey.desktop.settings.values[value] = u"shown 0.300"_s;
    journey.start();
    journey.program->window()->resize(1280, 800);
    QTest::qWait(0);
    journey.trigger("mnuViewDocuments");
    EXPECT_NEAR(page().width(), 1280 * 0.3, 20);
    journey.trigger("mnuViewOrganizations");
    EXPECT_NEAR(page().width(), 1280 * 0.3, 20);
    EXPECT_TRUE(journey.find<QAction>("mnuViewDetails").isChecked());
    journey.desktop.messages.expectQuestion(u"Are you sure you want to exit?"_s, true, Question::Loss);
    journey.trigger("mnuViewDetails");
    journey.program->window()->close();
    EXPECT_TRUE(journey.desktop.settings.values[value].startsWith(u"hidden 0.30"_s))
        << journey.desktop.settings.values[value].toStdString();
}
