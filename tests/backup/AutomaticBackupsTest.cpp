// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/AutomaticBackups.h"

#include "support/AsPlainUser.h"
#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"

#include <sys/stat.h>

/// Whether a backup is due, by the backups there are, the last change and the time; all in local time.
TEST(AutomaticBackups, AreDueByWhatIsThere)
{
    const auto moment = [](const char* text) {
        return QDateTime::fromString(QString::fromUtf8(text), u"yyyy-MM-dd HH:mm"_s);
    };
    const struct
    {
        const char* what;
        std::vector<const char*> kept;
        const char* change;
        bool isDue;
    } cases[] = {
        {"nothing was ever changed", {}, "", false},
        {"there is none", {}, "2026-05-01 10:00", true},
        {"the newest came before", {"2026-05-09 18:00", "2026-04-01 18:00"}, "2026-05-10 10:00", true},
        {"perhaps in the same second", {"2026-05-09 18:00"}, "2026-05-09 18:00", true},
        {"the newest came after", {"2026-05-09 18:00"}, "2026-05-09 17:59", false},
        {"there is one of today", {"2026-05-10 00:01"}, "2026-05-10 10:00", false},
        {"or of later today", {"2026-05-10 23:00"}, "2026-05-10 10:00", false},
        {"those to come say nothing", {"2027-05-10 18:00", "2026-05-01 18:00"}, "2026-05-09 10:00", true},
        {"but of a change to come", {"2027-05-10 18:00"}, "2027-05-10 10:00", false},
        {"unless it came later", {"2027-05-10 18:00"}, "2027-05-11 10:00", true},
    };
    for (const auto& [what, moments, change, isDue] : cases) {
        std::vector<KeptBackups::Kept> kept;
        kept.reserve(moments.size());
        for (const char* made : moments)
            kept.push_back({{}, moment(made), 1});
        EXPECT_EQ(AutomaticBackups::isDue(kept, moment(change), moment("2026-05-10 20:00")), isDue) << what;
    }
}

TEST(AutomaticBackups, OfADamagedDatabaseDoNotPushOutTheOthers)
{
    const TestDatabase source;
    const QString database = source.folder() + u"/Rivers/data/Rivers.sqlite"_s;
    writeFile(database, contentOf(source.fileName()));
    const ProgramFolder folder(source.folder() + u"/Rivers"_s);
    ScriptedPlatform desktop;
    const AutomaticBackups backups(desktop.platform(), database, folder);
    backups.beforeChange(11);
    // a page that a copy of all pages takes along
    QByteArray content = contentOf(database);
    const qsizetype page = TestDatabase::answer(database, u"SELECT rootpage FROM sqlite_master "
                                                          "WHERE name = 'CityLocations'"_s)
                               .toInt() -
                           1;
    const qsizetype pageSize = TestDatabase::answer(database, u"PRAGMA page_size"_s).toInt();
    content.replace(page * pageSize, 100, QByteArray(100, 'x'));
    writeFile(database, content);
    desktop.clock.moment = desktop.clock.moment.addDays(1);
    desktop.messages.expectMessageBeginning(
        u"The database could not be backed up: The database is damaged. "_s);
    backups.beforeChange(11);
    ASSERT_EQ(KeptBackups(folder).list().size(), 1U);
    EXPECT_EQ(KeptBackups(folder).list().front().made, QDateTime(QDate(2005, 6, 15), QTime(12, 0)));
}

TEST(AutomaticBackups, AtTheEndSayNothingWhereNothingCanBeWritten)
{
    TestDatabase database;
    database.run(
        "INSERT INTO Journal (Number, Step, Moment, What, Kind, Identifier, UndoStep, RedoStep) VALUES "
        "(1, 1, '2005-06-14 10:00:00', 'add', 'Event', 2, 1, 0)");
    const QString data = database.folder() + u"/Rivers/data"_s;
    writeFile(data + u"/a.sqlite"_s, contentOf(database.fileName()));
    const auto allow = [](const QString& path, mode_t mode) { ASSERT_EQ(chmod(qPrintable(path), mode), 0); };
    allow(database.folder(), 0755);
    allow(data, 0777);
    allow(data + u"/a.sqlite"_s, 0666);
    const ProgramFolder folder(database.folder() + u"/Rivers"_s);
    ScriptedPlatform desktop;
    DatabaseSession session;
    const AutomaticBackups backups(desktop.platform(), data + u"/a.sqlite"_s, folder);
    for (const bool canWrite : {false, true}) {
        allow(folder.root(), canWrite ? 0777 : 0555);
        const AsPlainUser plainUser;
        session.open(data + u"/a.sqlite"_s);
        ASSERT_FALSE(session.isReadOnly());
        backups.atExit(session);
        EXPECT_EQ(KeptBackups(folder).list().size(), canWrite ? 1U : 0U);
        session.close();
    }
}
