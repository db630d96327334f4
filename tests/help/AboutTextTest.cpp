// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/AboutText.h"

#include "support/TestDatabase.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(AboutText, CountsWhatTheListsShow)
{
    TestDatabase database;
    database.run(
        "INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (1, 'None', 'ACTIVE'), "
        "(2, 'a', 'ACTIVE'), (3, 'b', 'DELETED'), (4, 'c', NULL), (5, 'd', 'SUBMITTED');"
        "INSERT INTO Event (EventID, EventName, Status) VALUES (1, 'None', 'ACTIVE'), (2, 'a', 'ACTIVE')");
    EXPECT_TRUE(AboutText::database(database.session())
                    .endsWith(u"test.sqlite<br>2 documents, 1 event, 0 organizations"_s));

    database.run("DROP TABLE Organization");
    EXPECT_TRUE(AboutText::database(database.session())
                    .endsWith(u"<br>The records cannot be counted: no such table: Organization"_s));

    DatabaseSession none;
    EXPECT_EQ(AboutText::database(none), u"No database is open."_s);
}

} // namespace
