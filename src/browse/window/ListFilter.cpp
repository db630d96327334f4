// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/ListFilter.h"

#include "browse/commands/MainCommands.h"
#include "browse/list/ListPane.h"

ListFilter::ListFilter(ViewHistory& history, ListPane& list, GraphicViews& graphics,
                       const MainCommands& commands, QObject* parent)
    : QObject(parent), m_history(history), m_list(list), m_graphics(graphics)
{
    connect(commands.mnuSearchFilter, &QAction::triggered, &m_list, &ListPane::beginFilter);
    connect(&m_list, &ListPane::filtered, this,
            [this] { Q_EMIT narrowed(RecordList::countText(m_list.kind(), m_list.count())); });
}
