// SPDX-License-Identifier: GPL-3.0-or-later

// Every button of the toolbar and of the home page is pressed, and each does what it says.

#include "Journey.h"

namespace {

class Buttons : public testing::Test
{
protected:
    Buttons()
    {
        journey.database.runFile("journeys/rows/Buttons.sql");
        for (const char16_t* name : {u"/data/documents/2.pdf", u"/Kelmsett.chm"})
            QFile(journey.database.folder() + QString::fromUtf16(name)).open(QIODevice::WriteOnly);
        journey.start();
    }

    /// A button by its own name or by that of the command which it stands for on the toolbar.
    QAbstractButton& button(const char* name)
    {
        QWidget& window = *journey.program->window();
        if (auto* named = window.findChild<QAbstractButton*>(QString::fromUtf8(name))) return *named;
        auto& toolBar = journey.find<QToolBar>("tbToolBar");
        return dynamic_cast<QAbstractButton&>(*toolBar.widgetForAction(&journey.find<QAction>(name)));
    }

    bool isInMenuOnly(const char* name)
    {
        const auto* action = journey.program->window()->findChild<QAction*>(QString::fromUtf8(name));
        return action != nullptr && !journey.find<QToolBar>("tbToolBar").actions().contains(action);
    }

    /// Notes the dialog that is open, and closes it.
    void closeDialog()
    {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* dialog = qobject_cast<QDialog*>(widget);
            if (dialog == nullptr || !dialog->isVisible()) continue;
            m_done << dialog->windowTitle();
            dialog->close();
        }
    }

    /// Presses a button or chooses a command of a menu: the dialog, the file and the beep that came of it; if
    /// none did, the view.
    std::string press(const char* name)
    {
        m_done.clear();
        QTimer::singleShot(0, journey.program->window(), [this] { closeDialog(); });
        const int beeps = journey.desktop.messages.beeps;
        if (name[0] == 'N') {
            journey.find<QMenu>("mnuAddKinds").findChild<QAction*>(QString::fromUtf8(name))->trigger();
        } else if (isInMenuOnly(name)) {
            journey.desktop.fileDialogs.files = {QString()};
            journey.trigger(name);
            if (journey.desktop.fileDialogs.files.empty()) m_done << u"dialog for files"_s;
        } else {
            QTest::mouseClick(&button(name), Qt::LeftButton);
        }
        QApplication::processEvents();
        if (journey.desktop.messages.beeps > beeps) m_done << u"beep"_s;
        QStringList& opened = journey.desktop.shell.opened;
        m_done += opened.replaceInStrings(journey.database.folder(), QString());
        opened.clear();
        const bool isAlone = journey.find<QSplitter>("splitter").sizes().back() == 0;
        if (journey.list().isVisible() && isAlone) m_done << u"list alone"_s;
        if (!m_done.isEmpty()) return m_done.join(u'|').toStdString();
        const std::string rows = journey.list().isVisible() ? ": " + journey.column(0) : "";
        return journey.viewPanel().toStdString() + rows;
    }

    QStringList m_done;
    Journey journey;
};

/// A button, the row that is selected before it is pressed, if any, and what comes of it.
const struct
{
    const char* button;
    const char* row;
    const char* effect;
} presses[] = {
    {"Back", "", "beep"},
    {"Image1(0)", "", "View ALL Documents: Atlas|Brief"},
    {"Forward", "", "beep"},
    {"Home", "", "Home Page"},
    {"Image1(1)", "", "View ALL Events: Flood"},
    {"Home", "", "Home Page"},
    {"Image1(2)", "", "View ALL Organizations: Agency"},
    {"Home", "", "Home Page"},
    {"Image1(3)", "", "Keyword Search"},
    {"Image1(4)", "", "/Kelmsett.chm"},
    {"Back", "", "View ALL Organizations: Agency"},
    {"Back", "", "Home Page"},
    {"Forward", "", "View ALL Organizations: Agency"},
    {"Help", "", "/Kelmsett.chm"},
    {"mnuBackUp", "", "dialog for files"},
    {"mnuRestore", "", "dialog for files"},
    {"mnuCheckCollection", "", "Check Collection"},
    {"NewDocument", "", "Add a New Document"},
    {"NewEvent", "", "Add a New Event"},
    {"NewOrganization", "", "Add a New Organization"},
    {"mnuSearchKeyword", "", "Keyword Search"},
    {"Edit", "Agency", "Editing OrganizationID 2"},
    {"View", "Agency", "Viewing Organization 2 (Read-Only)"},
    {"mnuViewDocuments", "", "View ALL Documents: Atlas|Brief"},
    {"mnuRecordPrint", "", "Print"},
    {"mnuViewHideGraphic", "", "list alone"},
    {"mnuViewHideGraphic", "", "View ALL Documents: Atlas|Brief"},
    {"Edit", "Brief", "Editing DocumentID 3"},
    {"View", "Brief", "Viewing DocumentID 3 (Read-Only)"},
    {"mnuRecordOpen", "Atlas", "/data/documents/2.pdf"},
    {"Delete", "Brief", "View ALL Documents: Atlas"},
    {"mnuViewRefresh", "", "View ALL Documents: Atlas|Zoo"},
    {"mnuRecordExport", "", "Export"},
    {"mnuViewOrganizations", "", "View ALL Organizations: Agency"},
    {"mnuViewEvents", "", "View ALL Events: Flood"},
    {"mnuNavigateGoToDate", "", "Go to Date"},
    {"Edit", "Flood", "Editing EventID 2"},
    {"View", "Flood", "Viewing EventID 2 (Read-Only)"},
};

TEST_F(Buttons, EachDoesWhatItSays)
{
    std::set<std::string> pressed;
    for (const auto& [name, row, effect] : presses) {
        if (*row != '\0') journey.select(row);
        if (std::string(name) == "Delete") {
            journey.desktop.messages.expectQuestion(
                u"Are you sure you want to delete the Document \"Brief\"?"_s, true, Question::Loss);
            journey.desktop.messages.expectMessage(u"Document ID 3 successfully deleted."_s);
        }
        if (std::string(name) == "mnuViewRefresh") {
            journey.database.run(
                "INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (4, 'Zoo', 'ACTIVE')");
        }
        EXPECT_EQ(press(name), effect) << name;
        journey.desktop.messages.finish();
        if (std::string(name) == "Delete") {
            EXPECT_EQ(journey.list().selectionModel()->selectedRows().size(), 1) << "the row that is left";
        }
        pressed.insert(name);
    }
    // none is left out
    auto& toolBar = journey.find<QToolBar>("tbToolBar");
    for (QAction* action : toolBar.actions()) {
        const std::string name = toolBar.widgetForAction(action)->objectName().toStdString();
        const bool isPressed = pressed.contains(action->objectName().toStdString()) || pressed.contains(name);
        EXPECT_TRUE(isPressed || action->isSeparator() || name == "Add") << action->text().toStdString();
    }
}

TEST_F(Buttons, CommandsThatCanBeUsedAtOnceHaveKeysOfTheirOwn)
{
    for (const auto& [view, row] :
         {std::pair("mnuViewDocuments", "Atlas"), std::pair("mnuViewEvents", "Flood"),
          std::pair("mnuViewOrganizations", "Agency")}) {
        journey.trigger(view);
        journey.select(row);
        std::set<QString> keys;
        for (const QAction* command : journey.program->window()->findChildren<QAction*>()) {
            for (const QKeySequence& key : command->shortcuts()) {
                const bool isOwn = !command->isEnabled() || keys.insert(key.toString()).second;
                EXPECT_TRUE(isOwn) << command->text().toStdString() << " in " << view;
            }
        }
        EXPECT_GT(keys.size(), 20U);
    }
}

TEST_F(Buttons, TheFilterAndTheDetailsHaveTheirKeys)
{
    journey.trigger("mnuViewDocuments");
    QTest::keyClick(&journey.list(), Qt::Key_F4);
    EXPECT_TRUE(journey.find<QWidget>("txtDetails").isVisible());
    QTest::keyClick(&journey.list(), Qt::Key_L, Qt::ControlModifier);
    EXPECT_TRUE(journey.find<QWidget>("txtFilter").hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4);
    EXPECT_FALSE(journey.find<QWidget>("txtDetails").isVisible());
}

TEST_F(Buttons, TheHomePageIsWorkedByKeysToo)
{
    button("Image1(2)").setFocus();
    QTest::keyClick(&button("Image1(2)"), Qt::Key_Return);
    EXPECT_EQ(journey.viewPanel(), u"View ALL Organizations"_s);
}

TEST_F(Buttons, OfTheHomePageTakeAHintOfTheAccentUnderTheMouse)
{
    QAbstractButton& events = button("Image1(1)");
    QPalette palette = events.palette();
    palette.setColor(QPalette::Base, QColor(200, 100, 40));
    palette.setColor(QPalette::Highlight, QColor(0, 200, 240));
    events.setPalette(palette);
    const auto ground = [&events] { return events.grab().toImage().pixelColor(12, 12); };
    EXPECT_EQ(ground(), QColor(200, 100, 40));
    events.setAttribute(Qt::WA_UnderMouse);
    EXPECT_EQ(ground(), QColor(180, 110, 60)) << "a tenth of the way";
}

} // namespace
