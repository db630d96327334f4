// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/ViewPages.h"

#include "browse/home/HomePage.h"
#include "browse/list/ListPane.h"
#include "browse/window/BrowsePage.h"
#include "browse/window/EmptyList.h"
#include "browse/window/GraphicViews.h"
#include "platform/Procedure.h"
#include "search/SearchCommands.h"
#include "search/SearchResultsPage.h"
#include "widgets/WaitCursor.h"

ViewPages::ViewPages(Messages& messages, ViewHistory& history, const Parts& parts, QWidget* parent)
    : QStackedWidget(parent), m_messages(messages), m_history(history), m_parts(parts)
{
    addWidget(&m_parts.home);
    addWidget(&m_parts.browse);
    m_history.setPresenter(this);
    connect(&m_parts.list, &ListPane::filtered, this, &ViewPages::showFiltered);
}

ViewPages::~ViewPages()
{
    m_history.setPresenter(nullptr);
}

bool ViewPages::showsList() const
{
    return currentWidget() == &m_parts.browse;
}

void ViewPages::refresh()
{
    if (m_history.currentKind() != ViewKind::Home) m_history.showView(m_history.current());
}

void ViewPages::showDocuments(const SharedQuery& query, const QString& caption)
{
    showList(RecordKind::Document, QStringLiteral("showDocuments"), query, caption);
}

void ViewPages::showEvents(const SharedQuery& query, const QString& caption)
{
    showList(RecordKind::Event, QStringLiteral("showEvents"), query, caption);
}

void ViewPages::showOrganizations(const SharedQuery& query, const QString& caption)
{
    showList(RecordKind::Organization, QStringLiteral("showOrganizations"), query, caption);
}

void ViewPages::showList(RecordKind kind, const QString& procedure, const SharedQuery& query,
                         const QString& caption)
{
    Q_EMIT viewAsked();
    auto& [home, browse, list, emptyList, search, graphics] = m_parts;
    if (!showsList()) {
        setCurrentWidget(&browse);
        // else the field above the list has the focus again if it had it when the page was left
        list.setFocus();
    }
    browse.showKind(kind);
    Q_EMIT pageChanged();
    emptyList.hide();
    search.beginList();
    bool stayed = true;
    const bool isListed =
        runProcedure(m_messages, procedure, [&, &list = list, &search = search, &graphics = graphics] {
            const WaitCursor wait;
            m_history.setCurrentQuery(search.queryFor(kind, query));
            graphics.drawBeforeList(kind);
            stayed = list.fill(kind, m_history.current(), m_history.currentQuery()->sqlStr());
        });
    if (!stayed) return;
    Q_EMIT viewShown(caption, RecordList::countText(kind, list.count()));
    list.focusRows();
    if (list.count() == 0) emptyList.show(kind, isListed);
    graphics.drawAfterList(kind, isListed);
}

void ViewPages::showFiltered()
{
    // a view without rows has said so already, and one that is still being read will
    if (m_parts.list.total() == 0 || m_parts.list.isFilling()) return;
    m_parts.emptyList.hide();
    if (m_parts.list.count() == 0) m_parts.emptyList.show(m_parts.list.kind(), true);
}

void ViewPages::showHome()
{
    showPage(m_parts.home);
}

void ViewPages::showSearchResults()
{
    SearchResultsPage& page = *m_parts.search.page();
    if (indexOf(&page) < 0) addWidget(&page);
    showPage(page);
    m_parts.search.showResults();
}

/// Shows a page without a list.
void ViewPages::showPage(QWidget& page)
{
    Q_EMIT viewAsked();
    m_parts.list.stop();
    setCurrentWidget(&page);
    Q_EMIT pageChanged();
    Q_EMIT viewShown(m_history.view(m_history.current()).Caption, QString());
}
