// SPDX-License-Identifier: GPL-3.0-or-later

#include "EditorJourney.h"
#include "map/MapView.h"
#include "support/AsPlainUser.h"

#include <sys/stat.h>

namespace {

/// What other programs and the file system do to the database while the program runs.
class Faults : public EditorJourney
{
protected:
    Faults() : EditorJourney("frmEvent", "journeys/rows/Faults.sql") {}

    void chooseFirst(const char* view)
    {
        journey.trigger(view);
        choose(0);
    }

    [[nodiscard]] bool isEnabled(const char* command) { return journey.find<QAction>(command).isEnabled(); }
};

TEST_F(Faults, ALockedDatabaseIsToldOfOnceForEachCommand)
{
    journey.start();
    struct Case
    {
        const char* view;
        const char* command;
        const char* procedure;
        const char* question = nullptr;
    };
    const Case cases[] = {
        {"mnuViewDocuments", "mnuRecordEdit", "fillList"},
        {"mnuViewDocuments", "mnuRecordAddNewDocument", "fillList"},
        {"mnuViewDocuments", "mnuRecordDelete", "deleteDocument",
         "Are you sure you want to delete the Document \"Plan\"?"},
        {"mnuViewEvents", "mnuRecordView", "populateFields"},
        {"mnuViewEvents", "mnuViewEvents", "showEvents"},
        {"mnuViewOrganizations", "mnuRecordView", "fillList"},
        {"mnuViewOrganizations", "mnuRecordAddNewOrganization", "fillList"},
        {"mnuViewOrganizations", "mnuViewRefresh", "showOrganizations"},
    };
    for (const Case& entry : cases) {
        SCOPED_TRACE(entry.command);
        chooseFirst(entry.view);
        SQLite::Database other(journey.database.fileName().toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN EXCLUSIVE");
        if (entry.question != nullptr) {
            messages().expectQuestion(QString::fromUtf8(entry.question), true, Question::Loss);
        }
        messages().expectMessage(
            u"%1 Error (5): database is locked"_s.arg(QString::fromUtf8(entry.procedure)));
        journey.trigger(entry.command);
        messages().finish();
    }
    chooseFirst("mnuViewOrganizations");
    journey.inDialog("frmOrganization", "mnuRecordView", [](OpenDialog& dialog) {
        EXPECT_EQ(dialog.text("txtOrganizationName"), "Agency");
        dialog.click("cmdCancel");
    });
}

TEST_F(Faults, AFailingStatementIsReportedOnceAndLeavesAnEmptyListAndMap)
{
    journey.start();
    const auto& queries = journey.program->state().queries;
    const struct
    {
        ViewKind kind;
        std::shared_ptr<const SQLObject> query;
        const char* procedure;
        const char* command;
    } cases[] = {
        {ViewKind::Documents, queries.documents, "showDocuments", "mnuViewDocuments"},
        {ViewKind::Events, queries.events, "showEvents", "mnuViewEvents"},
        {ViewKind::Organizations, queries.organizations, "showOrganizations", "mnuViewOrganizations"},
    };
    for (const auto& [kind, query, procedure, command] : cases) {
        journey.trigger(command);
        SQLObject broken = *query;
        broken.WhereClause += u" AND NoSuchColumn = 1"_s;
        messages().expectMessage(
            u"%1 Error (1): no such column: NoSuchColumn"_s.arg(QLatin1StringView(procedure)));
        journey.program->state().history.addView(
            {kind, std::make_shared<const SQLObject>(broken), u"Broken"_s});
        messages().finish();
        EXPECT_EQ(journey.viewPanel(), u"Broken"_s);
        EXPECT_EQ(journey.column(0), "") << procedure;
    }
    EXPECT_EQ(journey.find<MapView>("Map1").accessibleItemCount(), 0);
    journey.trigger("mnuViewOrganizations");
    EXPECT_EQ(journey.column(0), "Agency");
    EXPECT_EQ(journey.find<MapView>("Map1").accessibleItemCount(), 1);
}

TEST_F(Faults, AReadOnlyFolderIsToldOfAtStartUpAndNothingOffersToChange)
{
    journey.database.run("UPDATE Document SET dStatus = 'DELETED'");
    QFile::link(journey.database.fileName(), journey.dataFolder() + u"test.sqlite"_s);
    const std::string folder = journey.database.folder().toStdString();
    ASSERT_EQ(chmod(journey.database.fileName().toStdString().c_str(), 0666), 0);
    ASSERT_EQ(chmod(folder.c_str(), 0555), 0);
    {
        const AsPlainUser plainUser;
        messages().expectMessage(
            u"Form_Load Error (8): The database can be read, but not changed: its folder is "
            "read-only. (%1)"_s.arg(journey.database.folder()));
        journey.start(u"test.sqlite"_s);
        messages().finish();
        chooseFirst("mnuViewEvents");
        EXPECT_EQ(journey.column(0), "Flood");
        for (const char* command : {"mnuRecordAddNewEvent", "mnuRecordEdit", "mnuRecordDelete"}) {
            EXPECT_FALSE(isEnabled(command)) << command;
            EXPECT_TRUE(journey.find<QAction>(command).toolTip().endsWith(
                u"\nThe database can be read, but not changed."_s));
        }
        journey.inDialog("frmLists", "mnuRecordLists", [](OpenDialog& lists) {
            for (const char* button : {"cmdAdd", "cmdRename", "cmdMerge", "cmdDelete"}) {
                EXPECT_FALSE(lists.find<QPushButton>(button).isEnabled()) << button;
                EXPECT_TRUE(lists.find<QPushButton>(button).toolTip().endsWith(
                    u"\nThe database can be read, but not changed."_s));
            }
            lists.click("cmdClose");
        });
        EXPECT_TRUE(isEnabled("mnuRecordView"));
        inEditor("mnuRecordView", [](OpenDialog& dialog) {
            EXPECT_FALSE(dialog.find<QPushButton>("cmdOK").isEnabled());
            dialog.click("cmdCancel");
        });
        journey.trigger("mnuViewDocuments");
        EXPECT_EQ(journey.find<QLabel>("lblEmptyResult").text(),
                  u"There are no documents yet.\nThe database can be read, but not changed."_s);
        EXPECT_FALSE(journey.find<QWidget>("lblSearchAgain").isVisible());
    }
    ASSERT_EQ(chmod(folder.c_str(), 0755), 0);
    chooseFirst("mnuViewEvents");
    EXPECT_TRUE(isEnabled("mnuRecordEdit"));
}

TEST_F(Faults, AProgramFolderThatCannotBeMadeIsToldOfOnce)
{
    const QString root = journey.database.fileName() + u"/below/orvik"_s;
    messages().expectMessageBeginning(u"Sub Main Error ("_s);
    journey.program.emplace(journey.desktop.platform(), *journey.converter, ProgramFolder(root), QString());
    journey.program->Main();
    messages().finish();
    EXPECT_TRUE(journey.program->window()->isVisible());
    EXPECT_FALSE(isEnabled("mnuRecordLists"));
    messages().expectMessage(u"showDocuments Error (21): No database is open."_s);
    journey.trigger("mnuViewDocuments");
}

/// What happens to the file while its user types, until it is over.
struct Fault
{
    const char* name;
    std::function<void()> begin;
    std::function<void()> end;
    QString error; ///< of a save meanwhile
};

TEST_F(Faults, WhatWasTypedStaysUntilItCanBeSaved)
{
    const QString file = journey.dataFolder() + u"test.sqlite"_s;
    const QString data = journey.dataFolder().chopped(1);
    QDir().mkpath(data);
    QFile::copy(journey.database.fileName(), file);
    ASSERT_EQ(chmod(qPrintable(file), 0666), 0);
    for (const QString& folder : {journey.database.folder(), data})
        ASSERT_EQ(chmod(qPrintable(folder), 0777), 0);
    constexpr uid_t plain = 65534; // who may then change its rights
    ASSERT_EQ(geteuid() == 0 ? chown(qPrintable(data), plain, plain) : 0, 0);
    std::optional<SQLite::Database> other;
    const auto move = [&] { QDir().rename(data, data + u".moved"_s); };
    const auto moveBack = [&] {
        QDir().rmdir(data);
        QDir().rename(data + u".moved"_s, data);
    };
    const auto lock = [&](const char* how) {
        return [&other, file, how] { other.emplace(file.toStdString(), SQLite::OPEN_READWRITE).exec(how); };
    };
    const auto unlock = [&other] { other.reset(); };
    const QString gone = u"(8): The database was moved or deleted while it was open. (%1)"_s.arg(file);
    const QString readOnly =
        u"(8): The database cannot be changed: its folder is read-only. (%1)"_s.arg(data);
    const Fault faults[] = {
        {"another program writes", lock("BEGIN IMMEDIATE"), unlock, u"(5): database is locked"_s},
        {"another program keeps all others out", lock("BEGIN EXCLUSIVE"), unlock,
         u"(5): database is locked"_s},
        {"its folder was renamed", move, moveBack, gone},
        {"its disk was unmounted",
         [&] {
             move();
             QDir().mkpath(data);
         },
         moveBack, gone},
        {"its folder became read-only", [&] { chmod(qPrintable(data), 0555); },
         [&] { chmod(qPrintable(data), 0777); }, readOnly},
    };
    const AsPlainUser plainUser;
    journey.start(u"test.sqlite"_s);
    chooseFirst("mnuViewEvents");
    for (const Fault& fault : faults) {
        SCOPED_TRACE(fault.name);
        const QString title = QString::fromUtf8(fault.name);
        inEditor("mnuRecordEdit", [&](OpenDialog& dialog) {
            dialog.type("txtEventName", title);
            fault.begin();
            messages().expectMessage(u"updateEvent Error "_s + fault.error);
            dialog.click("cmdOK");
            messages().finish();
            EXPECT_EQ(dialog.text("txtEventName"), fault.name);
            fault.end();
            dialog.click("cmdOK");
        });
        EXPECT_EQ(journey.column(0), fault.name);
        EXPECT_EQ(TestDatabase::answer(file, u"SELECT EventName FROM Event WHERE EventID = 2"_s), title);
    }
}

TEST_F(Faults, ADatabaseThatWasMovedIsToldOfInEachView)
{
    const QString moved = journey.database.fileName() + u".moved"_s;
    journey.start();
    chooseFirst("mnuViewEvents");
    ASSERT_TRUE(QFile::rename(journey.database.fileName(), moved));
    const QString gone = u"The database was moved or deleted while it was open."_s;
    chooseFirst("mnuViewOrganizations");
    EXPECT_EQ(journey.column(0), "Agency");
    EXPECT_EQ(journey.find<QLabel>("pnlNotice").text(), gone);
    EXPECT_FALSE(isEnabled("mnuRecordEdit"));
    EXPECT_TRUE(journey.find<QAction>("mnuRecordEdit").toolTip().endsWith(u'\n' + gone));
    ASSERT_TRUE(QFile::rename(moved, journey.database.fileName()));
    chooseFirst("mnuViewEvents");
    EXPECT_TRUE(isEnabled("mnuRecordEdit"));
}

TEST_F(Faults, StepsAreTakenBackInTheirOrderWhenTheClockWasSetBack)
{
    journey.start();
    chooseFirst("mnuViewEvents");
    for (const char* title : {"First", "Second"}) {
        inEditor("mnuRecordEdit", [&](OpenDialog& dialog) {
            dialog.type("txtEventName", QString::fromUtf8(title));
            dialog.click("cmdOK");
        });
        journey.desktop.clock.moment = journey.desktop.clock.moment.addYears(-1);
    }
    {
        SQLite::Database other(journey.database.fileName().toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN EXCLUSIVE");
        messages().expectMessage(u"undo Error (5): database is locked"_s);
        journey.trigger("mnuRecordUndo");
        messages().finish();
    }
    for (const char* title : {"First", "Flood"}) {
        journey.trigger("mnuRecordUndo");
        EXPECT_EQ(journey.column(0), title);
    }
}

} // namespace
