// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCursor>

/// What the left mouse button does on the map. Dragging moves the map; with ZoomIn, it draws the rectangle to
/// zoom to.
enum class MapTool
{
    Pointer,
    ZoomIn,
    ZoomOut,
    Pan
};

/// The mouse pointer of a tool, drawn for a screen of that scale.
[[nodiscard]] QCursor cursorOf(MapTool tool, bool isPressed, double devicePixelRatio);
