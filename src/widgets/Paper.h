// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFont>
#include <QPalette>
#include <QStringList>

/// How the program writes and draws outside of its windows: dark on white.
namespace Paper {

[[nodiscard]] QPalette palette();

/// A font as it looks in a window, for painters of every resolution.
[[nodiscard]] QFont font(const QFont& window);

/// The colour of lines and texts that stand back.
inline constexpr QColor faint(112, 112, 112);

/// Breaks a text into lines of that width, in pixels of the font, at most so many; the last of them may be
/// elided.
[[nodiscard]] QStringList lines(const QString& text, const QFont& font, int width, int mostLines);

} // namespace Paper
