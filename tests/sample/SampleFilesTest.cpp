// SPDX-License-Identifier: GPL-3.0-or-later

#include <QFile>
#include <QString>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace Qt::StringLiterals;

const std::filesystem::path dataFolder{ORVIK_SAMPLE_DIR "/data"};

std::string contentOf(const std::filesystem::path& path)
{
    QFile file(QString::fromStdString(path.string()));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

/// What the database says of a document and its file.
struct StoredDocument
{
    int identifier;
    std::string fileLocation;
    std::string original;
    int fileType;
};

std::vector<StoredDocument> storedDocuments()
{
    const SQLite::Database database(dataFolder / "orvik-sample.sqlite", SQLite::OPEN_READONLY);
    SQLite::Statement statement(database,
                                "SELECT DocumentID, ifnull(FileLocation, ''), ifnull(OriginalFilename, ''), "
                                "FileTypeID FROM Document WHERE DocumentID > 1");
    std::vector<StoredDocument> documents;
    while (statement.executeStep())
        documents.push_back({statement.getColumn(0).getInt(), statement.getColumn(1).getString(),
                             statement.getColumn(2).getString(), statement.getColumn(3).getInt()});
    return documents;
}

TEST(SampleFilesTest, FilesAreNamedByTheIdentifierAndTheExtensionOfADocument)
{
    std::set<std::string> expected;
    for (const StoredDocument& document : storedDocuments()) {
        const std::string identifier = std::to_string(document.identifier);
        const std::string extension = std::filesystem::path(document.original).extension().string();
        EXPECT_EQ(document.fileLocation, extension.empty() ? "" : identifier + extension);
        expected.insert(document.fileLocation);
        if (extension == ".htm") expected.insert(identifier + "_files");
    }
    for (const auto& entry : std::filesystem::directory_iterator(dataFolder / "documents"))
        EXPECT_TRUE(expected.contains(entry.path().filename().string())) << entry.path();
}

TEST(SampleFilesTest, EveryDocumentHasAFileButOneOnEachDisc)
{
    std::map<std::string, int> filesByExtension;
    std::map<std::string, std::vector<int>> documentsByContent;
    std::vector<int> missing;
    for (const StoredDocument& document : storedDocuments()) {
        const auto path = dataFolder / "documents" / document.fileLocation;
        if (!std::filesystem::is_regular_file(path)) {
            missing.push_back(document.fileType);
            continue;
        }
        ++filesByExtension[path.extension().string()];
        documentsByContent[contentOf(path)].push_back(document.identifier);
    }
    // photographs (file type 6) are asked for on the second disc, all others on the first
    EXPECT_THAT(missing, testing::UnorderedElementsAre(6, testing::Ne(6)));
    for (const char* extension : {".pdf", ".htm", ".txt", ".rtf", ".png", ".jpg", ".csv", ".wav"})
        EXPECT_GE(filesByExtension[extension], 1) << extension;
    for (const auto& [content, documents] : documentsByContent)
        EXPECT_EQ(documents.size(), 1U) << "the same file for " << testing::PrintToString(documents);
}

TEST(SampleFilesTest, FilesAreWhatTheirNamesSay)
{
    const std::map<std::string, std::string> signatures{
        {".pdf", "%PDF-"}, {".png", "\x89PNG"}, {".jpg", "\xFF\xD8\xFF"},
        {".wav", "RIFF"},  {".rtf", "{\\rtf1"}, {".htm", "<!DOCTYPE html>"}};
    const QString notice = u"Summary sheet prepared for the Orvik sample collection"_s;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(dataFolder)) {
        const std::string extension = entry.path().extension().string();
        if (!entry.is_regular_file()) continue;
        const std::string content = contentOf(entry.path());
        EXPECT_FALSE(content.empty()) << entry.path();
        if (const auto signature = signatures.find(extension); signature != signatures.end()) {
            EXPECT_TRUE(content.starts_with(signature->second)) << entry.path();
        }
        // Lines break the notice apart in places.
        if (extension == ".txt" || extension == ".htm" || extension == ".csv" || extension == ".rtf") {
            EXPECT_TRUE(QString::fromStdString(content).simplified().contains(notice)) << entry.path();
        }
    }
}

TEST(SampleFilesTest, PagesShowThePicturesOfTheirCompanionFolder)
{
    int pages = 0;
    for (const StoredDocument& document : storedDocuments()) {
        const auto page = dataFolder / "documents" / document.fileLocation;
        if (!document.fileLocation.ends_with(".htm") || !std::filesystem::exists(page)) continue;
        ++pages;
        const std::string companion = std::to_string(document.identifier) + "_files";
        for (const char* name : {"/figure.png", "/style.css"}) {
            EXPECT_NE(contentOf(page).find('"' + companion + name + '"'), std::string::npos) << page;
            EXPECT_FALSE(contentOf(dataFolder / "documents" / (companion + name)).empty()) << page;
        }
    }
    EXPECT_GE(pages, 5);
}

TEST(SampleFilesTest, ChartsAreThereForTheOrganizationsThatSaySo)
{
    const SQLite::Database database(dataFolder / "orvik-sample.sqlite", SQLite::OPEN_READONLY);
    SQLite::Statement statement(database,
                                "SELECT OrganizationChart FROM OrganizationProfile WHERE ChartOption = 1");
    std::set<std::string> said;
    while (statement.executeStep())
        said.insert(statement.getColumn(0).getString());
    std::set<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(dataFolder / "orgcharts"))
        found.insert(entry.path().filename().string());
    EXPECT_EQ(found, said);
}

TEST(SampleFilesTest, TheStatesLayerIsComplete)
{
    for (const char* extension : {"shp", "shx", "dbf", "prj"})
        EXPECT_EQ(contentOf(dataFolder / "maps" / (std::string("states.") + extension)),
                  contentOf(std::filesystem::path(ORVIK_SAMPLE_SOURCE "/maps") /
                            (std::string("states.") + extension)));
}

} // namespace
