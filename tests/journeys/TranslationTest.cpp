// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "PseudoLocale.h"
#include "app/frmSplash.h"
#include "browse/home/HomePage.h"
#include "files/FolderList.h"
#include "lists/ListKind.h"
#include "map/frmPosition.h"
#include "opening/frmImport.h"
#include "platform/StdREG.h"
#include "platform/frmProgress.h"

namespace {

/// The program with every text of the template transformed, on a database with records of all kinds.
class Translation : public testing::Test
{
protected:
    Translation() : pseudo(QStringLiteral(ORVIK_TRANSLATION_TEMPLATE))
    {
        journey.database.runFile("journeys/rows/Translation.sql");
        QDir(journey.mapsFolder()).removeRecursively(); // for its message
        journey.desktop.messages.heard.emplace();
        journey.start();
        window().resize(1280, 800);
        for (const char* word : {"Atlas", "Brief",  "Flood", "Storm",  "Bureau", "Agency", "River",
                                 "Coast", "Report", "PDF",   "Rescue", "Austin", "TX",     "None",
                                 "test",  "sqlite", "data",  "maps",   "states", "drawMap"})
            pseudo.allow(QString::fromUtf8(word));
        pseudo.allow(journey.database.folder() + u"/backups"_s);
    }

    ~Translation() override
    {
        for (const QString& text : heard())
            pseudo.expectTranslated(text, "a message");
    }

    QWidget& window() { return *journey.program->window(); }
    const QStringList& heard() { return *journey.desktop.messages.heard; }

    void lookAt(const char* command)
    {
        journey.trigger(command);
        QTest::qWait(50);
        pseudo.expectTranslated(window(), command);
    }

    void lookAtDialog(const char* name, const char* command)
    {
        journey.inDialog(name, command, [&](OpenDialog& open) {
            lookAtPages(open.dialog(), command);
            open.press(Qt::Key_Escape);
        });
    }

    /// Looks at a dialog with each of its pages in front.
    void lookAtPages(QWidget& dialog, const char* where)
    {
        auto* tabs = dialog.findChild<QTabWidget*>();
        for (int page = 0; page < (tabs == nullptr ? 1 : tabs->count()); ++page) {
            if (tabs != nullptr) tabs->setCurrentIndex(page);
            QTest::qWait(50);
            pseudo.expectTranslated(dialog, where);
        }
    }

    void selectRow(int row)
    {
        journey.list().setCurrentIndex(journey.list().model()->index(row, 0));
        QTest::qWait(0);
    }

    PseudoLocale pseudo;
    Journey journey;
};

TEST_F(Translation, ReachesEveryTextOfTheMainWindow)
{
    pseudo.expectTranslated(window(), "home page");
    journey.trigger("mnuViewDocuments");
    journey.trigger("mnuViewDetails");
    for (const char* view : {"mnuViewDocuments", "mnuViewEvents", "mnuViewOrganizations"}) {
        lookAt(view);
        selectRow(0);
        pseudo.expectTranslated(window(), view);
        journey.trigger("mnuRecordOpen");
        journey.trigger("mnuRecordDelete");
        journey.list().selectAll();
        QTest::qWait(0);
        pseudo.expectTranslated(window(), view);
        journey.trigger("mnuRecordDelete");
    }
    for (const auto& [view, command] : {std::pair("mnuViewDocuments", "popDocListViewEvents"),
                                        std::pair("mnuViewDocuments", "popDocListViewOrgs"),
                                        std::pair("mnuViewEvents", "popEventListViewDocs"),
                                        std::pair("mnuViewEvents", "popEventListViewOrgs"),
                                        std::pair("mnuViewOrganizations", "popOrgListViewDocs"),
                                        std::pair("mnuViewOrganizations", "popOrgListViewEvents")}) {
        journey.trigger(view);
        selectRow(0);
        journey.trigger(command);
    }
    journey.trigger("mnuNavigateExit");
    EXPECT_EQ(heard().size(), 18) << qPrintable(heard().join(u'\n'));
}

TEST_F(Translation, ReachesEveryTextOfTheEditors)
{
    const struct
    {
        const char* dialog;
        const char* view;
        const char* add;
    } kinds[] = {{"frmDocument", "mnuViewDocuments", "mnuRecordAddNewDocument"},
                 {"frmEvent", "mnuViewEvents", "mnuRecordAddNewEvent"},
                 {"frmOrganization", "mnuViewOrganizations", "mnuRecordAddNewOrganization"}};
    for (const auto& kind : kinds) {
        journey.trigger(kind.view);
        selectRow(0);
        lookAtDialog(kind.dialog, kind.add);
        lookAtDialog(kind.dialog, "mnuRecordEdit");
        lookAtDialog(kind.dialog, "mnuRecordView");
        journey.inDialog(kind.dialog, kind.add, [&](OpenDialog& open) {
            open.click("cmdOK"); // what is required is missing
            open.press(Qt::Key_Escape);
        });
    }
    journey.inDialog("frmEvent", "mnuRecordAddNewEvent", [&](OpenDialog& event) {
        event.inDialog("frmPicList", "cmdAddEventDoc", [&](OpenDialog& open) {
            pseudo.expectTranslated(open.dialog(), "pick list");
            open.press(Qt::Key_Escape);
        });
        event.press(Qt::Key_Escape);
    });
    EXPECT_EQ(heard().size(), 4) << qPrintable(heard().join(u'\n'));
}

TEST_F(Translation, ReachesEveryTextOfTheHistory)
{
    for (const char* view : {"mnuViewDocuments", "mnuViewEvents", "mnuViewOrganizations"}) {
        journey.trigger(view);
        selectRow(0);
        journey.inDialog("frmHistory", "mnuRecordHistory", [&](OpenDialog& history) {
            pseudo.expectTranslated(history.dialog(), view);
            history.find<QCheckBox>("chkOnlyDifferences").setChecked(false);
            pseudo.expectTranslated(history.dialog(), view);
            history.click("cmdClose");
        });
    }
}

TEST_F(Translation, ReachesEveryTextOfTheExport)
{
    pseudo.allow(u"bytes"_s); // Qt's own
    const QString file = journey.database.folder() + u"/Coast"_s;
    for (const char* view : {"mnuViewDocuments", "mnuViewEvents", "mnuViewOrganizations"}) {
        journey.trigger(view);
        journey.inDialog("frmExport", "mnuRecordExport", [&](OpenDialog& open) {
            auto& formats = open.find<QComboBox>("cmbFormat");
            for (int format = 0; format < formats.count(); ++format) {
                formats.setCurrentIndex(format);
                QTest::qWait(50);
                pseudo.expectTranslated(open.dialog(), view);
            }
            formats.setCurrentIndex(0);
            journey.desktop.fileDialogs.files = {file};
            open.click("cmdOK");
        });
        pseudo.expectTranslated(window(), "what was exported");
        QFile::remove(file + u".csv"_s);
    }
    EXPECT_EQ(heard().size(), 1) << qPrintable(heard().join(u'\n'));
}

TEST_F(Translation, ReachesEveryTextOfTheSearches)
{
    journey.trigger("mnuSearchKeyword");
    OpenDialog search(journey.find<QDialog>("frmSearch"));
    QTest::qWait(50);
    pseudo.expectTranslated(search.dialog(), "keyword search");
    search.click("cmdGO");
    search.type("txtKeywords", u"brl"_s);
    search.press(Qt::Key_Return);
    QTest::qWait(50);
    pseudo.expectTranslated(window(), "search results");

    journey.trigger("mnuViewDocuments");
    journey.trigger("mnuSearchAdvanced");
    OpenDialog advanced(journey.find<QDialog>("frmAdvSearch"));
    const auto boxes = advanced.dialog().findChildren<QCheckBox*>();
    for (QCheckBox* box : boxes)
        box->setChecked(true);
    lookAtPages(advanced.dialog(), "advanced search");
    advanced.find<QTabWidget>("SSTab1").setCurrentIndex(0);
    advanced.click("cmdSearch");
    QTest::qWait(50);
    pseudo.expectTranslated(window(), "list of an advanced search");
    EXPECT_EQ(heard().size(), 1) << qPrintable(heard().join(u'\n'));
}

TEST_F(Translation, ReachesEveryTextOfTheLists)
{
    journey.inDialog("frmLists", "mnuRecordLists", [&](OpenDialog& lists) {
        auto& kinds = lists.find<QListWidget>("lstLists");
        const auto lookAt = [&](const char* name, const char* button) {
            if (!lists.find<QAbstractButton>(button).isEnabled()) return;
            lists.inDialog(name, button, [&](OpenDialog& open) {
                QTest::qWait(50);
                pseudo.expectTranslated(open.dialog(), button);
                open.click("cmdOK"); // what is required is missing
                if (open.dialog().isVisible()) open.press(Qt::Key_Escape);
            });
        };
        for (int row = 0; row < kinds.count(); ++row) {
            kinds.setCurrentRow(row);
            QTest::qWait(50);
            pseudo.expectTranslated(lists.dialog(), "lists");
            lookAt("frmListEntry", "cmdAdd");
        }
        kinds.setCurrentRow(static_cast<int>(ListKind::Venues));
        lookAt("frmMergeEntry", "cmdMerge");
        lists.click("cmdDelete");
        lists.click("cmdClose");
    });
    EXPECT_EQ(heard().size(), 13) << qPrintable(heard().join(u'\n'));
    MapPositionPicker picker(journey.desktop.platform(), journey.program->state().folder);
    inDialog(
        "frmPosition",
        [&] {
            (void)picker.pick(MapPosition{30, -97}, &window());
        },
        [&](OpenDialog& open) {
            pseudo.expectTranslated(open.dialog(), "position");
            open.click("cmdCancel");
        });
}

TEST_F(Translation, ReachesEveryTextOfUndoAndTheDeletedRecords)
{
    const auto lookAtDeleted = [&] {
        journey.inDialog("frmDeletedRecords", "mnuViewDeleted", [&](OpenDialog& open) {
            auto& kinds = open.find<QListWidget>("lstKinds");
            for (int row = 0; row < kinds.count(); ++row) {
                kinds.setCurrentRow(row);
                open.click("cmdRestore");
                QTest::qWait(50);
                pseudo.expectTranslated(open.dialog(), "deleted records");
            }
            open.click("cmdClose");
        });
    };
    lookAtDeleted();
    for (const char* table : {"Document", "Event", "Organization"})
        journey.database.run(QStringLiteral("UPDATE %1 SET %2 = 'DELETED'")
                                 .arg(QString::fromUtf8(table), *table == 'D' ? u"dStatus"_s : u"Status"_s));
    lookAtDeleted();
    pseudo.expectTranslated(window(), "a step to undo");
    journey.database.run("UPDATE Organization SET OrganizationName = 'Coast'");
    lookAtDialog("frmChangedSince", "mnuRecordUndo");
    journey.database.run("UPDATE Organization SET OrganizationName = 'Agency'");
    journey.trigger("mnuRecordUndo");
    pseudo.expectTranslated(window(), "a step to redo");
}

TEST_F(Translation, ReachesEveryTextOfTheOtherWindows)
{
    for (const char* word :
         {"Qt",         "Charts", "SQLite",  "SQLiteCpp", "Shapefile", "Library", "GLib",
          "Tools",      "Breeze", "GPL",     "LGPL",      "or",        "later",   "MIT",
          "libarchive", "libxml", "OpenSSL", "Poppler",   "BSD",       "Clause",  "Apache"})
        pseudo.allow(QString::fromUtf8(word));
    lookAtDialog("frmAbout", "mnuHelpAbout");
    StdREG(journey.desktop.settings)
        .WriteRegString(QString(), u"DataDiscFolder"_s, journey.database.folder() + u"/test"_s);
    lookAtDialog("frmSettings", "mnuNavigateSettings");
    lookAtDialog("frmNewDatabase", "mnuNewDatabase");
    lookAtDialog("frmCheck", "mnuCheckCollection");
    journey.trigger("mnuViewEvents");
    journey.inDialog("frmGoToDate", "mnuNavigateGoToDate", [&](OpenDialog& open) {
        for (const char* text : {"", "13/2000", "0001", "9999"}) {
            open.type("txtDate", QString::fromUtf8(text));
            open.click("cmdOK");
            pseudo.expectTranslated(open.dialog(), text);
        }
        open.press(Qt::Key_Escape);
    });
    journey.trigger("mnuViewDocuments");
    lookAtDialog("frmPrint", "mnuRecordPrint");
    HomePage home(nullptr);
    home.setBeginning(true, {});
    home.setRecent({{{}, u"Atlas"_s, {}}});
    home.resize(1024, 768);
    home.show();
    pseudo.expectTranslated(home, "home page without a database");
    frmSplash splash;
    splash.show();
    pseudo.expectTranslated(splash, "splash");
    frmImport conversion(QString(), nullptr);
    conversion.show();
    pseudo.expectTranslated(conversion, "conversion");
    FolderList files;
    frmProgress copying(files, nullptr);
    copying.show();
    pseudo.expectTranslated(copying, "files that are brought along");
}

} // namespace
