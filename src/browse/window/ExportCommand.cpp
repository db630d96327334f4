// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/ExportCommand.h"

#include "browse/commands/MainCommands.h"
#include "browse/window/ShownView.h"

ExportCommand::ExportCommand(const Platform& platform, const ShownView& view, const MainCommands& commands,
                             QObject* parent)
    : QObject(parent), m_platform(platform), m_view(view)
{
    connect(commands.mnuRecordExport, &QAction::triggered, this, &ExportCommand::run);
}

void ExportCommand::run() {}
