// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "data/SQLObject.h"
#include "filetext/FilePassage.h"
#include "search/FoundWords.h"
#include "search/SearchSurroundings.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <optional>

class FoundInFiles;
class MarkingDelegate;
class RecordPicker;
class SearchResultsPage;
class frmAdvSearch;
class frmSearch;
struct clsView;

/// The searches of the main window: opens their dialogs, fills the page of results, and marks the words of a
/// search in the list. Lives as long as its window, which owns the dialogs; they are made when first needed.
class SearchCommands final : public QObject
{
    Q_OBJECT

public:
    /// Becomes a child of the window. The picker must outlive it.
    SearchCommands(const SearchSurroundings& surroundings, RecordPicker& picker, QWidget& window);

    /// Replaces the picker.
    void setPicker(RecordPicker& picker) { m_picker = &picker; }

    /// The page of results, for the window to show; made when first needed.
    [[nodiscard]] SearchResultsPage* page();

    /// Lets the searches mark found words in a list, whose first column has the names. To be called once.
    void attachTo(MarkingDelegate& list);

    void openKeywordSearch();

    /// Searches the records of all kinds for a text, as if it had been typed into the dialog.
    void searchAll(const QString& keywords);

    /// Opens the form for a kind.
    void openAdvancedSearch(RecordKind kind);

    /// Fills the page of results: repeats the search of the current view, which must be one of results.
    void showResults();

    /// Returns the query to read the current view with, one of a kind of record: for a keyword search, a
    /// cheaper one for the same records. Searches the files again if the view does.
    [[nodiscard]] SharedQuery queryFor(RecordKind kind, const SharedQuery& query);

    /// Returns what the list shows of the files that queryFor() found last; null if it did not look into any.
    [[nodiscard]] FilePassages passages() const;

    /// What the user has to know of the search that made the current list, or an empty text.
    [[nodiscard]] QString notice() const;

    /// To be called before the list is filled with the current view.
    void beginList();

    /// What an empty list says, and the link from there back to the search.
    struct EmptyResult
    {
        QString text;
        QString link;
    };

    /// Returns what is said if the current view has no rows; `std::nullopt` if no search made it. `isListed`
    /// is whether the rows could be read.
    [[nodiscard]] std::optional<EmptyResult> emptyResult(bool isListed) const;

    /// Opens the search that made the current view, to be changed.
    void searchAgain();

Q_SIGNALS:
    /// The user wants to see a record.
    void recordChosen(RecordKind kind, qint64 identifier);

private:
    [[nodiscard]] frmSearch& keywordSearch();
    [[nodiscard]] const clsView& currentView() const;

    SearchSurroundings m_at;
    RecordPicker* m_picker;
    QWidget& m_window;
    SearchResultsPage* m_page = nullptr;
    FoundWords m_words;                      ///< of the search that made the current view
    std::shared_ptr<FoundInFiles> m_inFiles; ///< by the search that made the current list; null if none was
    frmSearch* m_keywordSearch = nullptr;
    QPointer<frmAdvSearch> m_advancedSearch;
};
