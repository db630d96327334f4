// SPDX-License-Identifier: GPL-3.0-or-later

// Every window as it is when it opens, compared line by line with a text that is kept beside this file (see
// Portrait.h).

#include "Portrait.h"

#include "Journey.h"

namespace {

class Portraits : public testing::Test
{
protected:
    Portraits()
    {
        journey.database.runFile("journeys/rows/Portrait.sql");
        journey.start();
        journey.program->window()->resize(1200, 800);
        QTest::qWait(0);
        atStart = portraitOf(*journey.program->window());
    }

    /// Compares, without the folder of this run.
    void expect(const char* name, QStringList lines)
    {
        expectPortrait(name, lines.replaceInStrings(journey.database.folder(), u"FOLDER"_s));
    }

    /// Compares the main window and what these of its widgets paint. Commands that are as they were at the
    /// start are told once, on the home page.
    void expectWindow(const char* name, std::initializer_list<const char*> painted)
    {
        journey.program->window()->activateWindow();
        QTest::qWait(0);
        QStringList lines = portraitOf(*journey.program->window());
        if (lines != atStart) {
            lines.removeIf([this](const QString& line) {
                return (line.startsWith(u"command ") || line.startsWith(u"menu ")) && atStart.contains(line);
            });
        }
        for (const char* widget : painted)
            lines << paintingOf(journey.find<QWidget>(widget));
        expect(name, lines);
    }

    void expectDialog(const char* dialog, const char* command, const char* name)
    {
        journey.inDialog(dialog, command, [&](OpenDialog& open) {
            expect(name, portraitOf(open.dialog()));
            open.press(Qt::Key_Escape);
        });
    }

    Journey journey;
    QStringList atStart;
};

TEST_F(Portraits, OfTheMainWindow)
{
    expectWindow("home", {"Image1(0)", "Image1(4)"});
    journey.trigger("mnuViewDocuments");
    expectWindow("documents", {"MSChart1"});
    journey.trigger("mnuViewEvents");
    journey.widenTimeline(3 * 385);
    journey.select("Quake");
    expectWindow("events", {"picTimeline", "imgTime", "tlLabel(0)", "tlLabel(1)", "imgInstantEvent(1)",
                            "imgInstantEvent(2)"});
    journey.program->window()->resize(1200, 800);
    journey.trigger("mnuViewOrganizations");
    journey.select("Watch");
    expectWindow("organizations", {"Map1"});
}

TEST_F(Portraits, OfTheWindowsOfCommands)
{
    expectDialog("frmSettings", "mnuNavigateSettings", "settings");
    journey.inDialog("frmCheck", "mnuCheckCollection", [&](OpenDialog& open) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !open.find<QWidget>("cmdStop").isVisible(); }, 20000));
        expect("check", portraitOf(open.dialog()));
        open.press(Qt::Key_Escape);
    });
    for (const auto& [view, name] : {std::pair("mnuViewEvents", "export-events"),
                                     std::pair("mnuViewOrganizations", "export-organizations"),
                                     std::pair("mnuViewDocuments", "export-documents")}) {
        journey.trigger(view);
        expectDialog("frmExport", "mnuRecordExport", name);
    }
    expectDialog("frmPrint", "mnuRecordPrint", "print");
}

TEST_F(Portraits, OfTheSearchesAndTheirResults)
{
    const auto open = [this](const char* command, const char* dialog, const char* name) {
        journey.trigger(command);
        expect(name, portraitOf(journey.find<QDialog>(dialog)));
        journey.find<QDialog>(dialog).reject();
    };
    open("mnuSearchKeyword", "frmSearch", "keyword-search");
    journey.trigger("mnuViewDocuments");
    open("mnuSearchAdvanced", "frmAdvSearch", "advanced-search");
    const auto searchFor = [this](const char* text, const char* option) {
        journey.trigger("mnuSearchKeyword");
        journey.find<QRadioButton>(option).setChecked(true);
        journey.find<QLineEdit>("txtKeywords").setText(QString::fromUtf8(text));
        journey.find<QPushButton>("cmdGO").click();
    };
    searchFor("levee", "optSearch(0)");
    expectWindow("search-results", {"lblResult(0)", "lblResult(1)"});
    searchFor("nothing of the kind", "optSearch(2)");
    expectWindow("empty-result", {"lblSearchAgain"});
}

TEST_F(Portraits, OfTheEditors)
{
    const struct
    {
        const char* dialog;
        const char* view;
        const char* add;
        const char* row;
        const char* name;
    } editors[] = {
        {"frmDocument", "mnuViewDocuments", "mnuRecordAddNewDocument", "Levees", "document"},
        {"frmEvent", "mnuViewEvents", "mnuRecordAddNewEvent", "Flood", "event"},
        {"frmOrganization", "mnuViewOrganizations", "mnuRecordAddNewOrganization", "Levee Board",
         "organization"},
    };
    for (const auto& [dialog, view, add, row, name] : editors) {
        journey.trigger(view);
        expectDialog(dialog, add, qPrintable(u"add-"_s + QLatin1StringView(name)));
        journey.select(row);
        expectDialog(dialog, "mnuRecordEdit", qPrintable(u"edit-"_s + QLatin1StringView(name)));
        expectDialog(dialog, "mnuRecordView", qPrintable(u"view-"_s + QLatin1StringView(name)));
    }
    journey.inDialog("frmDocument", "mnuRecordAddNewDocument", [&](OpenDialog& editor) {
        inDialog(
            "frmPicList", [&] { editor.find<QAbstractButton>("cmdAddDocType").click(); },
            [&](OpenDialog& picker) {
                expect("pick-list", portraitOf(picker.dialog()));
                picker.press(Qt::Key_Escape);
            });
        editor.press(Qt::Key_Escape);
    });
}

} // namespace
