// SPDX-License-Identifier: GPL-3.0-or-later

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

namespace {

using namespace Qt::StringLiterals;

/// Runs the builder on a copy of the sources that a test may spoil.
class SampleBuilderTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_folder.isValid());
        std::filesystem::copy(ORVIK_SAMPLE_SOURCE, path(u"sample"_s).toStdString(),
                              std::filesystem::copy_options::recursive);
    }

    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

    [[nodiscard]] QByteArray source(const QString& name) const
    {
        QFile file(path(u"sample/source/"_s + name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void setSource(const QString& name, const QByteArray& content) const
    {
        QFile file(path(u"sample/source/"_s + name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

    /// The builder's exit status; its messages go to m_messages.
    int build()
    {
        QProcess process;
        process.start(QStringLiteral(ORVIK_SAMPLE_BUILDER),
                      {path(u"sample"_s), QStringLiteral(ORVIK_SCHEMA), path(u"target"_s)});
        if (!process.waitForFinished(120000)) return -1;
        m_messages = process.readAllStandardError().toStdString();
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    std::string m_messages;

private:
    QTemporaryDir m_folder;
};

/// Every row of every table, as text.
std::vector<std::string> rowsOf(const std::string& path)
{
    const SQLite::Database database(path, SQLite::OPEN_READONLY);
    std::vector<std::string> rows;
    SQLite::Statement tables(database, "SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY name");
    while (tables.executeStep()) {
        const std::string table = tables.getColumn(0).getString();
        SQLite::Statement statement(database, "SELECT * FROM " + table + " ORDER BY rowid");
        while (statement.executeStep()) {
            std::string row = table;
            for (int column = 0; column < statement.getColumnCount(); ++column)
                row += '\t' +
                       (statement.isColumnNull(column) ? "NULL" : statement.getColumn(column).getString());
            rows.push_back(row);
        }
    }
    return rows;
}

TEST_F(SampleBuilderTest, TheSameSourcesGiveTheSameRows)
{
    ASSERT_EQ(build(), 0) << m_messages;
    const auto rows = rowsOf(path(u"target/data/orvik-sample.sqlite"_s).toStdString());
    EXPECT_GT(rows.size(), 3000U);
    EXPECT_EQ(rows, rowsOf(ORVIK_SAMPLE_DIR "/data/orvik-sample.sqlite"));
    EXPECT_FALSE(QFile::exists(path(u"target.part"_s)));
}

TEST_F(SampleBuilderTest, ABadRowStopsWithItsFileLineAndReason)
{
    // a file, what stands in it once, what takes its place, and the message after the file and the line
    const std::tuple<const char*, const char*, const char*, const char*> cases[]{
        {"events.tsv", "1900-09-08\t20:00", "1900-02-29\t20:00", "StartDate is not a date: \"1900-02-29\""},
        {"events.tsv", "1900-09-08\t20:00", "1900-09-08\t24:00", "StartTime is not a time: \"24:00\""},
        {"events.tsv", "1900-09-08\t20:00", "\t20:00", "a time without its date"},
        {"events.tsv", "1900-09-08\t20:00", "1900-09-10\t20:00", "the event ends before it starts"},
        {"events.tsv", "Galveston hurricane of 1900\tyes", "Galveston hurricane of 1900\tmaybe",
         "Key must be yes or no, not \"maybe\""},
        {"events.tsv", "Heppner flash flood\t", "Galveston hurricane of 1900\t",
         "the event \"Galveston hurricane of 1900\" is there already"},
        {"events.tsv", "Heppner flash flood\tno", "Heppner flash flood", "11 fields instead of 12"},
        {"events.tsv", "River Valley;Rural Area\t\tA thunderstorm", "River Valley;Moon\t\tA thunderstorm",
         "there is no venue \"Moon\""},
        {"events.tsv", "River Valley;Rural Area\t\tA thunderstorm", "River Valley;\t\tA thunderstorm",
         "Venues has an empty part"},
        {"organizations.tsv", "\tDenton\tTX\t", "\tDenton\tXX\t", "there is no state \"XX\""},
        {"organizations.tsv", "25.7543\t-80.3836", "95.7543\t-80.3836",
         "Lat is not a number from -90 to 90: \"95.7543\""},
        {"organizations.tsv", "25.7543\t-80.3836", "25.7543\t", "half of a position"},
        {"organizations.tsv", "FEMA Region 6\tFederal Agency\tRegional Office",
         "FEMA Region 6\tFederal Agency\tFire Department",
         "the sub-type Fire Department does not belong to the type"},
        {"documents.tsv", "A Failure of Initiative\tyes\tAdobe PDF",
         "A Failure of Initiative\tyes\tStone Tablet", "there is no file type \"Stone Tablet\""},
        {"documents.tsv", "deaths-associated-with-hurricane-sandy-october-summary.txt", "sandy.xls",
         "a sheet cannot be a file of the kind xls"},
        {"documents.tsv", "\tchart\ttornadoes", "\tchart\t", "the local file needs figures"},
        {"documents.tsv", "\tchart\ttornadoes", "\tchart\tdragons", "there are no figures \"dragons\""},
        {"documents.tsv", "\tmap\tvolcanoes", "\tmap\tcrests", "the figures crests have no places"},
        {"history.tsv", "2024-03-04 09:12:00\tEventDescription", "2024-03-04 09:12:00\tWeather",
         "there is no column \"Weather\""},
        {"orgcharts.tsv", "\tAdministrator\tResilience", "\tNobody\tResilience",
         "there is no unit \"Nobody\" above this one"},
        {"orgcharts.tsv", "National Weather Service\tDirector\tRegions", "Weather Office\tDirector\tRegions",
         "a chart begins with its head"},
    };
    for (const auto& [file, find, replacement, message] : cases) {
        const QString name = QString::fromLatin1(file);
        const QByteArray sound = source(name);
        const qsizetype at = sound.indexOf(find);
        ASSERT_GE(at, 0) << find;
        ASSERT_EQ(sound.indexOf(find, at + 1), -1) << find;
        setSource(name, QByteArray(sound).replace(at, qsizetype(std::strlen(find)), replacement));

        EXPECT_EQ(build(), 1) << message;
        const std::string line = std::to_string(sound.left(at).count('\n') + 1);
        EXPECT_THAT(m_messages, testing::HasSubstr(std::string(file) + ':' + line + ": " + message));
        EXPECT_FALSE(QFile::exists(path(u"target"_s)) || QFile::exists(path(u"target.part"_s))) << message;
        setSource(name, sound);
    }
}

TEST_F(SampleBuilderTest, ATextThatIsNotUtf8AndAFolderWithSomethingInItAreRefused)
{
    const QByteArray sound = source(u"events.tsv"_s);
    setSource(u"events.tsv"_s, sound + "\xE9t\xE9\n");
    EXPECT_EQ(build(), 1);
    EXPECT_THAT(m_messages, testing::HasSubstr("the file is not UTF-8"));

    setSource(u"events.tsv"_s, sound);
    ASSERT_TRUE(QDir().mkpath(path(u"target/precious"_s)));
    EXPECT_EQ(build(), 1);
    EXPECT_THAT(m_messages, testing::HasSubstr("there is something already"));
    EXPECT_TRUE(QDir(path(u"target/precious"_s)).exists());
}

} // namespace
