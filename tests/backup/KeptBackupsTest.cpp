// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/KeptBackups.h"

#include "backup/CollectionRestore.h"
#include "platform/SteppedWork.h"
#include "support/TestDatabase.h"

namespace {

class KeptBackupsTest : public testing::Test
{
protected:
    KeptBackupsTest() { writeFile(path(u"Rivers/data/documents/2.pdf"_s), "a report"); }

    [[nodiscard]] QString path(const QString& name) const { return m_database.folder() + u'/' + name; }
    [[nodiscard]] QStringList files() const
    {
        return QDir(m_kept.folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    TestDatabase m_database;
    ProgramFolder m_folder{path(u"Rivers"_s)};
    KeptBackups m_kept{m_folder};
};

TEST_F(KeptBackupsTest, KeepsTheNewestTenAndOneOfEachMonth)
{
    writeFile(m_kept.folder() + u"/notes 2024-01-01.txt"_s, "of the user");
    writeFile(m_kept.folder() + u"/test 2024-01-01 120000.tar.zst.part"_s, "of a program that was killed");
    for (const char* moment :
         {"2024-01-05 080000", "2024-01-31 235959", "2024-02-01 000000", "2024-02-01 000001"})
        writeFile(m_kept.folder() + u"/test %1.tar.zst"_s.arg(QLatin1String(moment)), "old");
    for (int day = 1; day <= 11; ++day)
        m_kept.add(m_database.fileName(), m_folder, QDateTime(QDate(2024, 3, day), QTime(9, 8, 7)));
    QStringList expected{u"notes 2024-01-01.txt"_s, u"test 2024-01-31 235959.tar.zst"_s,
                         u"test 2024-02-01 000001.tar.zst"_s};
    for (int day = 2; day <= 11; ++day)
        expected << u"test 2024-03-%1 090807.tar.zst"_s.arg(day, 2, 10, QChar(u'0'));
    EXPECT_EQ(files(), expected);
    const auto backups = m_kept.list();
    ASSERT_EQ(backups.size(), 12U);
    EXPECT_EQ(backups.front().made, QDateTime(QDate(2024, 3, 11), QTime(9, 8, 7)));
    EXPECT_TRUE(CollectionRestore::holdsDatabaseAlone(backups.front().file));
}

TEST_F(KeptBackupsTest, AClockThatIsPutBackRemovesNoneThatIsNew)
{
    const auto made = [&](const QString& moment) {
        writeFile(m_kept.folder() + u"/test %1.tar.zst"_s.arg(moment));
    };
    for (int day = 10; day < 25; ++day)
        made(u"2027-03-%1 120000"_s.arg(day));
    made(u"2026-03-01 120000"_s);
    made(u"2026-03-02 120000"_s);
    m_kept.tidy(QDateTime(QDate(2026, 3, 2), QTime(12, 0)));
    EXPECT_EQ(m_kept.list().size(), 17U) << "what is to come counts for nothing";
    m_kept.tidy(QDateTime(QDate(2027, 3, 24), QTime(12, 0)));
    EXPECT_EQ(m_kept.list().size(), 11U);
    EXPECT_EQ(m_kept.list().back().made.date(), QDate(2026, 3, 2)) << "the last one of its month";
}

TEST_F(KeptBackupsTest, OneThatIsGivenUpLeavesNothing)
{
    for (int steps = 0; steps < 4; ++steps) {
        const auto work = m_kept.work(m_database.fileName(), m_folder, QDateTime::currentDateTime());
        for (int i = 0; i < steps; ++i)
            ASSERT_TRUE(work->step());
        m_kept.tidy(QDateTime::currentDateTime());
        EXPECT_EQ(files().size(), 1) << "one that is being made stays";
        while (work->undoStep()) {
        }
        m_kept.tidy(QDateTime::currentDateTime());
        EXPECT_FALSE(QFileInfo::exists(m_kept.folder()));
    }
}

TEST_F(KeptBackupsTest, KnowsTheCollectionByThePlace)
{
    writeFile(path(u"lakes/orgcharts/2.pdf"_s));
    const struct
    {
        const char* backup;
        const char* data; ///< of the collection
    } cases[] = {
        {"Rivers/backups/x.tar.zst", "Rivers/data"},
        {"lakes/backups/x.tar.zst", "lakes"},
        {"Rivers/x.tar.zst", nullptr},
        {"backups/x.tar.zst", nullptr},
    };
    for (const auto& [backup, data] : cases) {
        SCOPED_TRACE(backup);
        const auto keeper = KeptBackups::keeperOf(path(QString::fromUtf8(backup)));
        ASSERT_EQ(keeper.has_value(), data != nullptr);
        if (!keeper) continue;
        EXPECT_EQ(QDir::cleanPath(keeper->machinePath(ProgramFolders::data)), path(QString::fromUtf8(data)));
        EXPECT_EQ(KeptBackups(*keeper).folder(), QFileInfo(path(QString::fromUtf8(backup))).path());
    }
}

} // namespace
