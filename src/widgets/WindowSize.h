#pragma once

#include <QSize>

class QWidget;
class SettingsStore;

/// The size of a dialog from one use to the next, kept under the dialog's object name.
namespace WindowSize {

/// Gives the dialog the size that it had last, `first` where it never had one, and in no case more than its
/// screen has room for.
void restore(QWidget& dialog, SettingsStore& settings, QSize first);

void save(const QWidget& dialog, SettingsStore& settings);

} // namespace WindowSize
