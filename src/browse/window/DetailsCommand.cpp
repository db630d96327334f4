// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/DetailsCommand.h"

DetailsCommand::DetailsCommand(const Platform& platform, const ShownView& view, BrowsePage& page,
                               const MainCommands& /*commands*/, QObject* parent)
    : QObject(parent), m_platform(platform), m_view(view), m_page(page)
{
}
