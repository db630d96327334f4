#pragma once

#include <QPointF>
#include <QString>

#include <vector>

/// A record of a file of shapes: rings of longitude and latitude in degrees, and what the table beside the
/// shapes calls them.
struct ShapeRecord
{
    std::vector<std::vector<QPointF>> rings;
    QString name;
    QString letters;
};

/// Files of polygons with their index and their table (`.shp`, `.shx` and `.dbf`, in any letter case). Every
/// figure in them is checked before it is used, since such files come from discs and downloads.
namespace ShapeFile {

/// All records. `shapes` is the path of the `.shp` file; the other two lie beside it. Throws Error where one
/// of the three is missing, cut short or damaged.
std::vector<ShapeRecord> read(const QString& shapes);

} // namespace ShapeFile
