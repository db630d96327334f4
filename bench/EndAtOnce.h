// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>

#include <cstdlib>

/// Ends the program once what is being painted is on the screen; what a start takes does not include the end.
inline void endAtOnce()
{
    QMetaObject::invokeMethod(
        qApp, [] { std::_Exit(EXIT_SUCCESS); }, Qt::QueuedConnection);
}
