// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/CollectionMaker.h"

#include "files/ProgramFolder.h"
#include "opening/DatabaseConverter.h"
#include "opening/UnfinishedCollection.h"
#include "platform/SteppedWork.h"
#include "platform/WorkRunner.h"
#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"

#include <cerrno>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Makes a copy of a database for every Access file, and works on files until the test has it stop.
class TestConverter final : public DatabaseConverter, public WorkRunner
{
public:
    explicit TestConverter(QString database) : m_database(std::move(database)) {}

    [[nodiscard]] Result convert(const QString& /*source*/, const QString& target, bool replace) override
    {
        EXPECT_FALSE(replace);
        EXPECT_TRUE(QFile::copy(m_database, target));
        Result result;
        result.end = end;
        result.report.take("summary\ttables\t28");
        result.report.take("summary\trows\t3");
        result.report.take("summary\tknown\t28");
        return result;
    }

    [[nodiscard]] bool run(SteppedWork& work) override
    {
        const bool isListing = !work.percent();
        for (int steps = 0; work.step(); ++steps) {
            if (isListing || onStep(steps)) continue;
            while (work.undoStep()) {
            }
            onUndone();
            return false;
        }
        return true;
    }

    Result::End end = Result::End::Done;
    std::function<bool(int)> onStep = [](int) { return true; }; ///< of copying; false cancels it
    std::function<void()> onUndone = [] {};

private:
    QString m_database;
};

class CollectionMakerTest : public testing::Test
{
protected:
    CollectionMakerTest()
    {
        // an Access file is known by its first bytes
        write(u"in/Mine.mdb"_s, "\0\1\0\0Standard Jet DB\0"_ba + QByteArray(40, '\0'));
        write(u"in/Documents/2.PDF"_s, "two");
        write(u"in/Documents/7_files/deep/a.gif"_s, QByteArray(5'000'000, 'x'));
        write(u"in/Documents/empty.txt"_s, "");
        write(u"in/ORGCHARTS/5.pdf"_s, "chart");
        write(u"elsewhere/secret.txt"_s, "secret");
        QFile::link(m_folder.filePath(u"elsewhere/secret.txt"_s), m_folder.filePath(u"in/Documents/9.txt"_s));
        QFile::link(m_folder.filePath(u"elsewhere"_s), m_folder.filePath(u"in/Documents/out"_s));
        QFile::link(m_folder.filePath(u"in/Documents"_s), m_folder.filePath(u"in/Documents/round"_s));
        QFile::link(m_folder.filePath(u"in/Documents/2.PDF"_s),
                    m_folder.filePath(u"in/Documents/alias.pdf"_s));
        QDir().mkpath(m_place);
        m_database.run(
            "INSERT INTO Document (DocumentID, FileLocation, dStatus) VALUES (2, '2.pdf', 'ACTIVE'), "
            "(3, 'EMPTY.TXT', 'ACTIVE'), (4, '4.doc', 'ACTIVE'), (9, '9.txt', 'ACTIVE'), "
            "(10, '../Mine.mdb', 'ACTIVE'), (11, '11.pdf', 'DELETED'), (12, '', 'ACTIVE');"
            "INSERT INTO Organization (OrganizationID, Status) VALUES (5, 'ACTIVE'), (6, 'ACTIVE'), "
            "(7, 'DELETED'), (8, 'ACTIVE');"
            "INSERT INTO OrganizationProfile (OrganizationProfileID, OrganizationChart, ChartOption) "
            "VALUES (5, 'C:\\plan.doc', 1), (6, 'x.pdf', 1), (6, 'x.pdf', 1), (7, 'x.pdf', 1), "
            "(8, '', 0)");
    }

    void write(const QString& name, const QByteArray& content) const
    {
        writeFile(m_folder.filePath(name), content);
    }

    /// All that the folder of new collections holds.
    [[nodiscard]] QString there() const
    {
        QStringList names;
        QDirIterator entries(m_place, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                             QDirIterator::Subdirectories);
        while (entries.hasNext())
            names << QDir(m_place).relativeFilePath(entries.next());
        names.sort();
        return names.join(u' ');
    }

    void expectQuestion(bool answer)
    {
        m_messages.expectQuestion(u"The folders Documents and ORGCHARTS beside Mine.mdb hold 5 files (5 MB)."
                                  "\n\nDo you want to copy them into the new collection? The originals stay "
                                  "unchanged."_s,
                                  answer);
    }

    void expectMessage(const QString& name, const QString& missing)
    {
        m_messages.expectMessage(u"The Access file Mine.mdb was converted to the database %1/%2/data/Mine."
                                 "sqlite, which the program uses from now on. The Access file is "
                                 "unchanged.\n\n28 tables with 3 rows were taken over and checked.\n%3"_s.arg(
                                     m_place, name, missing));
    }

    std::optional<QString> make()
    {
        return CollectionMaker(m_messages, m_converter, m_converter, m_home, m_place)
            .make(m_folder.filePath(u"in/Mine.mdb"_s));
    }

    const QTemporaryDir m_folder;
    const QString m_place = m_folder.filePath(u"place"_s);
    const ProgramFolder m_home{m_place};
    TestDatabase m_database;
    TestConverter m_converter{m_database.fileName()};
    ScriptedMessages m_messages;
};

TEST_F(CollectionMakerTest, BringsAlongWhatLiesBesideAndCountsWhatIsMissing)
{
    expectQuestion(true);
    expectMessage(u"Mine"_s, u"3 documents name files that are not in the folder documents.\n"
                             "1 organization has a chart that is not in the folder orgcharts."_s);
    EXPECT_EQ(make(), m_place + u"/Mine/data/Mine.sqlite"_s);
    EXPECT_EQ(there(), u"Mine Mine/data Mine/data/Mine.sqlite Mine/data/documents Mine/data/documents/2.PDF "
                       "Mine/data/documents/7_files Mine/data/documents/7_files/deep "
                       "Mine/data/documents/7_files/deep/a.gif Mine/data/documents/alias.pdf "
                       "Mine/data/documents/empty.txt Mine/data/orgcharts Mine/data/orgcharts/5.pdf"_s);
    const QString documents = m_place + u"/Mine/data/documents/"_s;
    EXPECT_EQ(contentOf(documents + u"7_files/deep/a.gif"_s), QByteArray(5'000'000, 'x'));
    EXPECT_EQ(contentOf(documents + u"alias.pdf"_s), "two");
    EXPECT_FALSE(QFileInfo(documents + u"alias.pdf"_s).isSymLink());
    EXPECT_EQ(contentOf(documents + u"empty.txt"_s), "");

    // the name is taken now, in whatever letter case
    QDir(m_place).rename(u"Mine"_s, u"mine"_s);
    expectQuestion(false);
    expectMessage(u"Mine 2"_s, u"5 documents name files that are not in the folder documents.\n"
                               "2 organizations have charts that are not in the folder orgcharts."_s);
    EXPECT_EQ(make(), m_place + u"/Mine 2/data/Mine.sqlite"_s);
    EXPECT_TRUE(QFileInfo(m_place + u"/Mine 2/data/documents"_s).isDir());
    EXPECT_FALSE(QFile::exists(m_place + u"/Mine 2/data/documents/2.PDF"_s));
}

TEST_F(CollectionMakerTest, LeavesNothingIfItIsCancelledOrFails)
{
    using End = DatabaseConverter::Result::End;
    write(u"place/kept.new/kept/mine.txt"_s, "not made by the program");
    const QString before = there();
    m_converter.onUndone = [this] { EXPECT_FALSE(there().contains(u"documents"_s)) << qPrintable(there()); };
    for (const int stopAt : {0, 1, 5, 12}) {
        SCOPED_TRACE(stopAt);
        m_converter.onStep = [stopAt](int steps) { return steps < stopAt; };
        expectQuestion(true);
        EXPECT_EQ(make(), std::nullopt);
        EXPECT_EQ(there(), before);
    }
    // a file that goes meanwhile stands for every failure of the disk
    m_converter.onStep = [this](int steps) {
        if (steps == 3) QFile::remove(m_folder.filePath(u"in/Documents/7_files/deep/a.gif"_s));
        return true;
    };
    expectQuestion(true);
    EXPECT_EQ(errorNumberOf([this] { return make(); }), ENOENT);
    EXPECT_EQ(there(), before);
    write(u"in/Documents/7_files/deep/a.gif"_s, QByteArray(5'000'000, 'x'));
    m_converter.onStep = [](int) { return true; };
    m_converter.end = End::Cancelled;
    expectQuestion(true);
    EXPECT_EQ(make(), std::nullopt);
    m_converter.end = End::Failed;
    expectQuestion(true);
    EXPECT_THROW(static_cast<void>(make()), Error);
    // a folder of that name is the program's own
    EXPECT_EQ(UnfinishedCollection(m_place, u"Data"_s).target(), m_place + u"/Data 2/data/"_s);
    EXPECT_EQ(there(), before);
}

TEST_F(CollectionMakerTest, ClearsAwayWhatAKilledProgramLeft)
{
    const pid_t killed = fork();
    if (killed == 0) {
        m_converter.onStep = [](int steps) {
            if (steps == 4) std::_Exit(0);
            return true;
        };
        expectQuestion(true);
        static_cast<void>(make());
        std::_Exit(1);
    }
    int status = -1;
    waitpid(killed, &status, 0);
    ASSERT_EQ(status, 0);
    EXPECT_TRUE(there().startsWith(u"Mine.new Mine.new/Mine Mine.new/Mine/data"_s)) << qPrintable(there());

    expectQuestion(false);
    expectMessage(u"Mine"_s, u"5 documents name files that are not in the folder documents.\n"
                             "2 organizations have charts that are not in the folder orgcharts."_s);
    EXPECT_EQ(make(), m_place + u"/Mine/data/Mine.sqlite"_s);
    EXPECT_EQ(there(), u"Mine Mine/data Mine/data/Mine.sqlite Mine/data/documents Mine/data/orgcharts"_s);
}

} // namespace
