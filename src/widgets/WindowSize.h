// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSize>

class QWidget;
class SettingsStore;

/// Keeps the size of a dialog from one use to the next, under the dialog's object name.
namespace WindowSize {

/// Resizes the dialog to the size that it had last, or to `first`, but never to more than its screen has
/// room for.
void restore(QWidget& dialog, SettingsStore& settings, QSize first);

void save(const QWidget& dialog, SettingsStore& settings);

} // namespace WindowSize
