// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/StatesPicture.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace {

/// Of the picture around what is in sight, in logical pixels.
constexpr double margin = 160;
const QColor stateColour(192, 192, 192);
const QColor borderColour(112, 112, 112);
const QColor nameColour(64, 64, 64);

} // namespace

void StatesPicture::setLayer(StatesLayer layer)
{
    m_layer = std::move(layer);
    forget();
}

void StatesPicture::setObstacles(std::vector<MapObstacle> obstacles)
{
    m_obstacles = std::move(obstacles);
    // many organizations stand at one place
    std::ranges::sort(m_obstacles, {}, [](const MapObstacle& obstacle) {
        return std::tuple(obstacle.place.x(), obstacle.place.y(), obstacle.radius);
    });
    m_obstacles.erase(std::unique(m_obstacles.begin(), m_obstacles.end()), m_obstacles.end());
    forget();
}

/// Returns the obstacles within the bounds of a state, in the pixels of the picture, from top to bottom.
std::vector<MapObstacle> StatesPicture::obstaclesIn(const StateShape& state, const MapPicture& frame) const
{
    std::vector<MapObstacle> found;
    const auto x = [](const MapObstacle& obstacle) { return obstacle.place.x(); };
    const auto first = std::ranges::lower_bound(m_obstacles, state.bounds.left(), {}, x);
    const auto last = std::ranges::upper_bound(m_obstacles, state.bounds.right(), {}, x);
    for (auto obstacle = first; obstacle != last; ++obstacle) {
        if (state.bounds.contains(obstacle->place))
            found.push_back({frame.toPixels(obstacle->place), obstacle->radius});
    }
    std::ranges::sort(found, {}, [](const MapObstacle& obstacle) { return obstacle.place.y(); });
    return found;
}

bool StatesPicture::covers(const QRectF& sight) const
{
    return QRectF(QPointF(), m_frame.size).contains(sight);
}

void StatesPicture::paint(QPainter& painter, const MapExtent& extent, const QPalette& palette,
                          const QFont& font)
{
    const double ratio = painter.device()->devicePixelRatioF();
    const double scale = extent.scale() / ratio;
    const QSizeF sightSize = extent.size() * ratio;
    const auto corner = [&] { return m_frame.toPixels(extent.toPlane(QPointF())).toPoint(); };
    const bool fits = !m_picture.isNull() && m_picture.devicePixelRatio() == ratio &&
                      m_frame.scale == scale && covers(QRectF(corner(), sightSize));
    if (!fits) render(extent, palette, font, ratio);
    painter.drawPixmap(QPointF(), m_picture, QRectF(corner(), sightSize));
}

void StatesPicture::render(const MapExtent& extent, const QPalette& palette, const QFont& font,
                           double devicePixelRatio)
{
    const QPointF outside(margin, margin);
    const QSize size(static_cast<int>(std::ceil((extent.size().width() + 2 * margin) * devicePixelRatio)),
                     static_cast<int>(std::ceil((extent.size().height() + 2 * margin) * devicePixelRatio)));
    m_frame = {extent.toPlane(-outside), extent.scale() / devicePixelRatio, size};
    if (m_picture.size() != size) m_picture = QPixmap(size);
    m_picture.setDevicePixelRatio(devicePixelRatio);
    m_picture.fill(palette.color(QPalette::Base));
    QPainter painter(&m_picture);
    // outlines and places of names are in device pixels
    painter.scale(1 / devicePixelRatio, 1 / devicePixelRatio);
    drawStates(painter, m_frame, devicePixelRatio, Edges::CutOff);
    drawNames(painter, m_frame, devicePixelRatio, font, Edges::CutOff);
}

void StatesPicture::draw(QPainter& painter, const MapExtent& extent, const QFont& font) const
{
    const MapPicture frame{extent.toPlane(QPointF()), extent.scale(), extent.size()};
    painter.fillRect(QRectF(QPointF(), frame.size), Qt::white);
    drawStates(painter, frame, 1, Edges::Kept);
    drawNames(painter, frame, 1, font, Edges::Kept);
}

void StatesPicture::drawStates(QPainter& painter, const MapPicture& frame, double ratio, Edges edges) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath areas;
    areas.setFillRule(Qt::OddEvenFill);
    for (const StateShape& state : m_layer.states()) {
        for (const auto& ring : outlines(state, frame, edges == Edges::Kept ? 0 : outOfSight))
            areas.addPolygon(QPolygonF(QList<QPointF>(ring.begin(), ring.end())));
    }
    areas.closeSubpath();
    QPen pen(borderColour, ratio);
    pen.setJoinStyle(Qt::BevelJoin);
    painter.fillPath(areas, stateColour);
    painter.strokePath(areas, pen);
}

void StatesPicture::drawNames(QPainter& painter, const MapPicture& frame, double ratio, const QFont& font,
                              Edges edges) const
{
    QFont small(font);
    small.setPixelSize(static_cast<int>(std::round(QFontMetricsF(font).height() * 0.72 * ratio)));
    painter.setFont(small);
    painter.setPen(nameColour);
    const QFontMetricsF metrics(small);
    for (const StateShape& state : m_layer.states()) {
        std::vector<QPointF> obstacles;
        double widest = 0;
        for (const MapObstacle& obstacle : obstaclesIn(state, frame)) {
            obstacles.push_back(obstacle.place);
            widest = std::max(widest, 2 * obstacle.radius * ratio);
        }
        for (const QString& text : {state.name, state.letters}) {
            const QSizeF size(metrics.horizontalAdvance(text) + 6 * ratio, metrics.height());
            // a text with half a marker on each side of it is clear of markers
            const QSizeF clear = size + QSizeF(widest, widest);
            const auto middle = text.isEmpty() ? std::nullopt : roomFor(state, frame, clear, obstacles);
            if (!middle) continue;
            QRectF place(QPointF(), size);
            place.moveCenter(*middle);
            if (edges == Edges::Kept && !QRectF(QPointF(), frame.size).contains(place)) continue;
            painter.drawText(place.translated(0.5, 0.5).toAlignedRect(), Qt::AlignCenter | Qt::TextDontClip,
                             text);
            break;
        }
    }
}
