#include "files/ProgramFolder.h"

#include "files/FolderNames.h"
#include "util/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

void write(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

TEST(ProgramFolder, IsChosenFromTheSurroundings)
{
    const QTemporaryDir place;
    const QString bin = place.filePath(QStringLiteral("bin"));
    QDir().mkpath(bin);
    ProgramFolder::Surroundings surroundings{QString(), bin, QStringLiteral("/users/data")};
    EXPECT_EQ(ProgramFolder::choose(surroundings), QStringLiteral("/users/data/orvik"));
    QDir().mkpath(bin + QStringLiteral("/data"));
    EXPECT_EQ(ProgramFolder::choose(surroundings), bin);
    surroundings.orvikHome = QStringLiteral("/elsewhere/");
    EXPECT_EQ(ProgramFolder::choose(surroundings), QStringLiteral("/elsewhere"));
}

TEST(ProgramFolder, IsFilledFromTheSampleOnceAndNeverTouchedAgain)
{
    const QTemporaryDir place;
    const QString sample = place.filePath(QStringLiteral("sample"));
    const QString root = place.filePath(QStringLiteral("home/orvik"));
    write(sample + QStringLiteral("/data/a.sqlite"), "rows");
    write(sample + QStringLiteral("/data/documents/4_files/x.png"), "picture");
    QFile::setPermissions(sample + QStringLiteral("/data/a.sqlite"), QFile::ReadOwner);

    EXPECT_TRUE(ProgramFolder::fillFromSample(root, sample));
    EXPECT_TRUE(QFileInfo(root + QStringLiteral("/data/documents/4_files/x.png")).isFile());
    EXPECT_TRUE(QFileInfo(root + QStringLiteral("/data/maps")).isDir());
    EXPECT_TRUE(QFile::permissions(root + QStringLiteral("/data/a.sqlite")) & QFile::WriteOwner);

    write(root + QStringLiteral("/data/a.sqlite"), "mine");
    EXPECT_FALSE(ProgramFolder::fillFromSample(root, sample));
    QFile kept(root + QStringLiteral("/data/a.sqlite"));
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), "mine");

    // no sample: the folders all the same; no place for it: an error, and nothing half made
    EXPECT_FALSE(
        ProgramFolder::fillFromSample(place.filePath(QStringLiteral("bare")), QStringLiteral("/nowhere")));
    EXPECT_TRUE(QFileInfo(place.filePath(QStringLiteral("bare/data/documents"))).isDir());
    write(place.filePath(QStringLiteral("file")), "");
    EXPECT_THROW(ProgramFolder::fillFromSample(place.filePath(QStringLiteral("file/orvik")), sample), Error);
}

TEST(ProgramFolder, PathsLeadThroughTheFoldersThatAreThere)
{
    const QTemporaryDir root;
    ASSERT_TRUE(QDir(root.path()).mkpath(QStringLiteral("Data/Documents")));
    const ProgramFolder folder(root.path());
    EXPECT_EQ(folder.folderPath(QStringLiteral("\\data\\documents\\")),
              root.path() + QStringLiteral("/Data/Documents/"));
    EXPECT_EQ(folder.folderPath(QStringLiteral("\\data\\orgcharts\\")),
              root.path() + QStringLiteral("/Data/orgcharts/"));
}

TEST(ProgramFolder, FindsFilesWhateverTheirLetterCaseAndNothingOutside)
{
    const QTemporaryDir place;
    const ProgramFolder folder(place.path());
    const QString documents = QStringLiteral("\\data\\documents\\");
    write(folder.machinePath(documents) + QStringLiteral("Report 7.PDF"), "x");
    write(folder.machinePath(QStringLiteral("\\data\\secret.txt")), "x");
    QDir().mkpath(folder.machinePath(documents) + QStringLiteral("7_files"));

    EXPECT_EQ(folder.machinePath(documents), place.path() + QStringLiteral("/data/documents/"));
    EXPECT_EQ(folder.find(documents, QStringLiteral("report 7.pdf")),
              folder.machinePath(documents) + QStringLiteral("Report 7.PDF"));
    for (const char* name :
         {"missing.pdf", "..", ".", "", "../secret.txt", "..\\secret.txt", "7_files", "C:x", "a\nb"}) {
        EXPECT_FALSE(folder.find(documents, QString::fromUtf8(name))) << name;
    }
    const FolderNames names(folder.machinePath(documents));
    EXPECT_TRUE(names.contains(QStringLiteral("REPORT 7.pdf")));
    EXPECT_FALSE(names.contains(QStringLiteral("7_files")));
    EXPECT_FALSE(FolderNames(QStringLiteral("/nowhere")).contains(QStringLiteral("x")));
}

} // namespace
