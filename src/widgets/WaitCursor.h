// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCursor>
#include <QGuiApplication>

/// Shows the wait cursor for as long as it lives.
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};
