// SPDX-License-Identifier: GPL-3.0-or-later

#include "AccessFile.h"
#include "ImportTool.h"
#include "TablePlan.h"
#include "support/Testing.h"

namespace {

using Lines = std::vector<std::vector<std::string>>;

/// Imports a changed copy of small.mdb and answers questions about the result.
class ImportVariants : public testing::Test
{
protected:
    AccessFile source{"small.mdb"};
    ToolResult result;
    TemporaryFolder folder;

    int import(const std::vector<std::string>& options = {})
    {
        writeFile(folder.path("it.mdb"), source.bytes);
        std::vector<std::string> arguments = options;
        arguments.insert(arguments.end(), {folder.path("it.mdb"), folder.path("it.sqlite")});
        result = ImportTool::run(arguments);
        return result.status;
    }

    std::string value(const std::string& query) const
    {
        SQLite::Database database(folder.path("it.sqlite"));
        return database.execAndGet(query).getString();
    }
};

} // namespace

TEST_F(ImportVariants, namesAreTakenInAnyLetterCaseAndColumnsInAnyOrder)
{
    source.renameTable("Event", "eVENT");
    source.renameColumn("Event", "StartTime", "STARTTIME");
    source.exchangeColumns("Organization", "Address1", "Address2");
    ASSERT_EQ(import(), 0) << result.error;
    EXPECT_EQ(result.summary("known"), (Lines{{"28"}}));
    EXPECT_EQ(value("SELECT count(*) FROM Event"), "120");
    const Lines tables = result.summary("table");
    EXPECT_EQ(std::count(tables.begin(), tables.end(), Lines::value_type{"eVENT", "120", "Event"}), 1);
    EXPECT_EQ(value("SELECT StartTime FROM Event WHERE EventID = 2"), "16:45");
    EXPECT_EQ(value("SELECT name FROM pragma_table_info('Event') WHERE cid = 4"), "StartTime");

    EXPECT_EQ(value("SELECT Address1 || ', ' || Address2 FROM Organization WHERE OrganizationID = 2"),
              "Suite 414, 4974 Foundry Street");
}

TEST_F(ImportVariants, unknownAndMissingTablesAndColumnsAreListedAndNothingIsLost)
{
    source.renameTable("Venue", "Halls");
    source.renameTable("EventFunctions", "SubTypesByType"); // the name of an index
    source.renameTable("EventVenues", "sqlite_orvi");       // reserved
    source.renameColumn("Event", "KeyEvent", "KeptDate");
    ASSERT_EQ(import(), 0) << result.error;
    EXPECT_EQ(result.summary("unknown-table"), (Lines{{"SubTypesByType", "SubTypesByType_IMPORTED"},
                                                      {"sqlite_orvi", "IMPORTED_sqlite_orvi"},
                                                      {"Halls", "Halls"}}));
    EXPECT_EQ(result.summary("missing-table"), (Lines{{"Venue"}, {"EventFunctions"}, {"EventVenues"}}));
    EXPECT_EQ(result.summary("unknown-column"), (Lines{{"Event", "KeptDate", "KeptDate"}}));
    EXPECT_EQ(result.summary("missing-column"), (Lines{{"Event", "KeyEvent"}}));
    EXPECT_EQ(value("SELECT count(*) FROM Halls"), "16");
    EXPECT_EQ(value("SELECT count(*) FROM Venue"), "0");
    EXPECT_EQ(value("SELECT count(*) FROM SubTypesByType_IMPORTED"), "151");
    EXPECT_EQ(value("SELECT count(*) FROM IMPORTED_sqlite_orvi"), "169");
    EXPECT_EQ(value("SELECT KeptDate || ifnull(KeyEvent, ' none') FROM Event WHERE EventID = 2"), "1 none");
    // The documents' 144 links to venues lead nowhere now.
    EXPECT_EQ(result.summary("orphans"), (Lines{{"DocumentVenues", "VenueID", "Venue", "144"},
                                                {"OrganizationVenues", "VenueID", "Venue", "56"}}));
}

TEST_F(ImportVariants, theJournalIsTheProgramsOwnWhateverTheFileHas)
{
    writeFile(folder.path("it.sqlite"), "");
    accessimport::TargetDatabase target(folder.path("it.sqlite"));
    accessimport::SourceCatalog catalog;
    catalog.tables.resize(1);
    catalog.tables[0].name = "journal";
    catalog.tables[0].columns = {{"Entry"}};
    const accessimport::ImportPlan plan = makePlan(catalog, target);
    EXPECT_EQ(std::count(plan.missingTables.begin(), plan.missingTables.end(), "Journal"), 0);
    EXPECT_EQ(plan.missingTables.size(), 28U);
    ASSERT_EQ(plan.tables.size(), 1U);
    EXPECT_FALSE(plan.tables[0].isOwn);
    EXPECT_EQ(plan.tables[0].target, "journal_IMPORTED");
}

TEST_F(ImportVariants, valuesThatAColumnCannotHoldAreKeptBesideIt)
{
    source.exchangeColumns("Event", "StartDate", "StartTime");
    ASSERT_EQ(import(), 0) << result.error;
    EXPECT_EQ(value("SELECT StartDate || ' ' || StartTime FROM Event WHERE EventID = 2"), "1899-12-30 00:00");
    EXPECT_EQ(value("SELECT Value FROM ImportedValues WHERE TableName = 'Event' AND RecordRow = 2 AND "
                    "ColumnName = 'StartTime'"),
              "2004-03-22 00:00:00");
    EXPECT_EQ(value("SELECT Value FROM ImportedValues WHERE TableName = 'Event' AND RecordRow = 2 AND "
                    "ColumnName = 'StartDate'"),
              "1899-12-30 16:45:00");
    const Lines unfit = result.summary("unfit");
    ASSERT_EQ(unfit.size(), 2U);
    EXPECT_EQ(unfit[1][3], "ImportedValues");
    EXPECT_EQ(unfit[1][2], value("SELECT count(*) FROM ImportedValues WHERE ColumnName = 'StartTime'"));
}

TEST_F(ImportVariants, rowsWithABadKeyAreKeptBesideTheTableAndReferencesToNothingInIt)
{
    source.setFirstNumber("Venue", 4, 3);
    source.clearFirstNumber("Venue", 7);
    source.setFirstNumber("DocumentEvents", 0, 30000);
    source.setFirstNumber("DocumentEvents", 1, 30000);
    ASSERT_EQ(import(), 0) << result.error;
    EXPECT_EQ(result.summary("repeated"), (Lines{{"Venue", "2", "Venue_REPEATED"}}));
    EXPECT_EQ(value("SELECT count(*) FROM Venue"), "14");
    EXPECT_EQ(value("SELECT group_concat(ifnull(VenueID, 'none')) FROM Venue_REPEATED"), "3,none");
    EXPECT_EQ(value("SELECT count(*) FROM Venue_REPEATED WHERE VenueName <> ''"), "2");
    EXPECT_EQ(result.summary("orphans").at(0),
              (Lines{{"DocumentEvents", "DocumentID", "Document", "2"}}).at(0));
    EXPECT_EQ(value("SELECT count(*) FROM DocumentEvents WHERE DocumentID = 30000"), "2");
}

TEST_F(ImportVariants, aTableWithFewerRowsThanItStatesIsDamagedUnlessItIsToBeSalvaged)
{
    source.addToStatedRows("Venue", 1);
    EXPECT_EQ(import(), 5);
    EXPECT_EQ(result.error,
              "error\tThe file is damaged: table Venue should have 17 rows, but only 16 are there.\n");
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"it.mdb"}));

    ASSERT_EQ(import({"--salvage"}), 0) << result.error;
    EXPECT_EQ(result.summary("warning"), (Lines{{"Table Venue states 17 rows, but has 16."}}));
    EXPECT_EQ(value("SELECT count(*) FROM Venue"), "16");
}

TEST_F(ImportVariants, tablesOfOtherFilesAreListedAndLostTablesAreNoticed)
{
    source.setCatalogType("Venue", 6);
    source.setCatalogType("States", 3);
    ASSERT_EQ(import(), 0) << result.error;
    EXPECT_EQ(result.summary("linked-table"), (Lines{{"Venue"}}));
    EXPECT_EQ(result.summary("missing-table"), (Lines{{"Venue"}, {"States"}}));
    EXPECT_EQ(result.summary("warning"),
              (Lines{{"70 rows in the file belong to no table that it lists; they are not imported."}}));
}

TEST_F(ImportVariants, theNewerKindOfFileIsReadTheSameWay)
{
    source.bytes.replace(4, 15, "Standard ACE DB");
    source.bytes[0x14] = 2;
    ASSERT_EQ(import(), 0) << result.error;
    EXPECT_EQ(result.summary("source"), (Lines{{"Access 2007 or later (ACE)"}}));
    EXPECT_EQ(result.summary("rows"), (Lines{{"2528"}}));
}
