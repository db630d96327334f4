// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPointF>
#include <QString>

#include <vector>

/// A record of a shapefile: rings of longitude and latitude in degrees, and their name and letters in the
/// table beside the shapes.
struct ShapeRecord
{
    std::vector<std::vector<QPointF>> rings;
    QString name;
    QString letters;
};

/// Shapefiles of polygons with their index and their table (`.shp`, `.shx` and `.dbf`, in any letter case).
/// They come from discs and downloads, so every number in them is checked before it is used.
namespace ShapeFile {

/// Returns all records. `shapes` is the path of the `.shp` file; the other two lie beside it. Throws Error if
/// one of the three is missing, cut short or damaged.
std::vector<ShapeRecord> read(const QString& shapes);

} // namespace ShapeFile
