// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/Testing.h"

#include <filesystem>

namespace {

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
        return contentOf(path(u"sample/source/"_s + name));
    }

    void setSource(const QString& name, const QByteArray& content) const
    {
        writeFile(path(u"sample/source/"_s + name), content);
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
    const QStringList cases = QString::fromUtf8(contentOf(QStringLiteral(ORVIK_SAMPLE_CASES "/BadRows.txt")))
                                  .replace(u"\\t"_s, u"\t"_s)
                                  .split(u'\n', Qt::SkipEmptyParts);
    ASSERT_GT(cases.size(), 20);
    for (const QString& each : cases) {
        if (each.startsWith(u'#')) continue;
        SCOPED_TRACE(each.toStdString());
        const QStringList fields = each.split(u" / "_s);
        ASSERT_EQ(fields.size(), 4);
        const QByteArray find = fields[1].toUtf8();
        const QByteArray sound = source(fields[0]);
        ASSERT_EQ(sound.count(find), 1);
        const qsizetype at = sound.indexOf(find);
        setSource(fields[0], QByteArray(sound).replace(at, find.size(), fields[2].toUtf8()));

        EXPECT_EQ(build(), 1);
        const QString line = QString::number(sound.left(at).count('\n') + 1);
        EXPECT_THAT(m_messages,
                    testing::HasSubstr((fields[0] + u':' + line + u": "_s + fields[3]).toStdString()));
        EXPECT_FALSE(QFile::exists(path(u"target"_s)) || QFile::exists(path(u"target.part"_s)));
        setSource(fields[0], sound);
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
