// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPixmap>
#include <QPointF>

#include <array>

class QPainter;

/// The markers of the map, one for each colour of the palette, drawn once for a size and a screen.
class MarkerPictures
{
public:
    /// Draws the markers anew if the diameter (in logical pixels) or the scale of the screen has changed.
    void prepare(double diameter, double devicePixelRatio);

    [[nodiscard]] const QPixmap& marker(int colour) const
    {
        return m_markers[static_cast<std::size_t>(colour)];
    }

    /// The width of a marker with the ring around it, in logical pixels.
    [[nodiscard]] double extent() const { return m_diameter + 2; }

    /// Returns one marker, as for a legend.
    static QPixmap picture(int colour, double diameter, double devicePixelRatio);

    /// Draws one marker around a point.
    static void draw(QPainter& painter, int colour, QPointF middle, double diameter);

private:
    std::array<QPixmap, 16> m_markers;
    double m_diameter = 0;
    double m_devicePixelRatio = 0;
};
