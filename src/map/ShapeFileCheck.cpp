// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/ShapeFileCheck.h"

#include "map/MapTexts.h"
#include "util/Error.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <cerrno>

namespace {

using ShapeFileCheck::Bytes;

constexpr qint64 largestFile = qint64{64} * 1024 * 1024;
constexpr int mostRecords = 10000;
constexpr int mostVertices = 4'000'000;

constexpr qint64 headerSize = 100;
constexpr qint64 indexEntrySize = 8;
constexpr qint64 recordHeaderSize = 8;
constexpr qint64 countsEnd = 44; ///< of a polygon: its type, its bounds and its two counts
constexpr qint32 fileCode = 9994;

qint64 sizeOf(const Bytes& bytes)
{
    return static_cast<qint64>(bytes.size());
}

qint32 big(const Bytes& bytes, qint64 at)
{
    return qFromBigEndian<qint32>(bytes.data() + at);
}

qint32 little(const Bytes& bytes, qint64 at)
{
    return qFromLittleEndian<qint32>(bytes.data() + at);
}

bool holdsPolygons(qint32 shapeType)
{
    return shapeType == 5 || shapeType == 15 || shapeType == 25;
}

void checkHeader(const Bytes& bytes, const QString& which)
{
    if (sizeOf(bytes) < headerSize || big(bytes, 0) != fileCode) {
        ShapeFileCheck::refuse(MapTexts::tr("The %1 file is not one of shapes.").arg(which));
    }
    if (!holdsPolygons(little(bytes, 32))) {
        ShapeFileCheck::refuse(MapTexts::tr("The %1 file holds no polygons.").arg(which));
    }
    // the length is in words of two bytes
    if (qint64{big(bytes, 24)} * 2 != sizeOf(bytes)) {
        ShapeFileCheck::refuse(MapTexts::tr("The %1 file is not as long as it says.").arg(which));
    }
}

/// Checks one record against the size of the file and of itself, and returns its number of vertices.
int checkRecord(const Bytes& shapes, qint64 begin, qint64 length)
{
    if (begin < headerSize || length < 4 || begin + recordHeaderSize + length > sizeOf(shapes)) {
        ShapeFileCheck::refuse(MapTexts::tr("The index leads out of the shapes."));
    }
    const qint64 content = begin + recordHeaderSize;
    if (big(shapes, begin + 4) * qint64{2} != length) {
        ShapeFileCheck::refuse(MapTexts::tr("Index and shapes do not agree."));
    }
    const qint32 shapeType = little(shapes, content);
    if (shapeType == 0) return 0;
    if (!holdsPolygons(shapeType) || length < countsEnd) {
        ShapeFileCheck::refuse(MapTexts::tr("A record is no polygon."));
    }
    const qint64 parts = little(shapes, content + 36);
    const qint64 vertices = little(shapes, content + 40);
    if (parts < 0 || vertices < 0 || countsEnd + 4 * parts + 16 * vertices > length) {
        ShapeFileCheck::refuse(MapTexts::tr("A polygon is longer than its record."));
    }
    return static_cast<int>(vertices);
}

} // namespace

void ShapeFileCheck::refuse(const QString& reason)
{
    throw Error(EILSEQ, MapTexts::tr("The map of the states is damaged. %1").arg(reason));
}

ShapeFileCheck::Bytes ShapeFileCheck::load(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        throw Error(file.error() == QFileDevice::PermissionsError ? EACCES : ENOENT,
                    MapTexts::tr("The map of the states cannot be read. (%1)").arg(fileName));
    }
    if (file.size() > largestFile) refuse(MapTexts::tr("A file of it is too large."));
    Bytes bytes(static_cast<std::size_t>(file.size()));
    const qint64 taken = file.read(bytes.data(), sizeOf(bytes));
    bytes.resize(static_cast<std::size_t>(std::max<qint64>(taken, 0)));
    return bytes;
}

int ShapeFileCheck::countShapes(const Bytes& shapes, const Bytes& index)
{
    checkHeader(shapes, QStringLiteral(".shp"));
    checkHeader(index, QStringLiteral(".shx"));
    const qint64 records = (sizeOf(index) - headerSize) / indexEntrySize;
    if (records > mostRecords) refuse(MapTexts::tr("It has too many records."));
    qint64 vertices = 0;
    for (qint64 record = 0; record < records; ++record) {
        const qint64 entry = headerSize + record * indexEntrySize;
        vertices += checkRecord(shapes, qint64{big(index, entry)} * 2, qint64{big(index, entry + 4)} * 2);
    }
    if (vertices > mostVertices) refuse(MapTexts::tr("It has too many vertices."));
    return static_cast<int>(records);
}

int ShapeFileCheck::countRows(const Bytes& table)
{
    constexpr qint64 fixedPart = 32;
    constexpr qint64 fieldSize = 32;
    constexpr char endOfFields = 0x0D;
    if (sizeOf(table) <= fixedPart) refuse(MapTexts::tr("The .dbf file is too short."));
    const qint32 rows = little(table, 4);
    const auto header = qFromLittleEndian<quint16>(table.data() + 8);
    const auto rowLength = qFromLittleEndian<quint16>(table.data() + 10);
    if (rows < 0 || rows > mostRecords || header <= fixedPart ||
        header + qint64{rows} * rowLength > sizeOf(table)) {
        refuse(MapTexts::tr("The .dbf file is shorter than it says."));
    }
    qint64 fields = 1; // the mark of a deleted row
    for (qint64 at = fixedPart;
         at + fieldSize <= header && table[static_cast<std::size_t>(at)] != endOfFields; at += fieldSize) {
        fields += static_cast<quint8>(table[static_cast<std::size_t>(at) + 16]);
    }
    if (fields > rowLength) refuse(MapTexts::tr("The fields of the .dbf file are longer than its rows."));
    return rows;
}
