#pragma once

#include "platform/Platform.h"
#include "views/SearchKind.h"

#include <QObject>
#include <QPointer>

class EmptyResultNotice;
class FoundWordsDelegate;
class QAbstractItemView;
class RecordPicker;
class SearchResultsPage;
class frmAdvSearch;
class frmSearch;
struct ProgramState;

/// The searches of the main window: opens their dialogs, fills the page of results, and shows in a list what
/// a search looked for. Lives as long as its window, whose children the dialogs become when they are first
/// asked for.
class SearchCommands final : public QObject
{
    Q_OBJECT

public:
    /// The state and the picker must outlive the object, which becomes a child of the window.
    SearchCommands(const Platform& platform, ProgramState& state, RecordPicker& picker, QWidget& window);

    /// Lets records be picked in another way from now on.
    void setPicker(RecordPicker& picker) { m_picker = &picker; }

    /// The page of results, for the window to show; made when it is first asked for.
    [[nodiscard]] SearchResultsPage* page();

    /// Marks found words and empty results in a list from now on. The names are in its first column.
    void attachTo(QAbstractItemView& list);

    void openKeywordSearch();

    /// Opens the form for a kind that has a list.
    void openAdvancedSearch(ViewKind kind);

    /// Searches once more for what the current view, one of results, looked for.
    void showResults();

    /// The query to show the current view with: what a keyword search found is asked for by its keys.
    [[nodiscard]] SharedQuery queryFor(const SharedQuery& query);

    /// To be called before a list is filled with the current view.
    void beginList();

    /// To be called after that: with the number of rows, and whether they could be read.
    void finishList(std::size_t rows, bool isListed);

Q_SIGNALS:
    /// The user wants to look at a record.
    void recordChosen(ViewKind kind, qint64 identifier);

private:
    void searchAgain();

    Platform m_platform;
    ProgramState& m_state;
    RecordPicker* m_picker;
    QWidget& m_window;
    SearchResultsPage* m_page = nullptr;
    FoundWordsDelegate* m_delegate = nullptr;
    EmptyResultNotice* m_notice = nullptr;
    frmSearch* m_keywordSearch = nullptr;
    QPointer<frmAdvSearch> m_advancedSearch;
};
