// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/StartCommands.h"

#include "browse/list/ListPane.h"
#include "browse/window/DatabaseCommands.h"
#include "browse/window/RequestQueue.h"
#include "editors/RecordEditors.h"
#include "opening/StartRequest.h"
#include "platform/Messages.h"
#include "platform/Platform.h"
#include "platform/Procedure.h"
#include "search/SearchCommands.h"
#include "state/ProgramState.h"

StartCommands::StartCommands(const Surroundings& surroundings, QWidget& window)
    : QObject(&window),
      m_at(surroundings),
      m_requests(new RequestQueue(window, surroundings.platform.otherWindows,
                                  [this] { return m_at.list.isFilling(); }))
{
    connect(m_requests, &RequestQueue::due, this, &StartCommands::perform);
    connect(m_requests, &RequestQueue::delayed, this, &StartCommands::delayed);
}

void StartCommands::add(const StartRequest& request)
{
    m_requests->add(request);
}

void StartCommands::perform(const StartRequest& request)
{
    if (!m_at.state.session.isOpen()) return;
    if (request.readOnly && !m_at.state.session.isReadOnly()) {
        m_at.platform.messages.show(
            tr("The database is open in this window already, where it can be changed. To "
               "open it read-only, close this window first."));
    } else if (!request.readOnly && m_at.databases.isToRead()) {
        m_at.platform.messages.show(tr("The database is open in this window already, read-only. To change "
                                       "it, close this window and open the database again."));
    }
    if (!request.keywords.isEmpty()) m_at.search.searchAll(request.keywords);
    if (request.record) showRecord(*request.record);
}

void StartCommands::showRecord(const RecordReference& record)
{
    runProcedure(m_at.platform.messages, QStringLiteral("showRecord"), [&] {
        if (m_at.state.queries.has(m_at.state.session, record.kind, record.identifier)) {
            m_at.state.history.addView(m_at.state.queries.all(record.kind));
            m_at.list.select(record.identifier);
            m_at.editors.view(record.kind, record.identifier);
            return;
        }
        const QString text =
            record.kind == RecordKind::Document ? tr("There is no document %1, or it was deleted.")
            : record.kind == RecordKind::Event  ? tr("There is no event %1, or it was deleted.")
                                                : tr("There is no organization %1, or it was deleted.");
        m_at.platform.messages.show(text.arg(record.identifier));
    });
}
