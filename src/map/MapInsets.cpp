// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapInsets.h"

#include "map/MapProjection.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double titleHeight = 16;
/// For half of a marker, which may stand at the very edge of a state: within a frame, and beside it.
constexpr double padding = 8;
constexpr double gapBetween = 6;
constexpr int lowest = 46;

QRectF boundsOf(double west, double north, double east, double south)
{
    return {MapProjection::toPlane(west, north), MapProjection::toPlane(east, south)};
}

/// Between two longitudes, the 48 states lie north of a latitude.
struct Land
{
    double west;
    double east;
    double south;
};

constexpr std::array southernEdge{
    Land{-124.8, -122, 36.9}, Land{-122, -120, 33.2}, Land{-120, -115, 32.5}, Land{-115, -112, 31.6},
    Land{-112, -106, 31.3},   Land{-106, -105, 30.6}, Land{-105, -101, 28.9}, Land{-101, -100, 28},
    Land{-100, -97, 25.8},    Land{-97, -96, 27.9},   Land{-96, -83, 28.9},   Land{-83, -79.9, 24.5},
    Land{-79.9, -77, 32.6},   Land{-77, -75.4, 34.5}, Land{-75.4, -72, 38.9}, Land{-72, -66.9, 41},
};

/// Returns the land between the longitudes, down to its southern edge, on the screen.
QRectF onScreen(const Land& land, const QRectF& contiguous)
{
    const QRectF plane = MapProjection::contiguousStates();
    const double scale = plane.width() / contiguous.width();
    QRectF bounds = boundsOf(land.west, 49.4, land.east, land.south);
    bounds.moveTopLeft((bounds.topLeft() - plane.topLeft()) / scale + contiguous.topLeft());
    bounds.setSize(bounds.size() / scale);
    return bounds;
}

/// The frames of a height: a row from the lower left corner of `room`, the last one in its lower right
/// corner.
std::vector<QRectF> framesOf(const std::vector<InsetState>& states, double height, const QRectF& room)
{
    constexpr double narrowest = 1.25;
    constexpr double widest = 1.7;
    std::vector<QRectF> frames;
    double left = room.left();
    for (const InsetState& state : states) {
        const double shape = std::clamp(state.bounds.width() / state.bounds.height(), narrowest, widest);
        const QSizeF size(std::round(height * shape), height);
        // what lies east of the middle of the 48 stands in the east
        const bool isEastern = state.bounds.center().x() > MapProjection::contiguousStates().center().x();
        const double x = isEastern ? room.right() - size.width() : left;
        frames.emplace_back(QPointF(x, room.bottom() - height), size);
        if (!isEastern) left += size.width() + gapBetween;
    }
    return frames;
}

bool areFree(const std::vector<QRectF>& frames, const QRectF& contiguous)
{
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const QRectF around = frames[i].adjusted(-padding, -padding, padding, padding);
        const auto meets = [&](const Land& land) { return around.intersects(onScreen(land, contiguous)); };
        if (std::any_of(southernEdge.begin(), southernEdge.end(), meets)) return false;
        for (std::size_t other = i + 1; other < frames.size(); ++other) {
            if (frames[other].intersects(frames[i].adjusted(0, 0, gapBetween - 1, 0))) return false;
        }
    }
    return true;
}

} // namespace

const std::vector<InsetState>& insetStates()
{
    static const std::vector<InsetState> states{
        {QStringLiteral("Alaska"), QStringLiteral("AK"), boundsOf(-187.6, 71.5, -129.9, 51.1)},
        {QStringLiteral("Hawaii"), QStringLiteral("HI"), boundsOf(-160.6, 22.4, -154.7, 18.8)},
        {QStringLiteral("Puerto Rico"), QStringLiteral("PR"), boundsOf(-68, 18.6, -64.5, 17.6)},
    };
    return states;
}

MapInset::MapInset(InsetState state, const QRectF& frame) : m_state(std::move(state)), m_frame(frame)
{
    const QSizeF room = frame.size() - QSizeF(2 * padding, titleHeight + padding);
    m_scale = std::max(m_state.bounds.width() / room.width(), m_state.bounds.height() / room.height());
    const QPointF middle(frame.center().x(), frame.top() + titleHeight + room.height() / 2);
    m_shown = {m_state.bounds.center() + (frame.topLeft() - middle) * m_scale, frame.size() * m_scale};
}

QRectF MapInset::title() const
{
    return {m_frame.topLeft(), QSizeF(m_frame.width(), titleHeight)};
}

QPointF MapInset::toScreen(QPointF plane) const
{
    return m_frame.topLeft() + (plane - m_shown.topLeft()) / m_scale;
}

QPointF MapInset::toPlane(QPointF screen) const
{
    return m_shown.topLeft() + (screen - m_frame.topLeft()) * m_scale;
}

std::vector<MapInset> layOutInsets(const std::vector<InsetState>& states, const QRectF& contiguous,
                                   QSizeF size)
{
    constexpr double shareOfHeight = 0.42;
    // on a wide map they stand further out, on a high one further down, but with the 48
    const double aside = contiguous.width() / 4;
    const double below = contiguous.height() * shareOfHeight;
    const QRectF screen = QRectF(QPointF(), size).adjusted(gapBetween, gapBetween, -gapBetween, -gapBetween);
    // on whole pixels, frames are sharp lines
    const QRectF room = contiguous.adjusted(-aside, 0, aside, below).intersected(screen).toRect();
    for (int height = static_cast<int>(contiguous.height() * shareOfHeight); height >= lowest; --height) {
        const std::vector<QRectF> frames = framesOf(states, height, room);
        if (!areFree(frames, contiguous)) continue;
        std::vector<MapInset> insets;
        for (std::size_t i = 0; i < states.size(); ++i)
            insets.emplace_back(states[i], frames[i]);
        return insets;
    }
    return {};
}
