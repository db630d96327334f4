// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Dialogs.h"
#include "app/Main_Mod.h"
#include "browse/window/frmMain.h"
#include "opening/DatabaseConverter.h"
#include "support/TestDatabase.h"

#include <QtTest>
#include <QtWidgets>

/// Fails the test that has a file converted.
class NoConverter final : public DatabaseConverter
{
public:
    [[nodiscard]] Result convert(const QString& source, const QString& target, bool replace) override;
};

/// The program as its user has it, on a database of its own: its window is driven and looked at by object
/// name, and what it says follows a script.
class Journey
{
public:
    Journey();

    /// Starts the program on a database of that name in the data folder, and with what it is asked to do.
    void start(const QString& databaseName = QStringLiteral("test.sqlite"), const StartRequest& request = {});

    /// Lets the program do what it does by itself once the user does nothing.
    static void idle();

    /// Puts many plain documents into the database, before or after the start.
    void addDocuments(int count);

    template <typename Widget>
    Widget& find(const char* objectName)
    {
        auto* widget = program->window()->findChild<Widget*>(QString::fromUtf8(objectName));
        if (widget == nullptr) throw std::runtime_error(std::string("no such widget: ") + objectName);
        return *widget;
    }

    void trigger(const char* action) { find<QAction>(action).trigger(); }
    QTreeView& list() { return find<QTreeView>("ListView1"); }
    QString viewPanel() { return find<QLabel>("pnlView").text(); }
    QString statusPanel() { return find<QLabel>("pnlStatus").text(); }

    /// Clicks on the row whose first column shows that text.
    void select(const char* name);

    /// The names of the selected rows in the order of the list, joined by `|`.
    std::string selected();

    /// Works in the dialog of that name that a command opens.
    void inDialog(const char* name, const char* command, const std::function<void(OpenDialog&)>& work);

    /// Makes the window as wide as the picture of the timeline, which is shown, needs for that width.
    void widenTimeline(int pixels);

    /// The texts of a column from the first row to the last, joined by `|`.
    std::string column(int column);

    /// Whether any word in the list stands on the colour of marks.
    bool showsMarks();

    /// The captions of the History menu as it opens now, joined by `|`; the current one in brackets.
    std::string historyMenu();

    /// What the database holds, one line a row, values joined by `|`.
    std::string rows(const char* statement) { return database.ask(statement).toStdString(); }

    /// Every row of every table but the journal, each after the name of its table.
    QStringList dump();

    [[nodiscard]] QString dataFolder() const { return database.folder() + QStringLiteral("/data/"); }

    [[nodiscard]] QString mapsFolder() const { return dataFolder() + QStringLiteral("maps/"); }

    TestDatabase database;
    ScriptedPlatform desktop;
    NoConverter noConverter;
    DatabaseConverter* converter = &noConverter; ///< or another for a test with the real tool
    std::optional<Main_Mod> program;
};
