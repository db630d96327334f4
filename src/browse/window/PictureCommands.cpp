// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/PictureCommands.h"

#include "browse/commands/MainCommands.h"
#include "browse/window/ShownView.h"

PictureCommands::PictureCommands(const Platform& platform, const ShownView& view,
                                 const MainCommands& commands, QObject* parent)
    : QObject(parent), m_platform(platform), m_view(view)
{
    connect(commands.mnuViewCopyPicture, &QAction::triggered, this, &PictureCommands::copy);
    connect(commands.mnuViewSavePicture, &QAction::triggered, this, &PictureCommands::save);
}

void PictureCommands::copy() {}

void PictureCommands::save() {}
