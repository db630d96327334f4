// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/StatesPicture.h"

#include "widgets/Paper.h"

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
const QColor borderColour(226, 226, 226);
const QColor nameColour(72, 72, 72);

QFont nameFont(const QFont& font, double ratio)
{
    QFont small(font);
    small.setPixelSize(static_cast<int>(std::round(QFontMetricsF(font).height() * 0.72 * ratio)));
    return small;
}

/// Draws states in the pixels of a picture. Each is filled by itself, which takes far less time than one area
/// of all of them; the borders drawn over them close the gaps.
void drawOutlines(QPainter& painter, const std::vector<const StateShape*>& states, const MapPicture& picture,
                  double ratio, double beyond)
{
    std::vector<QPainterPath> areas;
    for (const StateShape* state : states) {
        QPainterPath area;
        area.setFillRule(Qt::OddEvenFill);
        for (const auto& ring : outlines(*state, picture, beyond))
            area.addPolygon(QPolygonF(QList<QPointF>(ring.begin(), ring.end())));
        area.closeSubpath();
        painter.fillPath(area, stateColour);
        areas.push_back(std::move(area));
    }
    QPen pen(borderColour, ratio);
    pen.setJoinStyle(Qt::BevelJoin);
    for (const QPainterPath& area : areas)
        painter.strokePath(area, pen);
}

/// The room for an inset's name, in pixels of the screen.
QRectF titleRoom(const MapInset& inset)
{
    return inset.title().adjusted(4, 2, -4, 0);
}

} // namespace

void StatesPicture::setLayer(StatesLayer layer)
{
    m_layer = std::move(layer);
    forget();
}

void StatesPicture::setObstacles(std::vector<MapObstacle> obstacles)
{
    // many organizations stand at one place
    std::ranges::sort(obstacles, {}, [](const MapObstacle& obstacle) {
        return std::tuple(obstacle.place.x(), obstacle.place.y(), obstacle.radius);
    });
    obstacles.erase(std::unique(obstacles.begin(), obstacles.end()), obstacles.end());
    if (obstacles == m_obstacles) return;
    m_obstacles = std::move(obstacles);
    m_widest = 0;
    for (const MapObstacle& obstacle : m_obstacles)
        m_widest = std::max(m_widest, obstacle.radius);
    forget();
}

/// Returns the obstacles that reach into the bounds of a state, in the pixels of a frame, from top to bottom.
std::vector<MapObstacle> StatesPicture::obstaclesIn(const StateShape& state, const MapPicture& frame) const
{
    const double reach = m_widest * frame.scale;
    const QRectF bounds = state.bounds.adjusted(-reach, -reach, reach, reach);
    std::vector<MapObstacle> found;
    const auto x = [](const MapObstacle& obstacle) { return obstacle.place.x(); };
    const auto first = std::ranges::lower_bound(m_obstacles, bounds.left(), {}, x);
    const auto last = std::ranges::upper_bound(m_obstacles, bounds.right(), {}, x);
    for (auto obstacle = first; obstacle != last; ++obstacle) {
        const double y = obstacle->place.y();
        if (bounds.top() <= y && y <= bounds.bottom())
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
                      m_insets == extent.insets() && m_frame.scale == scale &&
                      covers(QRectF(corner(), sightSize));
    if (!fits) render(extent, palette, font, ratio);
    painter.drawPixmap(QPointF(), m_picture, QRectF(corner(), sightSize));
    drawNames(painter, m_names, QRectF(QPointF(corner()) / ratio, extent.size()), font);
}

void StatesPicture::render(const MapExtent& extent, const QPalette& palette, const QFont& font,
                           double devicePixelRatio)
{
    const QPointF outside(margin, margin);
    const QSize size(static_cast<int>(std::ceil((extent.size().width() + 2 * margin) * devicePixelRatio)),
                     static_cast<int>(std::ceil((extent.size().height() + 2 * margin) * devicePixelRatio)));
    m_frame = {extent.toPlane(-outside), extent.scale() / devicePixelRatio, size};
    m_insets = extent.insets();
    if (m_picture.size() != size) m_picture = QPixmap(size);
    m_picture.setDevicePixelRatio(devicePixelRatio);
    QPainter painter(&m_picture);
    // outlines are in device pixels
    painter.scale(1 / devicePixelRatio, 1 / devicePixelRatio);
    drawGround(painter, extent,
               {m_frame, devicePixelRatio, outOfSight, outside * devicePixelRatio, palette, font});
    m_names = namesOf(statesIn(extent, std::nullopt),
                      {m_frame.corner, extent.scale(), QSizeF(size) / devicePixelRatio},
                      {outside, extent.size()}, font);
}

void StatesPicture::draw(QPainter& painter, const MapExtent& extent, const QFont& font) const
{
    const MapPicture frame{extent.toPlane(QPointF()), extent.scale(), extent.size()};
    drawGround(painter, extent, {frame, 1, 0, QPointF(), Paper::palette(), font});
    const QRectF sight(QPointF(), extent.size());
    drawNames(painter, namesOf(statesIn(extent, std::nullopt), frame, sight, font), sight, font);
}

void StatesPicture::drawGround(QPainter& painter, const MapExtent& extent, const Sheet& sheet) const
{
    painter.fillRect(QRectF(QPointF(), sheet.frame.size), sheet.palette.base());
    painter.setRenderHint(QPainter::Antialiasing);
    drawOutlines(painter, statesIn(extent, std::nullopt), sheet.frame, sheet.ratio, sheet.beyond);
    for (std::size_t inset = 0; inset < extent.insets().size(); ++inset)
        drawInset(painter, extent.insets()[inset], statesIn(extent, inset), sheet);
}

/// Returns the states that an inset shows, or those that none shows.
StatesPicture::States StatesPicture::statesIn(const MapExtent& extent, std::optional<std::size_t> inset) const
{
    States found;
    for (const StateShape& state : m_layer.states()) {
        if (extent.insetOf(state.bounds.center()) == inset) found.push_back(&state);
    }
    return found;
}

/// Returns the name of an inset's state, or else its letters, at the side of the frame where it is clear of
/// markers, in pixels of the screen.
StatesPicture::PlacedName StatesPicture::titleOf(const MapInset& inset, const QFontMetricsF& metrics,
                                                 double ratio) const
{
    const QRectF room = titleRoom(inset);
    const auto isClear = [&](const QRectF& place) {
        return std::ranges::none_of(m_obstacles, [&](const MapObstacle& obstacle) {
            return inset.state().bounds.contains(obstacle.place) &&
                   touches(place, {inset.toScreen(obstacle.place), obstacle.radius});
        });
    };
    const InsetState& state = inset.state();
    std::vector<PlacedName> fitting;
    for (const QString& text : {state.name, state.letters}) {
        QRectF place(room.topLeft(), QSizeF(metrics.horizontalAdvance(text) / ratio, room.height()));
        if (place.width() > room.width()) continue;
        fitting.push_back({text, place});
        place.moveRight(room.right());
        fitting.push_back({text, place});
    }
    const auto clear =
        std::ranges::find_if(fitting, [&](const PlacedName& name) { return isClear(name.place); });
    if (clear != fitting.end()) return *clear;
    return fitting.empty() ? PlacedName{state.letters, room} : fitting.front();
}

void StatesPicture::drawInset(QPainter& painter, const MapInset& inset, const States& states,
                              const Sheet& sheet) const
{
    const double ratio = sheet.ratio;
    const auto inFrame = [&](const QRectF& screen) {
        return QRectF(screen.topLeft() * ratio + sheet.screenCorner, screen.size() * ratio);
    };
    const QRectF frame = inFrame(inset.frame());
    const QColor titleColour = sheet.palette.color(QPalette::PlaceholderText);
    QColor line = titleColour;
    line.setAlphaF(0.5F);
    painter.setPen(QPen(line, ratio));
    painter.setBrush(sheet.palette.base());
    painter.drawRect(frame.translated(ratio / 2, ratio / 2));
    painter.save();
    painter.translate(frame.topLeft());
    drawOutlines(painter, states, {inset.shown().topLeft(), inset.scale() / ratio, frame.size()}, ratio, 0);
    painter.restore();

    QFont font = nameFont(sheet.font, ratio);
    font.setPixelSize(std::min(font.pixelSize(), static_cast<int>(titleRoom(inset).height() * ratio)));
    const PlacedName title = titleOf(inset, QFontMetricsF(font), ratio);
    painter.setFont(font);
    painter.setPen(titleColour);
    painter.drawText(inFrame(title.place), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, title.text);
}

std::vector<StatesPicture::PlacedName> StatesPicture::namesOf(const States& states, const MapPicture& frame,
                                                              const QRectF& sight, const QFont& font) const
{
    const QFontMetricsF metrics(nameFont(font, 1));
    const QRectF plane(frame.corner + sight.topLeft() * frame.scale, sight.size() * frame.scale);
    std::vector<PlacedName> names;
    for (const StateShape* state : states) {
        if (!state->bounds.intersects(QRectF(frame.corner, frame.size * frame.scale))) continue;
        const std::vector<MapObstacle> obstacles = obstaclesIn(*state, frame);
        auto name = nameOf(*state, frame, metrics, obstacles);
        // a state that is partly out of sight has its name in the part that is seen
        if (state->bounds.intersects(plane) && !(name && sight.contains(name->place))) {
            const auto part = partOf(*state, plane);
            if (const auto inSight = part ? nameOf(*part, frame, metrics, obstacles) : std::nullopt)
                name = inSight;
        }
        if (name) names.push_back(*name);
    }
    return names;
}

/// Returns the name of a state, or else its letters, if there is room for it.
std::optional<StatesPicture::PlacedName> StatesPicture::nameOf(const StateShape& state,
                                                               const MapPicture& frame,
                                                               const QFontMetricsF& metrics,
                                                               const std::vector<MapObstacle>& obstacles)
{
    constexpr double spare = 6;
    for (const QString& text : {state.name, state.letters}) {
        const QSizeF size(metrics.horizontalAdvance(text) + spare, metrics.height());
        const auto middle = text.isEmpty() ? std::nullopt : roomFor(state, frame, size, obstacles);
        if (!middle) continue;
        QRectF place(QPointF(), size);
        place.moveCenter(*middle);
        return PlacedName{text, place};
    }
    return std::nullopt;
}

/// Draws the names that are whole in sight, which is at the painter's origin.
void StatesPicture::drawNames(QPainter& painter, const std::vector<PlacedName>& names, const QRectF& sight,
                              const QFont& font)
{
    painter.setFont(nameFont(font, 1));
    painter.setPen(nameColour);
    for (const PlacedName& name : names) {
        if (!sight.contains(name.place)) continue;
        painter.drawText(name.place.translated(-sight.topLeft()), Qt::AlignCenter | Qt::TextDontClip,
                         name.text);
    }
}
