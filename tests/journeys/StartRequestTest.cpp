// SPDX-License-Identifier: GPL-3.0-or-later

// What the program does that a command line asks of it, in its own window or in that of another start.

#include "Journey.h"
#include "platform/StdREG.h"

namespace {

class StartRequests : public testing::Test
{
protected:
    StartRequests()
    {
        journey.database.run(
            "INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (12, 'Flood plan', 'ACTIVE'), "
            "(13, 'Gone', 'DELETED'), (14, 'Unsure', NULL);"
            "INSERT INTO Event (EventID, EventName, Status, StartDate, StartTime) VALUES (7, 'Flood', "
            "'ACTIVE', "
            "'2001-01-01', '10:00');"
            "INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES (3, 'Agency', "
            "'ACTIVE')");
    }

    /// Lets the program do what it was asked for, closes the dialog that this opens, and returns its title.
    static std::string titleOfDialog()
    {
        QString title;
        QTimer closer;
        QObject::connect(&closer, &QTimer::timeout, [&] {
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                title = dialog->windowTitle();
                dialog->close();
            }
        });
        closer.start(0);
        Journey::idle();
        return title.toStdString();
    }

    void call(const QStringList& arguments) { journey.desktop.otherWindows.called({arguments, {}}); }

    QString notice() { return journey.find<QLabel>("pnlNotice").text(); }
    QString path() const { return journey.dataFolder() + u"test.sqlite"_s; }

    Journey journey;
};

TEST_F(StartRequests, ASearchAndARecordAreShownInTheWindow)
{
    StartRequest request;
    request.keywords = u"flood"_s;
    journey.start(u"test.sqlite"_s, request);
    Journey::idle();
    EXPECT_EQ(journey.historyMenu(), "Home Page|[Search Results for \"flood\"]");
    EXPECT_EQ(journey.find<QLabel>("lblSummary").text().left(46),
              u"Your keyword search for \"flood\" found 2 items."_s);

    journey.desktop.messages.expectMessage(u"Search Limited to 4 Keywords. First 4 Keywords used."_s);
    call({u"--search=a b c d e"_s});
    Journey::idle();
    journey.desktop.messages.finish();

    const std::tuple<const char*, const char*, const char*, const char*> records[] = {
        {"document:12", "View ALL Documents", "Flood plan", "Viewing DocumentID 12 (Read-Only)"},
        {"event:7", "View ALL Events", "Flood", "Viewing EventID 7 (Read-Only)"},
        {"organization:3", "View ALL Organizations", "Agency", "Viewing Organization 3 (Read-Only)"}};
    for (const auto& [record, view, name, title] : records) {
        call({u"--show"_s, QString::fromLatin1(record)});
        EXPECT_EQ(titleOfDialog(), title);
        EXPECT_EQ(journey.viewPanel().toStdString(), view);
        EXPECT_EQ(journey.selected(), name);
    }
}

TEST_F(StartRequests, ARecordThatNoListHasIsNoneToShow)
{
    journey.start();
    for (const int document : {1, 13, 14, 99}) {
        journey.desktop.messages.expectMessage(
            u"There is no document %1, or it was deleted."_s.arg(document));
        call({u"--show=document:%1"_s.arg(document)});
        EXPECT_EQ(titleOfDialog(), "");
        journey.desktop.messages.finish();
    }
    EXPECT_EQ(journey.historyMenu(), "[Home Page]");
}

TEST_F(StartRequests, WhatIsAskedForWaitsForADialogAndIsNotLost)
{
    journey.start();
    inDialog(
        "frmDocument", [this] { journey.trigger("mnuRecordAddNewDocument"); },
        [this](OpenDialog& dialog) {
            dialog.type("txtDocumentName", u"Half-typed"_s);
            call({u"--search=flood"_s});
            call({u"--show=event:7"_s});
            Journey::idle();
            EXPECT_EQ(journey.viewPanel(), u"Home Page"_s);
            EXPECT_EQ(notice(), u"The record asked for is shown when the dialog is closed."_s);
            EXPECT_EQ(dialog.text("txtDocumentName"), "Half-typed");
            discard(dialog, journey.desktop.messages);
        });
    EXPECT_EQ(titleOfDialog(), "Viewing EventID 7 (Read-Only)");
    EXPECT_EQ(journey.historyMenu(), "Home Page|Search Results for \"flood\"|[View ALL Events]");
    EXPECT_EQ(notice(), QString());

    // the search dialog lets its caller go on
    journey.trigger("mnuSearchKeyword");
    call({u"--show=document:12"_s});
    Journey::idle();
    EXPECT_EQ(journey.viewPanel(), u"View ALL Events"_s);
    journey.find<QDialog>("frmSearch").close();
    EXPECT_EQ(titleOfDialog(), "Viewing DocumentID 12 (Read-Only)");
    journey.trigger("mnuViewEvents");

    call({u"nonsense"_s, u"--what"_s});
    Journey::idle();
    EXPECT_EQ(journey.viewPanel(), u"View ALL Events"_s);
}

TEST_F(StartRequests, AFileIsOpenedInPlaceOfTheOneOfTheSettings)
{
    StartRequest request;
    request.path = journey.database.folder();
    QFile::link(journey.database.fileName(), path());
    journey.start(u"missing.sqlite"_s, request);
    EXPECT_EQ(journey.program->state().session.fileName(), path());
    EXPECT_EQ(StdREG(journey.desktop.settings).GetRegString({}, u"DBFile"_s), u"test.sqlite"_s);
    EXPECT_EQ(journey.desktop.otherWindows.listenedTo, path());

    Journey second;
    request.path = second.database.folder() + u"/gone"_s;
    second.desktop.messages.expectMessage(
        u"Form_Load Error (2): There is no such file or folder. (%1)"_s.arg(request.path));
    second.start(u"test.sqlite"_s, request);
    EXPECT_FALSE(second.program->state().session.isOpen());
    EXPECT_EQ(StdREG(second.desktop.settings).GetRegString({}, u"DBFile"_s), u"test.sqlite"_s);
}

TEST_F(StartRequests, AReadOnlyStartChangesNothing)
{
    const QByteArray before = journey.database.bytes();
    ASSERT_TRUE(QFile::setPermissions(journey.database.fileName(), QFile::ReadOwner));
    StartRequest request;
    request.readOnly = true;
    journey.start(u"test.sqlite"_s, request);
    Journey::idle();
    EXPECT_FALSE(QFile::permissions(journey.database.fileName()) & QFile::WriteOwner);
    EXPECT_EQ(journey.program->window()->windowTitle(), u"Home Page - test.sqlite [read-only]"_s);
    const QAction& add = journey.find<QAction>("mnuRecordAddNewDocument");
    EXPECT_FALSE(add.isEnabled());
    EXPECT_TRUE(add.toolTip().endsWith(u"The database can be read, but not changed."_s));
    EXPECT_TRUE(QFile::setPermissions(journey.database.fileName(), QFile::ReadOwner | QFile::WriteOwner));
    EXPECT_EQ(errorNumberOf([&] { journey.program->state().session.execute(u"DELETE FROM Venue"_s); }), 8);
    EXPECT_TRUE(journey.database.bytes() == before);

    journey.desktop.messages.expectMessage(
        u"The database is open in this window already, read-only. To change it, "
        "close this window and open the database again."_s);
    call({});
    Journey::idle();
    journey.desktop.messages.finish();
    // it holds for this start alone
    journey.desktop.fileDialogs.files = {path()};
    journey.trigger("mnuOpenDatabase");
    EXPECT_EQ(journey.program->window()->windowTitle(), u"Home Page - test.sqlite"_s);
    journey.desktop.messages.expectMessage(
        u"The database is open in this window already, where it can be changed. To "
        "open it read-only, close this window first."_s);
    call({u"--read-only"_s});
    Journey::idle();
}

TEST_F(StartRequests, ADatabaseHasOneWindow)
{
    TestDatabase other;
    journey.start();
    journey.trigger("mnuViewEvents");
    ScriptedOtherWindows& windows = journey.desktop.otherWindows;
    EXPECT_EQ(windows.listenedTo, path());
    windows.open = QStringList(other.fileName());
    journey.desktop.fileDialogs.files = {other.fileName()};
    journey.trigger("mnuOpenDatabase");
    EXPECT_EQ(windows.calls, std::vector<WindowCall>(1)) << "that window comes to the front";
    EXPECT_EQ(journey.viewPanel(), u"View ALL Events"_s);
    EXPECT_EQ(windows.listenedTo, path());

    StartRequest request;
    request.path = other.fileName();
    request.keywords = u"flood"_s;
    ASSERT_TRUE(journey.program->handOver(request, u"token"_s));
    EXPECT_EQ(windows.calls.back(), (WindowCall{{u"--search=flood"_s, u"--"_s, request.path}, u"token"_s}));
    windows.open.clear();
    EXPECT_FALSE(journey.program->handOver({}, {})) << "nobody has it open";

    journey.program->window()->showMinimized();
    call({});
    EXPECT_FALSE(journey.program->window()->isMinimized());
}

TEST_F(StartRequests, ChangesFromOutsideAreShownAndTold)
{
    journey.start();
    journey.trigger("mnuViewEvents");
    EXPECT_EQ(notice(), QString());
    journey.database.run("INSERT INTO Event (EventID, EventName, Status, StartDate, EndDate) "
                         "VALUES (8, 'Later', 'ACTIVE', '2010-01-01', '2010-01-02')");
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(journey.column(0), "Flood|Later");
    EXPECT_EQ(notice(), u"The database was changed by another program."_s);
    journey.find<QToolButton>("NavEnd").click();
    EXPECT_EQ(journey.find<QLabel>("uCurrentTimeLabel(0)").text().left(10), u"01/02/2010"_s)
        << "its end is later";

    // told once; and the program's own changes are none from outside
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(notice(), QString());
    journey.select("Flood");
    journey.desktop.messages.expectQuestion(u"Are you sure you want to delete the Event \"Flood\"?"_s, true,
                                            Question::Loss);
    journey.desktop.messages.expectMessage(u"Event ID 7 successfully deleted."_s);
    journey.trigger("mnuRecordDelete");
    EXPECT_EQ(journey.column(0), "Later");
    EXPECT_EQ(notice(), QString());
    journey.database.run("UPDATE Event SET Status = 'DELETED' WHERE EventID = 8");
    journey.trigger("mnuNavigateHome");
    EXPECT_EQ(notice(), u"The database was changed by another program."_s);
}

} // namespace
