// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QDialog;
class QDialogButtonBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QString;

/// The buttons beside and below what a dialog shows, alike in all of them.
namespace DialogButtons {

/// A button of that object name, which only has a key if its text names one. It is the dialog's, and in no
/// layout yet.
[[nodiscard]] QPushButton* command(QDialog& dialog, const char* name, const QString& text,
                                   const QString& statusTip);

/// The buttons OK, which is the default, and Cancel, which rejects the dialog.
[[nodiscard]] QDialogButtonBox* okAndCancel(QDialog& dialog);

/// The label that says what came of the last command, as plain text.
[[nodiscard]] QLabel* outcome(QDialog& dialog);

/// The last row of a dialog: that label, and the button that closes the dialog.
[[nodiscard]] QHBoxLayout* closingRow(QDialog& dialog, QLabel& outcome);

} // namespace DialogButtons
