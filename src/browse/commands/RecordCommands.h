// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <QObject>

class ListPane;
class MainCommands;
class QAction;
class QWidget;
class RecordEditors;

/// The commands that add, edit, view and delete records and show their history: in the menus, in the toolbar,
/// by the keys of the list, by a double click on a row and by a file dropped on the window. They live as long
/// as the window.
class RecordCommands final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the commands.
    RecordCommands(const MainCommands& commands, ListPane& list, RecordEditors& editors, QWidget& window);

    /// Enables adding if the database can be changed, viewing and the history if a list is shown and has a
    /// selection, editing and deleting if both is so. `unwritable` says why the database cannot be changed,
    /// `hindrance` why there is no list; both are empty otherwise.
    void enable(const QString& unwritable, const QString& hindrance);

    /// The first selected row of the list, or -1.
    [[nodiscard]] int selectedRow() const;

    /// To be called when the list was read again after a change: selects the record that was changed or, if
    /// it is not there any more, what took the place of `row`, the first row that was selected before.
    /// `saved` is below 0 after a deletion.
    void selectAfterChange(RecordKind kind, qint64 saved, int row);

private:
    void connectAdditions();
    void connectList();
    void acceptFiles(QWidget& window);
    void edit();
    void view();
    void showHistory();
    void remove();

    const MainCommands& m_commands;
    ListPane& m_list;
    RecordEditors& m_editors;
};
