// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/DatabaseName.h"

#include "files/ProgramFolder.h"
#include "support/TestFiles.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

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

} // namespace
