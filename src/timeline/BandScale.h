// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/TimeWindow.h"

/// Where the visible window is drawn on the band over the whole timeline, in units from the band's left edge.
struct BandBox
{
    double left = 0; ///< of the frame, which can be taken hold of however short the window is
    double right = 0;
    double windowLeft = 0; ///< of the window itself, within the frame
    double windowRight = 0;
};

/// The edges of the box that choose how much time the window shows.
enum class BandEdge
{
    Left,
    Right
};

/// The scale of the band: the whole timeline, from limit to limit, over a width in units.
class BandScale
{
public:
    BandScale() = default;
    BandScale(const TimelineLimits& limits, int width);

    [[nodiscard]] const TimelineLimits& limits() const { return m_limits; }
    [[nodiscard]] int width() const { return m_width; }

    /// The minutes of one unit; never 0.
    [[nodiscard]] double minutesPerUnit() const { return m_minutesPerUnit; }

    /// Beyond the band for moments beyond the limits, and the other way round.
    [[nodiscard]] double positionOf(Moment moment) const;
    [[nodiscard]] Moment momentAt(double position) const;

    /// The box of a window. At a coarser level it is wider, as far as the band has room.
    [[nodiscard]] BandBox boxOf(const TimeWindow& window) const;

    /// Returns the window with its edge moved: at the level whose box comes nearest to a position with that
    /// edge. The moment at the other edge stays as far as the limits allow.
    [[nodiscard]] TimeWindow withEdgeAt(const TimeWindow& window, BandEdge edge, double position) const;

    friend bool operator==(const BandScale& a, const BandScale& b) = default;

private:
    TimelineLimits m_limits;
    int m_width = 0;
    double m_minutesPerUnit = 1;
};
