// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/BandLabels.h"
#include "timeline/BandParts.h"

class QFontMetrics;
class QPainter;
class QPalette;

/// How the band over the timeline looks.
namespace BandPicture {

/// The height of a band with labels in a font, in pixels.
[[nodiscard]] int heightFor(const QFontMetrics& font);

/// Paints the columns of the parts, key events below the others, both with the square root of their numbers
/// as height; below them a line where long events run, and the labels.
void paint(QPainter& painter, const BandScale& scale, const BandParts& parts, const EventDensity& density,
           const BandLabels& labels, const QPalette& palette, int height);

/// Paints the box of the visible window over that.
void paintBox(QPainter& painter, const BandBox& box, const QPalette& palette, int height);

} // namespace BandPicture
