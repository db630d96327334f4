// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/ImportReport.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

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

} // namespace
