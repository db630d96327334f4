#include "search/SearchCommands.h"

#include "platform/Procedure.h"
#include "search/AdvancedSearch.h"
#include "search/EmptyResultNotice.h"
#include "search/FoundKeys.h"
#include "search/FoundWordsDelegate.h"
#include "search/KeywordSearch.h"
#include "search/SearchResultsPage.h"
#include "search/frmAdvSearch.h"
#include "search/frmSearch.h"
#include "state/ProgramState.h"
#include "widgets/WaitCursor.h"

#include <QAbstractItemView>

SearchCommands::SearchCommands(const Platform& platform, ProgramState& state, RecordPicker& picker,
                               QWidget& window)
    : QObject(&window), m_platform(platform), m_state(state), m_picker(&picker), m_window(window)
{
    setObjectName(QStringLiteral("SearchCommands"));
}

SearchResultsPage* SearchCommands::page()
{
    if (m_page != nullptr) return m_page;
    m_page = new SearchResultsPage(&m_window);
    connect(m_page, &SearchResultsPage::searchPressed, this, &SearchCommands::openKeywordSearch);
    connect(m_page, &SearchResultsPage::recordChosen, this, &SearchCommands::recordChosen);
    connect(m_page, &SearchResultsPage::listChosen, this,
            [this](const clsView& view) { m_state.history.addView(view); });
    return m_page;
}

void SearchCommands::attachTo(QAbstractItemView& list)
{
    m_delegate = new FoundWordsDelegate(&list);
    list.setItemDelegateForColumn(0, m_delegate);
    m_notice = new EmptyResultNotice(list);
    connect(m_notice, &EmptyResultNotice::searchAgain, this, &SearchCommands::searchAgain);
}

void SearchCommands::openKeywordSearch()
{
    if (m_keywordSearch == nullptr) {
        m_keywordSearch = new frmSearch(m_platform, m_state, &m_window);
        connect(m_keywordSearch, &frmSearch::advancedSearchChosen, this, [this](SearchScope scope) {
            if (const auto kind = kindOf(scope)) openAdvancedSearch(*kind);
        });
    }
    m_keywordSearch->doSearch();
}

void SearchCommands::openAdvancedSearch(ViewKind kind)
{
    // each opening reads the lookup tables as they are now
    delete m_advancedSearch;
    m_advancedSearch = new frmAdvSearch(m_platform, m_state, *m_picker, &m_window);
    m_advancedSearch->doAdvSearch(kind);
}

void SearchCommands::showResults()
{
    const QString keywords = m_state.history.view(m_state.history.current()).Keywords;
    const bool found = runProcedure(m_platform.messages, QStringLiteral("showSearchResults"), [&] {
        const WaitCursor wait;
        page()->showResults(SearchResults::read(m_state.session, m_state.queries, keywords));
    });
    if (!found) page()->showFailure(keywords);
}

SharedQuery SearchCommands::queryFor(const SharedQuery& query)
{
    const clsView& view = m_state.history.view(m_state.history.current());
    return view.Keywords.isEmpty() ? query : queryByKeys(m_state.session, view.viewIndex, query);
}

void SearchCommands::beginList()
{
    m_notice->hide();
    m_delegate->setWords(
        FoundWords(splitWords(m_state.history.view(m_state.history.current()).Keywords).words));
}

void SearchCommands::finishList(std::size_t rows, bool isListed)
{
    const clsView& view = m_state.history.view(m_state.history.current());
    const bool byCriteria = hasCriteria(view.AdvSearch);
    if (rows > 0 || (view.Keywords.isEmpty() && !byCriteria)) return;
    if (!isListed) {
        m_notice->showNotice(tr("This search could not be made."), tr("Change the search"));
    } else if (byCriteria) {
        m_notice->showNotice(tr("No record meets the criteria."), tr("Change the criteria"));
    } else {
        m_notice->showNotice(tr("Nothing was found for \"%1\".").arg(view.Keywords), tr("Search again"));
    }
}

void SearchCommands::searchAgain()
{
    const clsView& view = m_state.history.view(m_state.history.current());
    if (hasCriteria(view.AdvSearch)) {
        openAdvancedSearch(view.viewIndex);
    } else {
        openKeywordSearch();
    }
}
