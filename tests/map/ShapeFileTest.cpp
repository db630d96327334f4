// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/ShapeFile.h"

#include "support/TestDatabase.h"

#include <cerrno>
#include <cmath>

namespace {

const char* const endings[] = {".shp", ".shx", ".dbf"};

/// The three files in a folder of their own, to be damaged.
class Files
{
public:
    Files()
    {
        for (const char* ending : endings)
            write(ending, original(ending));
    }

    static QByteArray original(const char* ending)
    {
        return contentOf(QStringLiteral(ORVIK_MAPS "/states") + QLatin1StringView(ending));
    }

    [[nodiscard]] QString path(const char* ending = ".shp") const
    {
        return m_folder.filePath(u"states"_s) + QLatin1StringView(ending);
    }

    void write(const char* ending, const QByteArray& bytes) const { writeFile(path(ending), bytes); }

    void restore(const char* ending) const { write(ending, original(ending)); }

private:
    QTemporaryDir m_folder;
};

/// Reads what may be damaged: either it is refused, or all that it gives can be drawn.
bool readsSafely(const QString& path)
{
    try {
        for (const ShapeRecord& record : ShapeFile::read(path)) {
            for (const auto& ring : record.rings) {
                for (const QPointF& point : ring)
                    EXPECT_TRUE(std::abs(point.x()) <= 180 && std::abs(point.y()) <= 90);
            }
        }
        return true;
    } catch (const Error& error) {
        EXPECT_FALSE(error.description().isEmpty());
        return false;
    }
}

TEST(ShapeFile, ReadsTheStates)
{
    const auto records = ShapeFile::read(QStringLiteral(ORVIK_MAPS "/states.shp"));
    ASSERT_EQ(records.size(), 56u);
    EXPECT_EQ(records.front().name, u"Alabama"_s);
    EXPECT_EQ(records.front().letters, u"AL"_s);
    for (const ShapeRecord& record : records)
        EXPECT_FALSE(record.rings.empty()) << record.name.toStdString();
}

TEST(ShapeFile, FindsItsFilesInAnyLetterCaseAndRefusesAMissingOne)
{
    const Files other;
    ASSERT_TRUE(QFile::rename(other.path(".shx"), other.path(".sHX")));
    ASSERT_TRUE(QFile::rename(other.path(".dbf"), other.path(".DBF")));
    EXPECT_EQ(ShapeFile::read(other.path()).size(), 56u);
    for (const char* ending : endings) {
        const Files files;
        QFile::remove(files.path(ending));
        EXPECT_EQ(errorNumberOf([&] { ShapeFile::read(files.path()); }), ENOENT) << ending;
    }
}

TEST(ShapeFile, RefusesEveryCutFile)
{
    const Files files;
    for (const char* ending : endings) {
        const QByteArray whole = Files::original(ending);
        const qsizetype step = std::max<qsizetype>(whole.size() / 150, 1);
        // the last byte of a table is only a mark of its end
        for (qsizetype size = 0; size < whole.size() - 1; size += step) {
            files.write(ending, whole.first(size));
            EXPECT_FALSE(readsSafely(files.path())) << ending << " cut at " << size;
        }
        files.restore(ending);
    }
}

TEST(ShapeFile, SurvivesFlippedBytes)
{
    const Files files;
    std::mt19937 random(20011);
    for (const char* ending : endings) {
        const QByteArray whole = Files::original(ending);
        for (int round = 0; round < 250; ++round) {
            QByteArray damaged = whole;
            // half of the damage goes to the header, on which all else depends
            const auto reach =
                static_cast<int>(round % 2 == 0 ? std::min<qsizetype>(whole.size(), 400) : whole.size());
            const int flips = 1 + round % 4;
            for (int flip = 0; flip < flips; ++flip)
                damaged[static_cast<int>(random() % static_cast<unsigned>(reach))] =
                    static_cast<char>(random());
            files.write(ending, damaged);
            readsSafely(files.path());
        }
        files.restore(ending);
    }
}

/// Each figure that a reader could trust, set to extremes.
TEST(ShapeFile, SurvivesExtremeFigures)
{
    const Files files;
    const std::tuple<const char*, int, int> figures[] = {
        {".shp", 24, 4},  {".shp", 32, 4},  {".shp", 100, 4}, {".shp", 104, 4}, {".shp", 108, 4},
        {".shp", 144, 4}, {".shp", 148, 4}, {".shp", 152, 4}, {".shp", 156, 4}, {".shp", 200, 8},
        {".shx", 24, 4},  {".shx", 32, 4},  {".shx", 100, 4}, {".shx", 104, 4}, {".shx", 540, 4},
        {".dbf", 4, 4},   {".dbf", 8, 2},   {".dbf", 10, 2},  {".dbf", 43, 1},  {".dbf", 48, 2},
        {".dbf", 64, 1},
    };
    for (const auto& [ending, at, size] : figures) {
        for (const char fill : {'\x00', '\x01', '\x7f', '\x80', '\xff'}) {
            QByteArray damaged = Files::original(ending);
            for (int i = 0; i < size; ++i)
                damaged[at + i] = fill;
            files.write(ending, damaged);
            readsSafely(files.path());
        }
        files.restore(ending);
    }
    EXPECT_TRUE(readsSafely(files.path()));
}

} // namespace
