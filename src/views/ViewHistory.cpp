// SPDX-License-Identifier: GPL-3.0-or-later

#include "views/ViewHistory.h"

void ViewHistory::addView(clsView view)
{
    m_views.push_back(std::move(view));
    showView(count());
}

void ViewHistory::clear()
{
    m_views.clear();
    m_selected.clear();
    m_filters.clear();
    m_current = 0;
    m_currentKind = ViewKind::Home;
    m_currentQuery.reset();
    m_narrowedQuery.reset();
}

const SharedQuery& ViewHistory::currentQuery() const
{
    return m_currentQuery ? m_currentQuery : view(m_current).SQL;
}

std::optional<qint64> ViewHistory::selected() const
{
    const auto found = m_selected.find(m_current);
    return found == m_selected.end() ? std::nullopt : std::optional(found->second);
}

void ViewHistory::select(std::optional<qint64> identifier)
{
    if (identifier) {
        m_selected[m_current] = *identifier;
    } else {
        m_selected.erase(m_current);
    }
}

QString ViewHistory::filter() const
{
    const auto found = m_filters.find(m_current);
    return found == m_filters.end() ? QString() : found->second;
}

void ViewHistory::setFilter(const QString& words)
{
    if (words.isEmpty()) {
        m_filters.erase(m_current);
    } else {
        m_filters[m_current] = words;
    }
}

void ViewHistory::showView(std::size_t position)
{
    if (position < 1 || position > count()) return;
    m_current = position;
    // a copy: a long list yields while it is read, and another view may be added meanwhile
    const clsView shown = view(position);
    m_currentKind = shown.viewIndex;
    m_currentQuery.reset();
    m_narrowedQuery.reset();
    if (m_presenter == nullptr) return;
    switch (shown.viewIndex) {
    case ViewKind::Documents:
        m_presenter->showDocuments(shown.SQL, shown.Caption);
        break;
    case ViewKind::Events:
        m_presenter->showEvents(shown.SQL, shown.Caption);
        break;
    case ViewKind::Organizations:
        m_presenter->showOrganizations(shown.SQL, shown.Caption);
        break;
    case ViewKind::Home:
        m_presenter->showHome();
        break;
    case ViewKind::SearchResults:
        m_presenter->showSearchResults();
        break;
    }
}

bool ViewHistory::goBack()
{
    if (m_current <= 1) return false;
    showView(m_current - 1);
    return true;
}

bool ViewHistory::goForward()
{
    if (m_current == count()) return false;
    showView(m_current + 1);
    return true;
}
