// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;
class SettingsStore;

/// Keeps the place and size of a window from one run to the next.
namespace WindowPlace {

/// Restores the place of the last run for a window that is not shown yet, moved and shrunk to fit a screen
/// that is there now; returns false if no place was stored.
bool restore(QWidget& window, SettingsStore& settings);

void save(const QWidget& window, SettingsStore& settings);

} // namespace WindowPlace
