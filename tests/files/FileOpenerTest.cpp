// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/FileOpener.h"

#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"

namespace {

/// A program folder, and two discs that a test may put in.
class FileOpenerTest : public testing::Test
{
protected:
    void insertDataDisc() { volumes.volumes.push_back({u"Orvik"_s, disc()}); }
    void insertPhotosDisc() { volumes.volumes.push_back({u"Orvik_Photos"_s, photos()}); }
    [[nodiscard]] QString disc() const { return database.folder() + u"/disc"_s; }
    [[nodiscard]] QString photos() const { return database.folder() + u"/photos"_s; }

    void put(const char* path) const { writeFile(database.folder() + u'/' + QString::fromUtf8(path)); }

    /// A path below the test's folder, or an empty text.
    [[nodiscard]] QString inTest(const char* path) const
    {
        return *path == '\0' ? QString() : database.folder() + QString::fromUtf8(path);
    }

    FileOpener opener()
    {
        return FileOpener({volumes, shell, database.session(), folder, u"\\data\\documents\\"_s,
                           u"\\data\\orgcharts\\"_s, folders});
    }

    std::string openDoc(const char* name, const char* key)
    {
        return report(opener().openDoc(QString::fromUtf8(name), QString::fromUtf8(key)));
    }
    std::string openChart(const char* key = "Organization_cd")
    {
        return report(opener().openOrgChart(7, QString::fromUtf8(key)));
    }
    void storeChart(const char* stored)
    {
        database.run((std::string("DELETE FROM OrganizationProfile; INSERT INTO OrganizationProfile "
                                  "(OrganizationProfileID, OrganizationChart, ChartOption) VALUES (7, ") +
                      stored + ", 1)")
                         .c_str());
    }

    TestDatabase database;
    ScriptedVolumes volumes;
    ScriptedShell shell;
    ProgramFolder folder{database.folder()};
    DiscFolders folders;

private:
    /// What the user is told, what was opened and what was started, without the test's own folder.
    std::string report(const QString& message)
    {
        QString text = message;
        if (!shell.opened.isEmpty()) text += u"[opened %1]"_s.arg(shell.opened.join(u' '));
        if (!shell.started.isEmpty()) text += u"[started %1]"_s.arg(shell.started.join(u' '));
        shell.opened.clear();
        shell.started.clear();
        return text.replace(database.folder(), u"@"_s).toStdString();
    }
};

TEST_F(FileOpenerTest, TheEndingOfTheIconSaysWhereADocumentLies)
{
    put("data/documents/Report 7.pdf");
    put("disc/OrvikDB/data/documents/7.pdf");
    put("photos/OrvikDB/data/documents/7.pdf");
    insertDataDisc();
    insertPhotosDisc();
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"Report 7.pdf", "d2", "[opened @/data/documents/Report 7.pdf]"},
        {"REPORT 7.PDF", "d123", "[opened @/data/documents/Report 7.pdf]"},
        {"7.pdf", "d2", "File not found: @/data/documents/7.pdf"},
        {"7.pdf", "d2cd", "[opened @/disc/OrvikDB/data/documents/7.pdf]"},
        {"7.pdf", "d12cd", "[opened @/disc/OrvikDB/data/documents/7.pdf]"},
        {"7.pdf", "d6cd", "[opened @/photos/OrvikDB/data/documents/7.pdf]"},
        {"7.pdf", "d16cd", "[opened @/disc/OrvikDB/data/documents/7.pdf]"},
        {"7.pdf", "d61cd", "[opened @/disc/OrvikDB/data/documents/7.pdf]"},
        {"8.pdf", "d2cd", "File not found: @/disc/OrvikDB/data/documents/8.pdf"},
        {"8.jpg", "d6cd", "File not found: @/photos/OrvikDB/data/documents/8.jpg"},
        {"7.pdf", "d2ng", "Copyright permissions not granted."},
    };
    for (const auto& [name, key, expected] : cases)
        EXPECT_EQ(openDoc(name, key), expected) << key;
}

TEST_F(FileOpenerTest, EachDocumentNeedsItsOwnDisc)
{
    put("disc/OrvikDB/data/documents/7.pdf");
    put("new/orvikdb/data/documents/7.pdf");
    const std::string noData = "Unable to find the Orvik CD. Please insert the CDROM.";
    const std::string noPhotos = "Unable to find the Orvik_Photos CD. Please insert the CDROM.";
    EXPECT_EQ(openDoc("7.pdf", "d2cd"), noData);
    insertPhotosDisc();
    EXPECT_EQ(openDoc("7.pdf", "d2cd"), noData);
    volumes.volumes.clear();
    insertDataDisc();
    EXPECT_EQ(openDoc("7.pdf", "d6cd"), noPhotos);
    EXPECT_EQ(openDoc("7.pdf", "d2cd"), "[opened @/disc/OrvikDB/data/documents/7.pdf]");

    volumes.volumes.push_back({u"ORVIK"_s, database.folder() + u"/new/"_s});
    EXPECT_EQ(openDoc("7.PDF", "d2cd"), "[opened @/new/orvikdb/data/documents/7.pdf]")
        << "the later of two discs with one label, which shows its names in other letters";

    volumes.scans = 0;
    EXPECT_EQ(openDoc("7.pdf", "d2ng"), "Copyright permissions not granted.");
    EXPECT_EQ(volumes.scans, 0) << "a document that is withheld never touches a disc";
}

TEST_F(FileOpenerTest, AFolderStandsForADiscThatIsInNoDrive)
{
    put("copy/OrvikDB/data/documents/7.pdf");
    put("copy/data/viewers/Acrobat5/Windows/Reader/AcroRd32.exe");
    put("pictures/orvikdb/data/documents/7.jpg");
    put("disc/OrvikDB/data/documents/8.pdf");
    const std::string noData = "Unable to find the Orvik CD. Please insert the CDROM.";
    const std::tuple<const char*, const char*, std::string> cases[] = {
        {"", "", noData},
        {"/copy", "", "[opened @/copy/OrvikDB/data/documents/7.pdf]"},
        {"/copy/", "", "[opened @/copy/OrvikDB/data/documents/7.pdf]"},
        {"/copy/OrvikDB", "", "[opened @/copy/OrvikDB/data/documents/7.pdf]"},
        {"/gone", "", noData},
        {"/pictures", "", "File not found: @/pictures/OrvikDB/data/documents/7.pdf"},
        {"", "/copy", noData},
    };
    for (const auto& [data, photos, expected] : cases) {
        folders = {inTest(data), inTest(photos)};
        EXPECT_EQ(openDoc("7.pdf", "d2cd"), expected) << data << '|' << photos;
    }
    folders = {inTest("/copy"), inTest("/pictures/orvikdb/")};
    EXPECT_EQ(openDoc("7.jpg", "d6cd"), "[opened @/pictures/orvikdb/data/documents/7.jpg]");
    put("data/documents/9.pdf");
    shell.hasProgram = false;
    EXPECT_EQ(openDoc("9.pdf", "d2"), "[opened @/data/documents/9.pdf]"
                                      "[started @/copy/data/viewers/Acrobat5/Windows/Reader/AcroRd32.exe "
                                      "@/data/documents/9.pdf]");
    shell.hasProgram = true;
    insertDataDisc();
    EXPECT_EQ(openDoc("8.pdf", "d2cd"), "[opened @/disc/OrvikDB/data/documents/8.pdf]") << "the drive first";
}

TEST_F(FileOpenerTest, ANameThatCannotBeOneIsNotFoundAndNotLookedFor)
{
    put("secret.pdf");
    put("disc/secret.pdf");
    insertDataDisc();
    for (const char* name : {"", ".", "..", "../../secret.pdf", "..\\..\\secret.pdf", "/secret.pdf",
                             "sub/7.pdf", "C:\\7.pdf", "7\n.pdf"}) {
        for (const char* key : {"d2", "d2cd"}) {
            EXPECT_EQ(openDoc(name, key), std::string("File not found: @/data/documents/") + name) << key;
        }
    }
}

TEST_F(FileOpenerTest, WithoutAProgramForItAPdfGoesToTheReaderOfTheDisc)
{
    put("data/documents/7.PDF");
    put("data/documents/8.doc");
    shell.hasProgram = false;
    const std::string opened = "[opened @/data/documents/7.PDF]";
    const std::string noProgram = "No file association available to view files of type: PDF. Please install "
                                  "the Adobe Acrobat Reader.";
    EXPECT_EQ(openDoc("7.PDF", "d2"), noProgram + opened);
    insertDataDisc();
    EXPECT_EQ(openDoc("7.PDF", "d2"), noProgram + opened) << "a disc without the reader";
    put("disc/data/viewers/Acrobat5/Windows/Reader/AcroRd32.exe");
    const std::string started = "[started @/disc/data/viewers/Acrobat5/Windows/Reader/AcroRd32.exe "
                                "@/data/documents/7.PDF]";
    EXPECT_EQ(openDoc("7.PDF", "d2"), opened + started);
    EXPECT_EQ(openDoc("8.doc", "d3"), "No file association available to view files of type: doc."
                                      "[opened @/data/documents/8.doc]");
    shell.canStart = false;
    EXPECT_EQ(openDoc("7.PDF", "d2"), noProgram + opened + started);
}

TEST_F(FileOpenerTest, AChartIsLookedForLocallyFirstThenOnTheDataDisc)
{
    EXPECT_EQ(openChart("Organization_wc"), "No chart currently associated with this organization.");
    const std::string noDisc = "Unable to find the Orvik CD. Please insert the CDROM.";
    storeChart("'/home/user/charts.old/tree.PNG'");
    EXPECT_EQ(openChart(), noDisc);
    insertDataDisc();
    EXPECT_EQ(openChart(), "File not found: @/disc/OrvikDB/data/orgcharts/7.PNG");
    put("disc/OrvikDB/data/orgcharts/7.pdf");
    EXPECT_EQ(openChart(), "[opened @/disc/OrvikDB/data/orgcharts/7.pdf]");
    put("data/orgcharts/7.png");
    EXPECT_EQ(openChart(), "[opened @/data/orgcharts/7.png]");

    // a chart of the distribution has no stored name of its own
    storeChart("NULL");
    EXPECT_EQ(openChart(), "[opened @/disc/OrvikDB/data/orgcharts/7.pdf]");
    storeChart("'C:\\my.charts\\tree'");
    put("data/orgcharts/7.pdf");
    EXPECT_EQ(openChart(), "[opened @/data/orgcharts/7.pdf]");

    storeChart("'..\\..\\7.pdf'");
    EXPECT_EQ(openChart(), "File not found: @/data/orgcharts/..\\..\\7.pdf");
    storeChart("'7.p' || char(10) || 'df'");
    EXPECT_EQ(openChart(), "File not found: @/data/orgcharts/7.p\ndf");
}

} // namespace
