// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "map/MapView.h"
#include "opening/RecentDatabases.h"
#include "platform/StdREG.h"

namespace {

/// The program with a folder of its own that holds no database, and with a sample installed.
class NewDatabase : public ::testing::Test
{
protected:
    NewDatabase()
    {
        journey.database.run("INSERT INTO Venue VALUES (1, 'None'), (2, 'Harbour');"
                             "INSERT INTO FileTypes VALUES (1, 'None'), (2, 'Adobe PDF');"
                             "INSERT INTO Document (DocumentID, DocumentName, dStatus) "
                             "VALUES (1, 'None', 'ACTIVE'), (2, 'Atlas', 'ACTIVE')");
        writeFile(sample + u"/data/first.sqlite"_s, journey.database.bytes());
        QDir().mkpath(home);
    }

    void start()
    {
        journey.program.emplace(journey.desktop.platform(), *journey.converter, ProgramFolder(home, sample),
                                sample);
        journey.program->Main();
        journey.desktop.messages.finish();
        journey.program->window()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(journey.program->window()));
    }

    void startWithoutDatabase()
    {
        journey.desktop.messages.expectMessage(
            u"Form_Load Error (14): unable to open database file (%1/data/)"_s.arg(home));
        start();
    }

    QAbstractButton& button(const char* name) { return journey.find<QAbstractButton>(name); }
    QString open() { return journey.program->state().session.fileName(); }

    QString setting() { return StdREG(journey.desktop.settings).GetRegString(QString(), u"DBFile"_s); }

    /// The entries of the menu as it opens now, joined by `|`; the one that is open in brackets.
    std::string recentMenu()
    {
        Q_EMIT journey.find<QMenu>("mnuNavigate").aboutToShow();
        QStringList entries;
        for (const QAction* entry : journey.find<QMenu>("mnuRecentDatabases").actions())
            entries << (entry->isChecked() ? u'[' + entry->text() + u']' : entry->text());
        return entries.join(u'|').toStdString();
    }

    /// The links of the home page that are shown, joined by `|`.
    std::string links()
    {
        QTest::qWait(0); // what is replaced goes when the events are handled
        QStringList shown;
        for (int i = 0; i < RecentDatabases::limit; ++i) {
            const auto* link =
                journey.program->window()->findChild<QAbstractButton*>(u"lblRecent(%1)"_s.arg(i));
            if (link != nullptr && link->isVisible()) shown << link->text();
        }
        return shown.join(u'|').toStdString();
    }

    void addOpening()
    {
        journey.inDialog("frmEvent", "mnuRecordAddNewEvent", [](OpenDialog& editor) {
            editor.type("txtEventName", u"Opening"_s);
            editor.type("rtbEventDescription", u"Crossed for the first time"_s);
            editor.type("dtpStartDate", u"05/24/1883"_s);
            editor.tick("lvVenues", u"Arches hall"_s);
            editor.click("cmdOK");
        });
    }

    void addBridgeWorks()
    {
        journey.inDialog("frmOrganization", "mnuRecordAddNewOrganization", [](OpenDialog& editor) {
            editor.type("txtOrganizationName", u"Bridge Works"_s);
            editor.type("txtCity", u"Brooklyn"_s);
            editor.choose("cmbState", u"NY"_s);
            editor.inDialog("frmListEntry", "cmdNewCity", [](OpenDialog& city) {
                city.type("txtLatitude", u"40.7"_s);
                city.type("txtLongitude", u"-74"_s);
                city.click("cmdOK");
            });
            editor.click("cmdOK");
        });
    }

    Journey journey;
    const QString place = journey.database.folder();
    const QString home = place + u"/home"_s;
    const QString sample = place + u"/sample"_s;
};

TEST_F(NewDatabase, IsBegunFromTheHomePageAndTakesItsFirstDocument)
{
    writeFile(place + u"/scan.pdf"_s, "paper");
    writeFile(place + u"/papers/taken/x"_s);
    startWithoutDatabase();
    EXPECT_TRUE(button("cmdNew").isVisible());
    EXPECT_EQ(recentMenu() + links(), "");
    EXPECT_FALSE(journey.find<QMenu>("mnuRecentDatabases").isEnabled());

    journey.desktop.fileDialogs.folders = {QString(), place + u"/papers"_s};
    inDialog(
        "frmNewDatabase", [&] { button("cmdNew").click(); },
        [&](OpenDialog& dialog) {
            const auto expect = [&dialog](const char* text, bool canBeMade) {
                EXPECT_EQ(dialog.find<QLabel>("lblFolder").text().remove(QChar(0x200B)).toStdString(), text);
                EXPECT_EQ(dialog.find<QAbstractButton>("cmdOK").isEnabled(), canBeMade);
            };
            expect("The collection needs a name.", false);
            dialog.type("txtName", u"Taken"_s);
            expect(u"The folder %1/Taken will be made."_s.arg(home).toUtf8(), true);
            dialog.click("cmdPlace");
            dialog.click("cmdPlace");
            expect("This name is taken: the place has a file or folder called so.", false);
            dialog.press(Qt::Key_Return);
            dialog.type("txtName", u" Mine "_s);
            dialog.click("optLists(1)");
            dialog.press(Qt::Key_Return);
        });
    EXPECT_EQ(journey.desktop.fileDialogs.starts, (QStringList{home, home}));
    const QString data = place + u"/papers/Mine/data/"_s;
    EXPECT_EQ(open(), data + u"Mine.sqlite"_s);
    EXPECT_EQ(setting(), open());
    EXPECT_FALSE(button("cmdNew").isVisible());
    EXPECT_EQ(recentMenu(), "[&1 Mine]");

    journey.inDialog("frmDocument", "mnuRecordAddNewDocument", [&](OpenDialog& dialog) {
        EXPECT_EQ(dialog.text("lvVenues"), "None|Harbour");
        dialog.type("txtDocumentName", u"Levees"_s);
        dialog.type("rtbDocumentDescription", u"About levees"_s);
        dialog.type("txtOriginalFilename", place + u"/scan.pdf"_s);
        dialog.click("cmdOK");
    });
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(journey.column(0), "Levees");
    EXPECT_EQ(contentOf(data + u"documents/2.pdf"_s), "paper");
}

TEST_F(NewDatabase, TwoCollectionsKeepTheirOwnListsAndFilesAndBearToBeCopied)
{
    // the map comes with the program
    ASSERT_TRUE(QDir().rename(journey.mapsFolder(), sample + u"/data/maps"_s));
    startWithoutDatabase();
    const auto begin = [&](const QString& name) {
        journey.inDialog("frmNewDatabase", "mnuNewDatabase", [&](OpenDialog& dialog) {
            dialog.type("txtName", name);
            dialog.click("cmdOK");
        });
    };
    const auto addDocument = [&](const QString& title) {
        writeFile(place + u"/scan.pdf"_s, title.toUtf8());
        journey.inDialog("frmDocument", "mnuRecordAddNewDocument", [&](OpenDialog& editor) {
            editor.type("txtDocumentName", title);
            editor.type("rtbDocumentDescription", u"As it is"_s);
            editor.type("txtOriginalFilename", place + u"/scan.pdf"_s);
            addEntry(editor, "cmdNewDocType", title + u" papers"_s);
            addEntry(editor, "cmdNewVenue", title + u" hall"_s);
            editor.click("cmdOK");
        });
        journey.trigger("mnuViewDocuments");
        EXPECT_EQ(journey.column(0), title.toStdString());
    };
    const auto openedFile = [&](const QString& title) {
        journey.trigger("mnuViewDocuments");
        journey.select(title.toUtf8().constData());
        journey.trigger("mnuRecordOpen");
        return contentOf(journey.desktop.shell.opened.takeFirst());
    };

    begin(u"Bridges"_s);
    addDocument(u"Arches"_s);
    addOpening();
    journey.trigger("mnuViewOrganizations");
    EXPECT_EQ(journey.find<MapView>("Map1").accessibleItemCount(), 0);
    addBridgeWorks();
    EXPECT_EQ(journey.find<MapView>("Map1").accessibleItemCount(), 1) << "it is on the map";
    journey.trigger("mnuViewEvents");
    EXPECT_EQ(journey.column(0), "Opening");

    begin(u"Rivers"_s);
    addDocument(u"Floods"_s);
    EXPECT_EQ(openedFile(u"Floods"_s), "Floods");
    journey.trigger("mnuRecentDatabases(1)");
    EXPECT_EQ(openedFile(u"Arches"_s), "Arches") << "both are the document 2 of their collection";

    // copies of the folders are collections of their own
    for (const auto& [name, title] : {std::pair(u"Bridges"_s, u"Arches"_s), {u"Rivers"_s, u"Floods"_s}}) {
        const QString copy = place + u"/disk/"_s + name;
        ASSERT_TRUE(QDir().mkpath(place + u"/disk"_s));
        ASSERT_EQ(QProcess::execute(u"cp"_s, {u"-r"_s, home + u'/' + name, copy}), 0);
        ASSERT_TRUE(QDir(home + u'/' + name).removeRecursively());
        const QString database = copy + u"/data/"_s + name + u".sqlite"_s;
        journey.desktop.fileDialogs.files = {database};
        journey.trigger("mnuOpenDatabase");
        EXPECT_EQ(open(), database) << "it is opened where it is";
        EXPECT_EQ(openedFile(title).toStdString(), title.toStdString());
    }
}

TEST_F(NewDatabase, KeepsWhatWasTypedIfItCannotBeMade)
{
    writeFile(sample + u"/data/first.sqlite"_s, "no database");
    startWithoutDatabase();
    journey.inDialog("frmNewDatabase", "mnuNewDatabase", [&](OpenDialog& dialog) {
        dialog.type("txtName", u"Mine"_s);
        dialog.click("optLists(1)");
        journey.desktop.messages.expectMessageBeginning(u"newDatabase Error (26): "_s);
        dialog.click("cmdOK");
        journey.desktop.messages.finish();
        EXPECT_EQ(dialog.text("txtName"), "Mine");
        dialog.press(Qt::Key_Escape);
    });
    EXPECT_EQ(open(), QString());
    EXPECT_FALSE(QDir(home).entryList().contains(u"Mine"_s));
}

TEST_F(NewDatabase, TheSampleIsMadeOnceAndOpenedAgain)
{
    startWithoutDatabase();
    button("cmdSample").click();
    EXPECT_EQ(setting(), u"../Sample/data/first.sqlite"_s);
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(journey.column(0), "Atlas");

    journey.program.reset();
    StdREG(journey.desktop.settings).WriteRegString(QString(), u"DBFile"_s, QString());
    QFile::remove(sample + u"/data/first.sqlite"_s);
    startWithoutDatabase();
    journey.inDialog("frmNewDatabase", "mnuNewDatabase", [](OpenDialog& dialog) {
        EXPECT_FALSE(dialog.find<QWidget>("optLists(1)").isEnabled());
        dialog.click("cmdSample");
    });
    EXPECT_EQ(open(), home + u"/Sample/data/first.sqlite"_s);
}

TEST_F(NewDatabase, RecentOnesAreAChoiceAwayAndMissingOnesCanBeForgotten)
{
    writeFile(home + u"/data/mine.sqlite"_s, journey.database.bytes());
    writeFile(home + u"/R&D/data/R&D.sqlite"_s, journey.database.bytes());
    writeFile(home + u"/broken.sqlite"_s, "no database");
    RecentDatabases recent(journey.desktop.settings);
    for (const QString& name :
         {place + u"/mine.sqlite"_s, u"../broken.sqlite"_s, u"../R&D/data/R&D.sqlite"_s})
        recent.add(name);
    journey.desktop.setDatabase(u"mine.sqlite"_s);
    start();
    const std::string mine = "mine (in " + home.toStdString() + "/data)";
    const std::string gone = "mine (in " + place.toStdString() + ")";
    const auto shortened = [&](const std::string& caption) {
        const QMenu& menu = journey.find<QMenu>("mnuRecentDatabases");
        return menu.fontMetrics()
            .elidedText(QString::fromStdString(caption), Qt::ElideMiddle, 400)
            .toStdString();
    };
    EXPECT_EQ(recentMenu(), "[&1 " + shortened(mine) + "]|&2 R&&D|&3 broken|&4 " + shortened(gone));
    EXPECT_EQ(links(), "R&D|broken|" + gone);

    journey.trigger("mnuViewDocuments");
    journey.trigger("mnuRecentDatabases(1)");
    EXPECT_EQ(open(), home + u"/R&D/data/R&D.sqlite"_s);
    EXPECT_EQ(journey.historyMenu(), "[Home Page]");
    EXPECT_EQ(links(), mine + "|broken|" + gone);
    button("lblRecent(0)").setFocus();
    QTest::keyClick(&button("lblRecent(0)"), Qt::Key_Return);
    EXPECT_EQ(setting(), u"mine.sqlite"_s);

    // one that cannot be opened leaves the other open
    EXPECT_EQ(links(), "R&D|broken|" + gone);
    journey.desktop.messages.expectMessageBeginning(u"openDatabase Error (26): "_s);
    button("lblRecent(1)").click();
    EXPECT_EQ(setting(), u"mine.sqlite"_s);

    const QString question =
        u"%1/mine.sqlite is not there any more.\n\nDo you want to remove it from the list "
        "of recent databases?"_s.arg(place);
    journey.desktop.messages.expectQuestion(question, false);
    button("lblRecent(2)").click();
    EXPECT_EQ(links(), "R&D|broken|" + gone);
    journey.desktop.messages.expectQuestion(question, true);
    journey.trigger("mnuRecentDatabases(3)");
    EXPECT_EQ(links(), "R&D|broken");
    EXPECT_EQ(recentMenu(), "[&1 mine]|&2 R&&D|&3 broken");
}

} // namespace
