// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/ProgramFolder.h"

#include "files/FolderNames.h"
#include "support/Testing.h"
#include "util/Error.h"

TEST(ProgramFolder, IsChosenFromTheSurroundings)
{
    const QTemporaryDir place;
    const QString bin = place.filePath(u"bin"_s);
    QDir().mkpath(bin);
    ProgramFolder::Surroundings surroundings{QString(), bin, u"/users/data"_s};
    EXPECT_EQ(ProgramFolder::choose(surroundings), u"/users/data/orvik"_s);
    QDir().mkpath(bin + u"/data"_s);
    EXPECT_EQ(ProgramFolder::choose(surroundings), bin);
    surroundings.orvikHome = u"/elsewhere/"_s;
    EXPECT_EQ(ProgramFolder::choose(surroundings), u"/elsewhere"_s);
}

TEST(ProgramFolder, IsFilledFromTheSampleOnceAndNeverTouchedAgain)
{
    const QTemporaryDir place;
    const QString sample = place.filePath(u"sample"_s);
    const QString root = place.filePath(u"home/orvik"_s);
    writeFile(sample + u"/data/a.sqlite"_s, "rows");
    writeFile(sample + u"/data/documents/4_files/x.png"_s, "picture");
    QFile::setPermissions(sample + u"/data/a.sqlite"_s, QFile::ReadOwner);

    EXPECT_TRUE(ProgramFolder::fillFromSample(root, sample));
    EXPECT_TRUE(QFileInfo(root + u"/data/documents/4_files/x.png"_s).isFile());
    EXPECT_TRUE(QFileInfo(root + u"/data/maps"_s).isDir());
    EXPECT_TRUE(QFile::permissions(root + u"/data/a.sqlite"_s) & QFile::WriteOwner);

    writeFile(root + u"/data/a.sqlite"_s, "mine");
    EXPECT_FALSE(ProgramFolder::fillFromSample(root, sample));
    EXPECT_EQ(contentOf(root + u"/data/a.sqlite"_s), "mine");

    // without a sample the folders are made all the same; if they cannot be made, nothing is left of them
    EXPECT_FALSE(ProgramFolder::fillFromSample(place.filePath(u"bare"_s), u"/nowhere"_s));
    EXPECT_TRUE(QFileInfo(place.filePath(u"bare/data/documents"_s)).isDir());
    writeFile(place.filePath(u"file"_s), "");
    EXPECT_THROW(ProgramFolder::fillFromSample(place.filePath(u"file/orvik"_s), sample), Error);
}

TEST(ProgramFolder, IsThatOfADatabaseWhateverTheFolderAroundItIsCalled)
{
    const QTemporaryDir place;
    writeFile(place.filePath(u"installed/data/maps/states.shp"_s), "theirs");
    const ProgramFolder home(place.filePath(u"home"_s), place.filePath(u"installed"_s));
    const ProgramFolder folder = home.ofDatabase(place.filePath(u"papers/mine.sqlite"_s));
    EXPECT_EQ(folder.root(), place.path());
    EXPECT_EQ(folder.machinePath(ProgramFolders::documents), place.filePath(u"papers/documents/"_s));
    EXPECT_EQ(folder.folderPath(ProgramFolders::data), place.filePath(u"papers/"_s));
    writeFile(place.filePath(u"papers/Documents/2.pdf"_s), "x");
    EXPECT_EQ(folder.find(ProgramFolders::documents, u"2.PDF"_s),
              place.filePath(u"papers/Documents/2.pdf"_s));

    // a map of its own comes before the one that comes with the program
    EXPECT_EQ(contentOf(folder.findMap(u"states.shp"_s).value_or(QString())), "theirs");
    writeFile(place.filePath(u"papers/maps/states.shp"_s), "own");
    EXPECT_EQ(contentOf(folder.findMap(u"states.shp"_s).value_or(QString())), "own");
}

TEST(ProgramFolder, FindsFilesWhateverTheirLetterCaseAndNothingOutside)
{
    const QTemporaryDir root;
    ASSERT_TRUE(QDir(root.path()).mkpath(u"Data/Documents"_s));
    const ProgramFolder other(root.path());
    EXPECT_EQ(other.folderPath(u"\\data\\documents\\"_s), root.path() + u"/Data/Documents/"_s);
    EXPECT_EQ(other.folderPath(u"\\data\\orgcharts\\"_s), root.path() + u"/Data/orgcharts/"_s);

    const QTemporaryDir place;
    const ProgramFolder folder(place.path());
    const QString documents = u"\\data\\documents\\"_s;
    writeFile(folder.machinePath(documents) + u"Report 7.PDF"_s, "x");
    writeFile(folder.machinePath(u"\\data\\secret.txt"_s), "x");
    QDir().mkpath(folder.machinePath(documents) + u"7_files"_s);

    EXPECT_EQ(folder.machinePath(documents), place.path() + u"/data/documents/"_s);
    EXPECT_EQ(folder.find(documents, u"report 7.pdf"_s), folder.machinePath(documents) + u"Report 7.PDF"_s);
    for (const char* name :
         {"missing.pdf", "..", ".", "", "../secret.txt", "..\\secret.txt", "7_files", "C:x", "a\nb"}) {
        EXPECT_FALSE(folder.find(documents, QString::fromUtf8(name))) << name;
    }
    const FolderNames names(folder.machinePath(documents));
    EXPECT_TRUE(names.contains(u"REPORT 7.pdf"_s));
    EXPECT_FALSE(names.contains(u"7_files"_s));
    EXPECT_FALSE(FolderNames(u"/nowhere"_s).contains(u"x"_s));
}
