#pragma once

class QAction;
class QString;

/// Enables a command or, where something is in its way, disables it and lets its tool-tip say what.
/// `hindrance` is one sentence for the user, empty where there is none.
void enableUnless(QAction& command, const QString& hindrance);
