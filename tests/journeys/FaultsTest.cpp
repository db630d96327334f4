// SPDX-License-Identifier: GPL-3.0-or-later

#include "EditorJourney.h"
#include "map/MapView.h"
#include "support/AsPlainUser.h"

#include <QPushButton>
#include <QTest>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

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

} // namespace
