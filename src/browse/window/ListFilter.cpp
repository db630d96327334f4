// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/ListFilter.h"

ListFilter::ListFilter(ViewHistory& history, ListPane& list, GraphicViews& graphics,
                       const MainCommands& /*commands*/, QObject* parent)
    : QObject(parent), m_history(history), m_list(list), m_graphics(graphics)
{
}
