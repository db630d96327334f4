#pragma once

#include <QCursor>

/// What the left button does on the map. With every tool, dragging moves the map, but for the one that zooms
/// in: it zooms to the rectangle that is dragged.
enum class MapTool
{
    Pointer,
    ZoomIn,
    ZoomOut,
    Pan
};

/// The mouse pointer that tells which tool is active. The screen's scale says how finely it is drawn.
[[nodiscard]] QCursor cursorOf(MapTool tool, bool isPressed, double devicePixelRatio);
