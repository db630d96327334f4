// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/ShapeFile.h"

#include "map/MapTexts.h"
#include "map/ShapeFileCheck.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <shapefil.h>

#include <cmath>
#include <cstring>
#include <memory>

namespace {

/// Returns the path of a file whose name may differ in letter case; the path itself if there is none.
QString anyCase(const QString& path)
{
    if (QFileInfo::exists(path)) return path;
    const QString name = QFileInfo(path).fileName();
    QDirIterator entries(QFileInfo(path).path(), QDir::Files);
    while (entries.hasNext()) {
        QString entry = entries.next();
        if (entries.fileName().compare(name, Qt::CaseInsensitive) == 0) return entry;
    }
    return path;
}

QString beside(const QString& shapes, const char* ending)
{
    const QFileInfo file(shapes);
    return anyCase(file.path() + u'/' + file.completeBaseName() + QLatin1StringView(ending));
}

QFile* fileOf(SAFile file)
{
    return reinterpret_cast<QFile*>(file);
}

SAFile openFile(const char* name, const char* access)
{
    if (std::strpbrk(access, "wa+") != nullptr) return nullptr;
    auto file = std::make_unique<QFile>(anyCase(QString::fromUtf8(name)));
    if (!file->open(QIODevice::ReadOnly)) return nullptr;
    return reinterpret_cast<SAFile>(file.release());
}

SAOffset readFile(void* into, SAOffset size, SAOffset count, SAFile file)
{
    const qint64 taken = size == 0
                             ? 0
                             : fileOf(file)->read(static_cast<char*>(into),
                                                  static_cast<qint64>(size) * static_cast<qint64>(count));
    return taken <= 0 ? 0 : static_cast<SAOffset>(taken) / size;
}

SAOffset seekFile(SAFile file, SAOffset offset, int from)
{
    QFile& target = *fileOf(file);
    const qint64 base = from == SEEK_SET ? 0 : from == SEEK_CUR ? target.pos() : target.size();
    return target.seek(base + static_cast<qint64>(offset)) ? 0 : 1;
}

int closeFile(SAFile file)
{
    delete fileOf(file);
    return 0;
}

/// Files that can only be read. Errors are not printed: the results of the calls tell of them.
SAHooks quietHooks()
{
    SAHooks hooks{};
    hooks.FOpen = openFile;
    hooks.FRead = readFile;
    hooks.FWrite = [](void*, SAOffset, SAOffset, SAFile) -> SAOffset { return 0; };
    hooks.FSeek = seekFile;
    hooks.FTell = [](SAFile file) { return static_cast<SAOffset>(fileOf(file)->pos()); };
    hooks.FFlush = [](SAFile) { return 0; };
    hooks.FClose = closeFile;
    hooks.Remove = [](const char*) { return -1; };
    hooks.Error = [](const char*) {};
    hooks.Atof = [](const char* text) { return QByteArray(text).toDouble(); };
    return hooks;
}

template <auto close>
struct CloseBy
{
    template <typename Handle>
    void operator()(Handle* handle) const
    {
        close(handle);
    }
};
using OpenShapes = std::unique_ptr<SHPInfo, CloseBy<SHPClose>>;
using OpenTable = std::unique_ptr<DBFInfo, CloseBy<DBFClose>>;
using Shape = std::unique_ptr<SHPObject, CloseBy<SHPDestroyObject>>;

bool isOnEarth(double lon, double lat)
{
    return std::abs(lon) <= 180 && std::abs(lat) <= 90;
}

std::vector<std::vector<QPointF>> ringsOf(const SHPObject& shape)
{
    std::vector<std::vector<QPointF>> rings;
    for (int part = 0; part < shape.nParts; ++part) {
        const int begin = shape.panPartStart[part];
        const int end = part + 1 < shape.nParts ? shape.panPartStart[part + 1] : shape.nVertices;
        if (begin < 0 || end < begin || end > shape.nVertices) {
            ShapeFileCheck::refuse(MapTexts::tr("The parts of a polygon overlap."));
        }
        std::vector<QPointF>& ring = rings.emplace_back();
        for (int vertex = begin; vertex < end; ++vertex) {
            // also false for NaN
            if (!isOnEarth(shape.padfX[vertex], shape.padfY[vertex])) {
                ShapeFileCheck::refuse(MapTexts::tr("A border leads off the earth."));
            }
            ring.emplace_back(shape.padfX[vertex], shape.padfY[vertex]);
        }
    }
    return rings;
}

QString textOf(DBFInfo& table, int row, const char* field)
{
    const int column = DBFGetFieldIndex(&table, field);
    const char* text = column < 0 ? nullptr : DBFReadStringAttribute(&table, row, column);
    return text == nullptr ? QString() : QString::fromUtf8(text).trimmed();
}

} // namespace

std::vector<ShapeRecord> ShapeFile::read(const QString& shapes)
{
    const QString index = beside(shapes, ".shx");
    const QString table = beside(shapes, ".dbf");
    const int count = ShapeFileCheck::countShapes(ShapeFileCheck::load(shapes), ShapeFileCheck::load(index));
    if (ShapeFileCheck::countRows(ShapeFileCheck::load(table)) != count) {
        ShapeFileCheck::refuse(MapTexts::tr("Shapes and names are not as many."));
    }
    SAHooks hooks = quietHooks();
    const QByteArray path = shapes.toUtf8();
    const OpenShapes openShapes(SHPOpenLL(path.constData(), "rb", &hooks));
    const OpenTable openTable(DBFOpenLL(path.constData(), "rb", &hooks));
    if (!openShapes || !openTable) ShapeFileCheck::refuse(MapTexts::tr("It cannot be opened."));

    std::vector<ShapeRecord> records;
    for (int record = 0; record < count; ++record) {
        const Shape shape(SHPReadObject(openShapes.get(), record));
        if (!shape) ShapeFileCheck::refuse(MapTexts::tr("A shape cannot be read."));
        records.push_back({ringsOf(*shape), textOf(*openTable, record, "STATE_NAME"),
                           textOf(*openTable, record, "STATE_ABBR")});
    }
    return records;
}
