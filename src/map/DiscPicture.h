// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/MarkerGroups.h"

#include <QFont>
#include <QPointF>

#include <span>

class QPainter;

/// The organizations of one colour in a disc.
struct ColourShare
{
    int colour = 0; ///< index into the palette
    int organizations = 0;
};

/// The disc that stands for several markers: the number of its organizations in a ring with the shares of
/// their colours.
namespace DiscPicture {

/// Returns the font of the numbers beside texts in `font`.
[[nodiscard]] QFont fontBeside(const QFont& font);

/// Returns the sizes of discs with numbers in that font, `markerRadius` in pixels.
[[nodiscard]] DiscMetrics metricsOf(const QFont& discFont, double markerRadius);

/// Draws a disc around a point, in the painter's font. The shares go clockwise from the top.
void draw(QPainter& painter, QPointF middle, double radius, std::span<const ColourShare> shares);

} // namespace DiscPicture
