// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/SearchCommands.h"

#include "platform/Procedure.h"
#include "search/AdvancedSearch.h"
#include "search/FoundInFiles.h"
#include "search/FoundKeys.h"
#include "search/KeywordSearch.h"
#include "search/SearchResultsPage.h"
#include "search/frmAdvSearch.h"
#include "search/frmSearch.h"
#include "views/ViewHistory.h"
#include "widgets/MarkingDelegate.h"
#include "widgets/WaitCursor.h"

SearchCommands::SearchCommands(const SearchSurroundings& surroundings, RecordPicker& picker, QWidget& window)
    : QObject(&window), m_at(surroundings), m_picker(&picker), m_window(window)
{
    setObjectName(QStringLiteral("SearchCommands"));
}

const clsView& SearchCommands::currentView() const
{
    return m_at.history.view(m_at.history.current());
}

SearchResultsPage* SearchCommands::page()
{
    if (m_page != nullptr) return m_page;
    m_page = new SearchResultsPage(&m_window);
    connect(m_page, &SearchResultsPage::searchPressed, this, &SearchCommands::openKeywordSearch);
    connect(m_page, &SearchResultsPage::recordChosen, this, &SearchCommands::recordChosen);
    connect(m_page, &SearchResultsPage::listChosen, this,
            [this](const clsView& view) { m_at.history.addView(view); });
    connect(m_page, &SearchResultsPage::filesChosen, this,
            [this](const SearchResults& results) { m_at.history.addView(results.filesView(m_at.queries)); });
    return m_page;
}

void SearchCommands::attachTo(MarkingDelegate& list)
{
    list.addMarker([this](const QModelIndex& index, const QString& text) {
        return index.column() == 0 ? m_words.in(text) : std::vector<TextRange>();
    });
}

frmSearch& SearchCommands::keywordSearch()
{
    if (m_keywordSearch == nullptr) {
        m_keywordSearch = new frmSearch(m_at, &m_window);
        connect(m_keywordSearch, &frmSearch::advancedSearchChosen, this, &SearchCommands::openAdvancedSearch);
    }
    return *m_keywordSearch;
}

void SearchCommands::openKeywordSearch()
{
    keywordSearch().doSearch();
}

void SearchCommands::searchAll(const QString& keywords)
{
    keywordSearch().search(std::nullopt, keywords);
}

void SearchCommands::openAdvancedSearch(RecordKind kind)
{
    // a new form reads the lookup tables again, which may have changed
    delete m_advancedSearch;
    m_advancedSearch = new frmAdvSearch(m_at, *m_picker, &m_window);
    m_advancedSearch->doAdvSearch(kind);
}

void SearchCommands::showResults()
{
    const QString keywords = currentView().Keywords;
    const bool inFiles = currentView().alsoInFiles;
    const bool found = runProcedure(m_at.messages, QStringLiteral("showSearchResults"), [&] {
        const WaitCursor wait;
        page()->showResults(SearchResults::read(m_at.session, m_at.queries, keywords, inFiles));
    });
    if (!found) page()->showFailure(keywords);
}

SharedQuery SearchCommands::queryFor(RecordKind kind, const SharedQuery& query)
{
    const clsView& view = currentView();
    m_inFiles.reset();
    if (view.Keywords.isEmpty()) return query;
    if (!view.alsoInFiles && !view.onlyInFiles) return queryByKeys(m_at.session, kind, query);
    m_inFiles = std::make_shared<FoundInFiles>(m_at.session, m_at.queries, view.Keywords);
    return view.onlyInFiles ? queryOfKeys(kind, query, m_inFiles->documents())
                            : queryWithKeys(m_at.session, kind, query, m_inFiles->documents());
}

FilePassages SearchCommands::passages() const
{
    if (!m_inFiles) return {};
    return [found = m_inFiles](qint64 document) { return found->passage(document); };
}

QString SearchCommands::notice() const
{
    return m_inFiles && recordKindOf(currentView().viewIndex) ? m_inFiles->note() : QString();
}

void SearchCommands::beginList()
{
    m_words = FoundWords(splitWords(currentView().Keywords).words);
}

std::optional<SearchCommands::EmptyResult> SearchCommands::emptyResult(bool isListed) const
{
    const clsView& view = currentView();
    const bool byCriteria = hasCriteria(view.AdvSearch);
    if (view.Keywords.isEmpty() && !byCriteria) return std::nullopt;
    if (!isListed) return EmptyResult{tr("This search could not be made."), tr("Change the search")};
    if (byCriteria) return EmptyResult{tr("No record meets the criteria."), tr("Change the criteria")};
    const QString nothing = tr("Nothing was found for \"%1\".").arg(view.Keywords);
    const QString note = notice();
    return EmptyResult{note.isEmpty() ? nothing : nothing + u'\n' + note, tr("Search again")};
}

void SearchCommands::searchAgain()
{
    const clsView& view = currentView();
    const auto kind = recordKindOf(view.viewIndex);
    if (kind && hasCriteria(view.AdvSearch)) {
        openAdvancedSearch(*kind);
    } else {
        openKeywordSearch();
    }
}
