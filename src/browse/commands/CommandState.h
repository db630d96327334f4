// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QAction;
class QString;

/// Gives a command another text in its menu, with `&` before its key, and another tool tip.
void renameCommand(QAction& command, const QString& text, const QString& toolTip);

/// Enables a command if `hindrance` is empty. Else it is a sentence that says why the command cannot be used:
/// disables the command and adds the sentence to its tool tip.
void enableUnless(QAction& command, const QString& hindrance);
