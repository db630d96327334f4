// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DesktopWorkRunner.h"

#include "platform/frmProgress.h"

#include <QApplication>

bool DesktopWorkRunner::run(SteppedWork& work)
{
    frmProgress window(work, QApplication::activeWindow());
    return window.run();
}
