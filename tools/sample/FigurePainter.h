// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "FigureTable.h"

#include <QImage>
#include <QPolygonF>

#include <vector>

class QPainter;

/// Draws figures as pictures of 1200 by 800 pixels: as a bar chart, or as a map of the states with the
/// places of the figures. Needs a QGuiApplication and at least one font.
class FigurePainter
{
public:
    /// `statesPath` is the shapefile of the states. Throws SourceError if it cannot be read.
    explicit FigurePainter(const QString& statesPath);

    [[nodiscard]] QImage barChart(const FigureTable& figures) const;

    /// The table must have places.
    [[nodiscard]] QImage placeMap(const FigureTable& figures) const;

private:
    std::vector<QPolygonF> m_states; ///< rings; x is the longitude and y the latitude, in degrees
};
