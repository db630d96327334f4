// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/PrintCommand.h"

#include "browse/commands/MainCommands.h"
#include "browse/window/ShownView.h"

PrintCommand::PrintCommand(const Platform& platform, const ShownView& view, const MainCommands& commands,
                           QObject* parent)
    : QObject(parent), m_platform(platform), m_view(view)
{
    connect(commands.mnuRecordPrint, &QAction::triggered, this, &PrintCommand::run);
}

void PrintCommand::run() {}
