// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/DatabaseName.h"

#include "files/ProgramFolder.h"
#include "opening/RecentDatabases.h"
#include "support/ScriptedPlatform.h"

TEST(DatabaseName, LeadsFromTheDataFolderToFilesInAndOutsideTheProgramsFolder)
{
    const QTemporaryDir place;
    const ProgramFolder home(place.path());
    writeFile(place.filePath(u"data/Old.sqlite"_s), "");
    const std::tuple<QString, QString, QString> cases[] = {
        {u"Old.sqlite"_s, place.filePath(u"data/Old.sqlite"_s), u"Old.sqlite"_s},
        {u"old.SQLITE"_s, place.filePath(u"data/Old.sqlite"_s), u"Old.sqlite"_s},
        {u"../Mine/data/a.sqlite"_s, place.filePath(u"Mine/data/a.sqlite"_s), u"../Mine/data/a.sqlite"_s},
        {u"..\\Mine\\data\\a.sqlite"_s, place.filePath(u"Mine/data/a.sqlite"_s), u"../Mine/data/a.sqlite"_s},
        {u"/disk/x.sqlite"_s, u"/disk/x.sqlite"_s, u"/disk/x.sqlite"_s},
        {QString(), place.filePath(u"data/"_s), u"."_s},
    };
    for (const auto& [name, file, again] : cases) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(DatabaseName::fileOf(home, name), file);
        EXPECT_EQ(DatabaseName::nameOf(home, file), again);
    }
    // a folder beside it whose name begins alike is outside
    const QString beside = place.path() + u"-2/data/a.sqlite"_s;
    EXPECT_EQ(DatabaseName::nameOf(home, beside), beside);
}

TEST(RecentDatabases, HaveTheOneOpenedLastFirstAndEachOnce)
{
    MemorySettings settings;
    RecentDatabases recent(settings);
    EXPECT_EQ(recent.names(), QStringList());
    for (const char* name : {"a.sqlite", "../B/data/b.sqlite", "/disk/c.sqlite", "a.sqlite"})
        recent.add(QString::fromLatin1(name));
    EXPECT_EQ(RecentDatabases(settings).names().join(u' '), u"a.sqlite /disk/c.sqlite ../B/data/b.sqlite"_s);
    recent.remove(u"/disk/c.sqlite"_s);
    EXPECT_EQ(RecentDatabases(settings).names().join(u' '), u"a.sqlite ../B/data/b.sqlite"_s);
    recent.remove(u"never there"_s);

    for (int i = 1; i <= 11; ++i)
        recent.add(QString::number(i));
    EXPECT_EQ(RecentDatabases(settings).names().join(u' '), u"11 10 9 8 7 6 5 4 3 2"_s);
    recent.add(u"5"_s);
    EXPECT_EQ(RecentDatabases(settings).names().join(u' '), u"5 11 10 9 8 7 6 4 3 2"_s);
}

TEST(RecentDatabases, AreToldApartByTheirFoldersIfTheyAreCalledAlike)
{
    EXPECT_EQ(
        RecentDatabases::captions({u"/a/data/papers.sqlite"_s, u"/b/x.y.sqlite"_s, u"/c/papers.sqlite"_s})
            .join(u'|'),
        u"papers (in /a/data)|x.y|papers (in /c)"_s);
}
