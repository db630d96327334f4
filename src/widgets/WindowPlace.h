#pragma once

class QWidget;
class SettingsStore;

/// Where a window stands and how large it is, from one run to the next.
namespace WindowPlace {

/// Gives a window that is not shown yet its place of the last run, moved and shrunk to where there is a
/// screen now; false where there is none written down.
bool restore(QWidget& window, SettingsStore& settings);

void save(const QWidget& window, SettingsStore& settings);

} // namespace WindowPlace
