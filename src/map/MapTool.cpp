// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapTool.h"

#include <QPainter>
#include <QPixmap>

#include <numbers>
#include <utility>

namespace {

/// A magnifying glass with a plus or a minus, whose hot spot is the middle of the glass. Dark lines over
/// broader light ones can be seen on any background.
QCursor zoomCursor(bool in, double devicePixelRatio)
{
    constexpr int size = 24;
    constexpr QPointF middle(10, 10);
    constexpr double radius = 6.5;
    constexpr double sign = 3;
    QPixmap picture(QSize(size, size) * devicePixelRatio);
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const auto& [colour, width] : {std::pair(Qt::white, 4.0), std::pair(Qt::black, 2.0)}) {
        painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap));
        painter.drawEllipse(middle, radius, radius);
        painter.drawLine(middle + QPointF(radius, radius) * std::numbers::sqrt2 / 2, QPointF(21, 21));
        painter.drawLine(middle - QPointF(sign, 0), middle + QPointF(sign, 0));
        if (in) painter.drawLine(middle - QPointF(0, sign), middle + QPointF(0, sign));
    }
    painter.end();
    return QCursor(picture, static_cast<int>(middle.x()), static_cast<int>(middle.y()));
}

} // namespace

QCursor cursorOf(MapTool tool, bool isPressed, double devicePixelRatio)
{
    switch (tool) {
    case MapTool::ZoomIn:
    case MapTool::ZoomOut:
        return zoomCursor(tool == MapTool::ZoomIn, devicePixelRatio);
    case MapTool::Pan:
        return isPressed ? Qt::ClosedHandCursor : Qt::OpenHandCursor;
    case MapTool::Pointer:
        break;
    }
    return Qt::ArrowCursor;
}
