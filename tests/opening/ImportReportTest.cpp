// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/ImportReport.h"

#include "opening/SharedFolders.h"
#include "support/Testing.h"

TEST(ImportReport, FollowsTheConversionAndSumsItUp)
{
    ImportReport report;
    EXPECT_EQ(report.take("phase\tcopying")->step, u"Copying …"_s);
    const auto progress = report.take("progress\t42\t1000\t2000\tName\\twith\\\\tab");
    EXPECT_EQ(progress->percent, 42);
    EXPECT_EQ(progress->step, u"Copying Name\twith\\tab (1000 of 2000 rows) …"_s);
    EXPECT_EQ(report.take("progress\t85\t2000\t2000\t")->percent, 85);
    for (const char* line :
         {"summary\ttables\t28", "summary\trows\t2528", "summary\tknown\t28",
          "summary\tunknown-table\tLog\tLog", "summary\tunknown-column\tEvent\tMood\tMood",
          "summary\tmissing-table\tVenue", "summary\tmissing-column\tDocument\tURL",
          "summary\thidden\tDocument\t8\t1", "summary\torphans\tEventVenues\tVenueID\tVenue\t3",
          "summary\tfuture\tthing", "noise", ""}) {
        EXPECT_FALSE(report.take(line)) << line;
    }
    EXPECT_EQ(report.text().toStdString(), "28 tables with 2528 rows were taken over and checked.\n"
                                           "Unknown, taken over as they are: Log, Event.Mood.\n"
                                           "Missing, made empty: Venue, Document.URL.\n"
                                           "Not shown in lists: Document: 8 deleted, 1 without a status.\n"
                                           "3 rows of EventVenues name a Venue that does not exist.");

    ImportReport many;
    for (int i = 1; i <= 12; ++i)
        many.take("summary\tmissing-table\tT" + QByteArray::number(i));
    EXPECT_TRUE(many.text().endsWith(u", T12."_s)) << many.text().toStdString();
    many.take("summary\tmissing-table\tLast");
    EXPECT_TRUE(many.text().contains(u": T1, "_s) && many.text().endsWith(u", T12 and 1 more."_s));
}

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
