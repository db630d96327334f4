#pragma once

#include "records/RecordKind.h"

#include <QObject>

class ListPane;
class MainCommands;
class QAction;
class QWidget;
class RecordEditors;

/// The commands that add, edit, view and delete records: from the menus, the toolbar, the keys of the list, a
/// double click on a row and a file that is dropped on the window. They live as long as the window.
class RecordCommands final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the commands.
    RecordCommands(const MainCommands& commands, ListPane& list, RecordEditors& editors, QWidget& window);

    /// Enables what can be done now: adding if the database can be changed, viewing if the list that is shown
    /// has a selection, editing and deleting if both is so. `unwritable` says what is in the way of a change,
    /// `hindrance` of a list, as on a page without one.
    void enable(const QString& unwritable, const QString& hindrance);

    /// After the list was read again because records were saved or deleted: selects the record that was
    /// saved or, where the selected ones are gone, the row that stands in the place of the first of them.
    void selectAfterChange(RecordKind kind, qint64 saved);

private:
    using OpenRecord = void (RecordEditors::*)(RecordKind, qint64);

    void connectAdditions();
    void connectList();
    void acceptFiles(QWidget& window);
    void run(OpenRecord open);
    void remove();

    const MainCommands& m_commands;
    ListPane& m_list;
    RecordEditors& m_editors;
    int m_rowOfDeleted = -1; ///< where the first row stood that is being deleted
};
