// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>

/// Translates the texts of this room that no window class holds.
struct PrintTexts
{
    Q_DECLARE_TR_FUNCTIONS(Print)
};
