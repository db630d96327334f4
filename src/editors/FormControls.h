// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <map>

class QPlainTextEdit;
class QWidget;

/// Acts on all controls of a form at once.
namespace FormControls {

/// Makes every control read-only, and shows what it holds as text to be read: texts can still be marked and
/// copied, lists still be scrolled.
void lock(QWidget& form);
void unlock(QWidget& form);

/// Highlights the line that would take the file held over the window, or shows it as it was.
void light(QWidget& line, bool isLit);

/// Empties texts, selections and ticks. What the drop-downs and lists offer stays.
void clear(QWidget& form);

/// Lets every line take texts of any length: what a record holds is shown and saved whole.
void takeAnyLength(QWidget& form);

/// Brings the beginning of every text into sight.
void showBeginnings(QWidget& form);

/// What a text of several lines holds. If the user did not change it, returns `stored` as it is: the field
/// knows only one kind of line end and of blank.
[[nodiscard]] QString text(const QPlainTextEdit& field, const QString& stored);

/// What each control holds, by its object name, so that a later state can be compared with an earlier one.
using State = std::map<QString, QString>;

[[nodiscard]] State state(const QWidget& form);

} // namespace FormControls
