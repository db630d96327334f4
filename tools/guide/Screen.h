// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPixmap>
#include <QStringList>

class QAbstractItemView;
class QPoint;
class QWidget;

/// What a user does with the windows of the program, and sees of them.
namespace Screen {

inline constexpr int settleMilliseconds = 400;

/// Lets the program finish what it shows.
void settle(int milliseconds = settleMilliseconds);

void click(QWidget& widget, Qt::MouseButton button, const QPoint& at);

/// A window with what pops up over it.
[[nodiscard]] QPixmap withPopup(QWidget& window, QWidget& popup);

/// The visible window of that name, or null.
[[nodiscard]] QWidget* visibleDialog(const QString& name);

/// Ticks the entries of these names in a list.
void tick(QAbstractItemView& list, const QStringList& names);

} // namespace Screen
