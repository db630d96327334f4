// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/DatabaseFile.h"

#include "support/TestDatabase.h"

#include <QtEndian>

#include <numeric>

namespace {

/// A database whose last change another program has not finished, with all that lies beside it.
class Unfinished : public testing::Test
{
protected:
    Unfinished()
    {
        m_database.run("INSERT INTO Venue VALUES (2, 'Harbor'), (3, 'Airport')");
        QDir().mkpath(m_folder);
    }

    /// Copies the files as they lie on the disk in the middle of a change.
    void crash(const char* mode, const char* change)
    {
        SQLite::Database other(m_database.fileName().toStdString(), SQLite::OPEN_READWRITE);
        other.exec(mode);
        other.exec("PRAGMA cache_size = 1; PRAGMA cache_spill = 1");
        other.exec(change);
        for (const char* ending : {"", "-journal", "-wal"})
            QFile::copy(m_database.fileName() + QLatin1String(ending), m_source + QLatin1String(ending));
    }

    [[nodiscard]] QByteArray content() const
    {
        return contentOf(m_source) + contentOf(m_source + u"-journal"_s) + contentOf(m_source + u"-wal"_s);
    }

    [[nodiscard]] QString copiedVenues() const
    {
        DatabaseSession session;
        session.open(m_target);
        return firstColumnOf(session, u"SELECT VenueName FROM Venue"_s);
    }

    TestDatabase m_database;
    QString m_folder = m_database.folder() + u"/disc"_s;
    QString m_source = m_folder + u"/source.sqlite"_s;
    QString m_target = m_database.folder() + u"/target.sqlite"_s;
};

constexpr auto manyVenues = "BEGIN; UPDATE Venue SET VenueName = 'changed'; WITH RECURSIVE n(i) AS "
                            "(VALUES (10) UNION ALL SELECT i + 1 FROM n WHERE i < 3000) "
                            "INSERT INTO Venue SELECT i, 'a venue with a long name ' || i FROM n";

TEST_F(Unfinished, ChangesAreUndoneInTheCopyAlone)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"PRAGMA journal_mode = DELETE", manyVenues, "Harbor Airport"},
        {"PRAGMA journal_mode = WAL", "UPDATE Venue SET VenueName = 'in the log'", "in the log in the log"},
    };
    for (const auto& [mode, change, venues] : cases) {
        SCOPED_TRACE(mode);
        crash(mode, change);
        const QByteArray before = content();
        copyDatabase(m_source, m_target);
        EXPECT_EQ(copiedVenues(), QString::fromUtf8(venues));
        EXPECT_EQ(content(), before);
        EXPECT_EQ(QDir(m_database.folder()).entryList(QDir::Files).filter(u"target"_s),
                  QStringList{u"target.sqlite"_s});
        QFile::remove(m_source + u"-journal"_s);
        QFile::remove(m_source);
    }
}

TEST_F(Unfinished, AJournalThatNamesAnotherFileIsRefused)
{
    crash("PRAGMA journal_mode = DELETE", manyVenues);
    const QString named = m_folder + u"/precious.txt"_s;
    const QByteArray name = named.toUtf8();
    writeFile(named, "not to be deleted");
    const auto big = [](qint32 number) {
        number = qToBigEndian(number);
        return QByteArray(reinterpret_cast<const char*>(&number), sizeof number);
    };
    const int sum = std::accumulate(name.begin(), name.end(), 0);
    constexpr int lockPage = 0x40000000 / 4096 + 1;
    QFile journal(m_source + u"-journal"_s);
    ASSERT_TRUE(journal.open(QIODevice::Append));
    journal.write(big(lockPage) + name + big(static_cast<int>(name.size())) + big(sum) +
                  QByteArray::fromHex("d9d505f920a163d7"));
    journal.close();
    const QByteArray before = content();

    EXPECT_GT(errorNumberOf([&] { copyDatabase(m_source, m_target); }), 0);
    DatabaseSession session;
    EXPECT_GT(errorNumberOf([&] { session.open(m_source); }), 0);
    EXPECT_EQ(content(), before);
    EXPECT_EQ(contentOf(named), "not to be deleted");
    EXPECT_FALSE(QFile::exists(m_target));
}

/// Another program writes for a while: the copy waits, in steps, and is then complete.
TEST_F(Unfinished, ChangesOfAnotherProgramAreWaitedFor)
{
    SQLite::Database other(m_database.fileName().toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE; UPDATE Venue SET VenueName = 'Pier' WHERE VenueID = 2");
    DatabaseCopy copy(m_database.fileName(), m_target);
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(copy.step());
    other.exec("COMMIT");
    while (copy.step()) {
    }
    EXPECT_EQ(copiedVenues(), u"Pier Airport"_s);
}

} // namespace
