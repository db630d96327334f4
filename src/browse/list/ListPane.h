#pragma once

#include "browse/list/RecordListModel.h"
#include "widgets/IconSet.h"

#include <QWidget>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

class RecordListView;
class SettingsStore;
class ViewHistory;

/// A selected row, as commands take it.
struct SelectedRecord
{
    qint64 identifier = 0;
    QString name;         ///< the text of its first column
    QString fileLocation; ///< of a document, else empty
    QString iconKey;
};

/// The list of the main window: fills itself from a query, yields to the window as it does, and remembers for
/// each entry of the history how it was ordered. Which record is selected in an entry the history knows: the
/// list tells it what the user selects, and shows what it says.
class ListPane final : public QWidget
{
    Q_OBJECT

public:
    /// `documentsFolder` is a path of the machine; the session and the history must outlive the pane.
    ListPane(DatabaseSession& session, ViewHistory& history, const QString& documentsFolder, QWidget* parent);

    /// Reads a statement into the list. While it yields, another fill may begin; then this one stops, leaves
    /// nothing behind and returns false. Throws Error; the rows read so far stay. `entry` is the history
    /// position of the view.
    bool fill(ViewKind kind, std::size_t entry, const QString& statement);

    /// Forgets what it remembered of the entries of a history that is gone.
    void forget();

    /// Makes a fill that is under way stop, as when a page takes the list's place.
    void stop();

    [[nodiscard]] ViewKind kind() const { return m_list->kind(); }
    [[nodiscard]] std::size_t count() const { return m_list->count(); }
    [[nodiscard]] RecordListView& view() { return *m_view; }
    [[nodiscard]] RecordListModel& model() { return *m_model; }

    /// The record of the current row if that is selected, else of the first row that is.
    [[nodiscard]] std::optional<qint64> selectedRecord() const;

    /// Selects a record and scrolls to it; false if the list does not show it. Announces nothing.
    bool select(qint64 identifier);

    /// Selects those of the records that the list shows, and no others, and scrolls to the first of them.
    /// Announces nothing.
    void select(const std::vector<qint64>& identifiers);

    /// Selects the record that the history has as selected; nothing, also for the history, if the list does
    /// not show it. Announces nothing.
    void showSelected();

    [[nodiscard]] bool isFilling() const { return m_filling; }

    [[nodiscard]] std::size_t selectedCount() const;

    /// The selected rows from the first to the last.
    [[nodiscard]] std::vector<SelectedRecord> selectedRecords() const;

    void refreshIcons();

    /// The widths that the user chose, from one run to the next.
    void restoreWidths(SettingsStore& settings);
    void saveWidths(SettingsStore& settings);

Q_SIGNALS:
    /// The selection is another one, by whomever.
    void selectionChanged();

    /// The user went to a record, or to the same one again.
    void chosen(qint64 identifier);

private:
    struct Remembered
    {
        std::optional<ListSort> sort;
        std::optional<qint64> top; ///< the first row in sight
    };

    void begin(ViewKind kind, std::size_t entry);
    void rememberPlace();
    void restorePlace();
    void finish();
    void noteSelected();
    void tellHistory(std::optional<qint64> selected);
    void clearSelection();
    bool readRows(const QString& statement, const std::shared_ptr<RecordList>& list);
    void announce(const QModelIndex& index);
    std::vector<int>& chosenWidths(ViewKind kind);
    void applyWidths();
    void fitAuthors();
    void sortBy(int column);
    void applySort();

    DatabaseSession& m_session;
    ViewHistory& m_history;
    IconSet m_icons;
    RowIconKeys m_iconKeys;
    RecordListModel* m_model;
    RecordListView* m_view;
    std::shared_ptr<RecordList> m_list;
    std::uint64_t m_token = 0;
    bool m_filling = false;
    bool m_selecting = false; ///< by itself, not by the user
    std::size_t m_entry = 0;
    std::map<std::size_t, Remembered> m_remembered;
    std::map<ViewKind, std::vector<int>> m_widths; ///< in pixels, 0 if the user chose none
};
