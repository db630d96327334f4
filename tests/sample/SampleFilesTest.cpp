// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/CollectionCheck.h"
#include "support/Testing.h"

#include <filesystem>

namespace {

const std::filesystem::path dataFolder{ORVIK_SAMPLE_DIR "/data"};

std::string contentOf(const std::filesystem::path& path)
{
    QFile file(QString::fromStdString(path.string()));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

/// Photographs are asked for on the second disc, all others on the first.
TEST(SampleFilesTest, ACheckMissesOneFileOnEachDiscAndFindsNothingElse)
{
    CollectionCheck check(QStringLiteral(ORVIK_SAMPLE_DIR "/data/orvik-sample.sqlite"),
                          ProgramFolder(QStringLiteral(ORVIK_SAMPLE_DIR)), CheckScope::StructureAndFiles);
    while (check.step()) {
    }
    std::vector<std::string> findings;
    for (const CheckResult& result : check.results()) {
        EXPECT_TRUE(result.isDone && result.hindrance.isEmpty()) << checkName(result.topic).toStdString();
        for (const Finding& finding : result.findings)
            findings.push_back(checkName(result.topic).toStdString() + ": " + finding.text.toStdString());
    }
    const auto missing = [](const char* disc) {
        return testing::AllOf(testing::StartsWith("missing-files: Document "),
                              testing::EndsWith(std::string("It may be on the disc ") + disc + '.'));
    };
    EXPECT_THAT(findings, testing::UnorderedElementsAre(missing("Orvik"), missing("Orvik_Photos")));
}

TEST(SampleFilesTest, DocumentsAreOfEveryKindAndNoTwoAreAlike)
{
    std::map<std::string, int> filesByExtension;
    std::map<std::string, std::vector<std::filesystem::path>> filesByContent;
    for (const auto& entry : std::filesystem::directory_iterator(dataFolder / "documents")) {
        if (!entry.is_regular_file()) continue;
        ++filesByExtension[entry.path().extension().string()];
        filesByContent[contentOf(entry.path())].push_back(entry.path());
    }
    for (const char* extension : {".pdf", ".htm", ".txt", ".rtf", ".png", ".jpg", ".csv", ".wav"})
        EXPECT_GE(filesByExtension[extension], 1) << extension;
    for (const auto& [content, files] : filesByContent)
        EXPECT_EQ(files.size(), 1U) << "the same file for " << testing::PrintToString(files);
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
    for (const auto& entry : std::filesystem::directory_iterator(dataFolder / "documents")) {
        if (entry.path().extension() != ".htm") continue;
        ++pages;
        const std::string companion = entry.path().stem().string() + "_files";
        for (const char* name : {"/figure.png", "/style.css"}) {
            EXPECT_NE(contentOf(entry.path()).find('"' + companion + name + '"'), std::string::npos)
                << entry.path();
            EXPECT_FALSE(contentOf(dataFolder / "documents" / (companion + name)).empty()) << entry.path();
        }
    }
    EXPECT_GE(pages, 5);
}

TEST(SampleFilesTest, TheStatesLayerIsComplete)
{
    for (const char* extension : {"shp", "shx", "dbf", "prj"})
        EXPECT_EQ(contentOf(dataFolder / "maps" / (std::string("states.") + extension)),
                  contentOf(std::filesystem::path(ORVIK_SAMPLE_SOURCE "/maps") /
                            (std::string("states.") + extension)));
}

/// The first column of all rows of the sample, so that a failure names the culprits.
QStringList textsOf(const QString& question)
{
    const SQLite::Database database(ORVIK_SAMPLE_DIR "/data/orvik-sample.sqlite", SQLite::OPEN_READONLY);
    SQLite::Statement statement(database, question.toStdString());
    QStringList texts;
    while (statement.executeStep())
        texts << QString::fromUtf8(statement.getColumn(0).getText());
    return texts;
}

void expectAnswer(const QString& question, const QString& expected)
{
    SCOPED_TRACE(question.toStdString());
    const QString found = textsOf(question).join(u" | "_s);
    if (expected.startsWith(u"at least "))
        EXPECT_GE(found.toInt(), expected.section(u' ', 2).toInt());
    else
        EXPECT_EQ(found.toStdString(), expected == u"none" ? "" : expected.section(u' ', 1).toStdString());
}

TEST(Sample, IsLargeAndVariedEnoughAndSoundInAllItsRows)
{
    const QByteArray file = contentOf(QStringLiteral(ORVIK_SAMPLE_CASES "/Collection.sql"));
    const QStringList lines = QString::fromUtf8(file).split(u'\n');
    const std::pair<QString, QString> kinds[] = {
        {u"Document"_s, u"dStatus"_s}, {u"Event"_s, u"Status"_s}, {u"Organization"_s, u"Status"_s}};
    int questions = 0;
    for (qsizetype at = 1; at < lines.size(); ++at) {
        if (!lines[at].endsWith(u';')) continue;
        SCOPED_TRACE(lines[at - 1].toStdString());
        const QString expected = lines[at - 1].mid(3).section(u':', 0, 0);
        for (const auto& [kind, status] : kinds) {
            const QString question =
                QString(lines[at]).replace(u"[Kind]"_s, kind).replace(u"[Status]"_s, status);
            expectAnswer(question, expected);
            ++questions;
            if (question == lines[at]) break;
        }
    }
    EXPECT_GT(questions, 80);
}

} // namespace
