// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/EmptyList.h"

#include "browse/commands/MainCommands.h"
#include "browse/list/ListPane.h"
#include "browse/list/RecordListView.h"
#include "data/DatabaseSession.h"
#include "search/SearchCommands.h"
#include "views/StandardQueries.h"
#include "views/ViewHistory.h"
#include "widgets/EmptyResultNotice.h"

EmptyList::EmptyList(Surroundings surroundings, ListPane& list, QWidget& window)
    : QObject(&window),
      m_at(std::move(surroundings)),
      m_list(list),
      m_notice(new EmptyResultNotice(list.view()))
{
    connect(m_notice, &EmptyResultNotice::linkFollowed, this, [this] {
        if (m_follow) m_follow();
    });
}

void EmptyList::hide()
{
    m_notice->hide();
}

void EmptyList::show(const QString& text, const QString& link, std::function<void()> follow)
{
    m_follow = std::move(follow);
    m_notice->showNotice(text, link);
}

void EmptyList::show(RecordKind kind, bool isListed)
{
    if (m_list.total() > 0) {
        show(tr("No record in this list matches the filter."), tr("Clear the filter"),
             [this] { m_list.clearFilter(); });
    } else if (const auto found = m_at.search.emptyResult(isListed)) {
        show(found->text, found->link, [this] { m_at.search.searchAgain(); });
    } else if (!m_at.session.isOpen()) {
        show(m_at.unwritable());
    } else if (isListed && m_at.history.view(m_at.history.current()).SQL == m_at.queries.of(kind)) {
        showNoRecords(kind);
    } else if (isListed) {
        show(kind == RecordKind::Document ? tr("There are no documents in this view.")
             : kind == RecordKind::Event  ? tr("There are no events in this view.")
                                          : tr("There are no organizations in this view."),
             tr("Go back to the view before"), [this] { m_at.commands.mnuNavigateBack->trigger(); });
    }
}

void EmptyList::showNoRecords(RecordKind kind)
{
    const auto showFor = [this](const QString& text, const QString& link, QAction* add) {
        const QString hindrance = m_at.unwritable();
        if (hindrance.isEmpty()) {
            show(text, link, [add] { add->trigger(); });
        } else {
            show(text + u'\n' + hindrance);
        }
    };
    switch (kind) {
    case RecordKind::Document:
        return showFor(tr("There are no documents yet."), tr("Add the first document"),
                       m_at.commands.mnuRecordAddNewDocument);
    case RecordKind::Event:
        return showFor(tr("There are no events yet."), tr("Add the first event"),
                       m_at.commands.mnuRecordAddNewEvent);
    case RecordKind::Organization:
        return showFor(tr("There are no organizations yet."), tr("Add the first organization"),
                       m_at.commands.mnuRecordAddNewOrganization);
    }
}
