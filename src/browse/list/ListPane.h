// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "browse/list/ColumnWidths.h"
#include "browse/list/RecordListModel.h"
#include "widgets/IconSet.h"

#include <QWidget>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

class FilterField;
class ProgramFolder;
class RecordListView;
class ViewHistory;

/// A selected row, for the commands that act on it.
struct SelectedRecord
{
    qint64 identifier = 0;
    QString name;         ///< the text of its first column
    QString fileLocation; ///< the file name of a document, else empty
    QString iconKey;
};

/// The list of the main window. It is filled from a query, yields to the window meanwhile, and remembers
/// order and place for each entry of the history. The selected record of an entry is kept in the history: the
/// list writes the user's selection there and shows what it finds there. So is its filter, whose words the
/// user types above the list. An empty list of documents until the first fill.
class ListPane final : public QWidget
{
    Q_OBJECT

public:
    /// `folder` is that of the session's database. The references must outlive the pane.
    ListPane(DatabaseSession& session, ViewHistory& history, const ProgramFolder& folder, QWidget* parent);

    /// Fills the list with the rows of a statement. `entry` is the history position of the view. If another
    /// fill begins while this one yields, this one stops, leaves nothing behind and returns false. Throws
    /// Error; the rows read so far stay.
    bool fill(RecordKind kind, std::size_t entry, const QString& statement);

    /// Sets what the next fill shows below the texts of its rows; null for nothing.
    void setPassages(FilePassages passages);

    /// Forgets order and place of all entries, when the history is cleared.
    void forget();

    /// Stops a fill that is under way, as when a page takes the list's place.
    void stop();

    [[nodiscard]] RecordKind kind() const { return m_list->kind(); }

    /// The number of rows that are shown, and of those that were read: the filter may hide some.
    [[nodiscard]] std::size_t count() const { return static_cast<std::size_t>(m_model->rowCount()); }
    [[nodiscard]] std::size_t total() const { return m_list->count(); }

    /// Whether a record of the view is not shown because of the filter.
    [[nodiscard]] bool hides(RecordKind kind, qint64 identifier) const;

    [[nodiscard]] RecordListView& view() { return *m_view; }
    [[nodiscard]] RecordListModel& model() { return *m_model; }

    /// Lets the user type the words of the filter.
    void beginFilter();

    /// Takes the filter away and gives the focus to the rows.
    void clearFilter();

    /// Gives the focus to the rows, unless the user types the words of a filter.
    void focusRows();

    /// The record of the current row if that is selected, else of the first selected row.
    [[nodiscard]] std::optional<qint64> selectedRecord() const;

    /// Selects a record and scrolls to it; returns false if the list does not show it. Does not emit
    /// `chosen`.
    bool select(qint64 identifier);

    /// The same as if the user had gone to the record: emits `chosen`.
    void goTo(qint64 identifier);

    /// Selects the records that the list shows, and no others, and scrolls to the first of them. Does not
    /// emit `chosen`.
    void select(const std::vector<qint64>& identifiers);

    /// Selects the record that is selected in the history. If the list does not show it, clears the selection
    /// in both. Does not emit `chosen`.
    void showSelected();

    [[nodiscard]] bool isFilling() const { return m_filling; }

    [[nodiscard]] std::size_t selectedCount() const;

    /// The selected rows from the first to the last.
    [[nodiscard]] std::vector<SelectedRecord> selectedRecords() const;

    void refreshIcons();

    /// Makes the text so many percent of the desktop's; the icons and the widths that the user did not choose
    /// follow.
    void setTextSize(int percent);

    /// Sets how dates are shown, from the next fill on.
    void setYears(Years years) { m_years = years; }

    [[nodiscard]] ColumnWidths& widths() { return m_widths; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

Q_SIGNALS:
    /// The selection changed, by the user or by the program.
    void selectionChanged();

    /// The user went to a record, perhaps to the same one again.
    void chosen(qint64 identifier);

    /// The filter shows other rows than before, of a list that stays the same and may still be filling. The
    /// history has its words.
    void filtered();

private:
    struct Remembered
    {
        std::optional<ListSort> sort;
        std::optional<qint64> top;        ///< the record of the first visible row
        std::optional<qint64> unfiltered; ///< the record that was selected before there was a filter
    };

    void begin(RecordKind kind, std::size_t entry);
    void rememberPlace();
    void restorePlace();
    void finish();
    void noteSelected();
    void tellHistory(std::optional<qint64> selected);
    void selectShown(const std::unordered_set<qint64>& records, std::optional<qint64> current);
    void clearSelection();
    void narrow(const QString& typed);
    void showCount();
    void goToRows();
    bool readRows(const QString& statement, const std::shared_ptr<RecordList>& list);
    void announce(const QModelIndex& index);
    void sortBy(int column);
    void applySort();

    DatabaseSession& m_session;
    ViewHistory& m_history;
    std::shared_ptr<RecordList> m_list;
    IconSet m_icons;
    RowIconKeys m_iconKeys;
    RecordListModel* m_model;
    FilterField* m_filter;
    RecordListView* m_view;
    ColumnWidths m_widths;
    Years m_years = Years::TwoDigits;
    std::uint64_t m_token = 0;
    bool m_filling = false;
    bool m_selecting = false; ///< while the program selects, not the user
    std::size_t m_entry = 0;
    std::map<std::size_t, Remembered> m_remembered; ///< by history position
};
