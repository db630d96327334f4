// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QPalette>

/// Colours that can be read. A desktop's settings can name some colours and leave out others, which then come
/// from a palette of the other kind: white rows under white text, dark blue links in a dark window.
namespace ReadablePalette {

/// Whether text of one colour stands out from a ground of another.
[[nodiscard]] bool canBeRead(const QColor& text, const QColor& ground);

/// The palette with other alternate rows, hints, links and tool-tips in place of those that cannot be read
/// beside its text and its ground. What can be read stays as it is, so applying it twice changes nothing
/// more.
[[nodiscard]] QPalette of(QPalette palette);

/// Sets such a palette for the application; to be called when it starts and whenever its palette changes.
void apply();

} // namespace ReadablePalette
