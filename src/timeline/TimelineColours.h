// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>

/// The colours of the timeline that do not depend on the palette of the desktop.
namespace TimelineColours {

inline constexpr QColor event(0, 0, 128);
inline constexpr QColor selected(0, 0, 255);
inline constexpr QColor key(255, 200, 40);
inline constexpr QColor keyEdge(120, 80, 0);

} // namespace TimelineColours
