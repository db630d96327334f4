// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "lists/ListStore.h"
#include "platform/Platform.h"
#include "views/clsView.h"

#include <QDialog>
#include <QPixmap>

#include <functional>
#include <optional>
#include <vector>

class ListsView;
class PositionPicker;
class ProgramFolder;
class QLabel;
class QListWidget;
class QMenu;
class QPushButton;
class QVBoxLayout;
struct StandardQueries;

/// The modal dialog that shows the lists from which records take their types, places and other properties:
/// adds, renames, merges and removes their entries. Lives for one opening.
class frmLists final : public QDialog
{
    Q_OBJECT

public:
    /// What the dialog works with. The references must outlive it.
    struct Surroundings
    {
        Platform platform;
        DatabaseSession& session;
        const ProgramFolder& folder; ///< of the database
        const StandardQueries& queries;
        PositionPicker& positions;
        std::function<QPixmap(qint64 function)> marker; ///< the colour that the map gives to a function
    };

    frmLists(Surroundings surroundings, QWidget* parent);

    /// Shows the dialog until the user closes it or wants to see records.
    void showLists();

    /// Whether anything was written.
    [[nodiscard]] bool hasChanged() const { return m_hasChanged; }

    /// The view of the records that the user wants to see, if the dialog was closed for it.
    [[nodiscard]] const std::optional<clsView>& wantedView() const { return m_wantedView; }

    void done(int result) override;

private:
    void makeLists();
    void makeButtons(QVBoxLayout& column);
    QPushButton* makeButton(QVBoxLayout& column, const char* name, const QString& text,
                            const QString& toolTip, void (frmLists::*command)());
    void layOut(QVBoxLayout* buttons);
    [[nodiscard]] ListKind list() const;
    void readList(qint64 selected = 0);
    void enableButtons();
    void addEntry();
    void renameEntry();
    void mergeEntry();
    void removeEntry();
    void showRecords();
    void showUsers(const ListReference& reference);
    bool write(const char* procedure, const std::function<ListOutcome()>& change);
    void tell(const QString& text);
    [[nodiscard]] static QString withRecords(const QString& text, qint64 records);

    Surroundings m_at;
    ListStore m_store;
    std::vector<LookupRow> m_rows; ///< of the list that is shown
    bool m_hasChanged = false;
    std::optional<clsView> m_wantedView;
    QListWidget* lstLists = nullptr;
    ListsView* m_entries = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdRename = nullptr;
    QPushButton* cmdMerge = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdShowRecords = nullptr;
    QMenu* m_users = nullptr; ///< the kinds of record that use the selected entry
    QLabel* lblOutcome = nullptr;
};
