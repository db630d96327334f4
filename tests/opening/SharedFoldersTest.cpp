// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/SharedFolders.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(SharedFolders, TellsWhatHasMovedAndWhatHasNotInOneMessageThatStaysShort)
{
    SharedFolderSplit::Result result;
    EXPECT_EQ(SharedFolders::reportOf(result), QString());
    result.stays = u"/old/data/a.sqlite"_s;
    result.failed = {{u"/old/data/b.sqlite"_s, u"database is locked"_s}};
    const std::string failure =
        "These databases could not be moved with all their files to a folder of their own. The program tries "
        "again when it next opens a database of their folder.\n\nb.sqlite: database is locked";
    EXPECT_EQ(SharedFolders::reportOf(result).toStdString(), failure);

    result.movedFiles = 1;
    result.copiedFiles = 2;
    for (int i = 1; i <= 8; ++i)
        result.moved.push_back({u"/old/data/%1.db"_s.arg(i), u"/new/%1/data/%1.db"_s.arg(i)});
    EXPECT_EQ(SharedFolders::reportOf(result).toStdString(),
              "Several databases shared one folder, where the files of one could replace those of another. "
              "a.sqlite stays where it was; these have folders of their own now:\n\n1.db, now in "
              "/new/1\n2.db, now in /new/2\n3.db, now in /new/3\n4.db, now in /new/4\n5.db, now in "
              "/new/5\n6.db, now in /new/6\n… and 2 more.\n\n1 file was moved with them.\n2 copies were made "
              "of files that several databases use.\n\n" +
                  failure);
}

} // namespace
