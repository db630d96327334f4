// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/RecentDatabases.h"

#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

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

} // namespace
