#include "chart/DocumentTypeCounts.h"

#include "data/StandardQueries.h"
#include "support/TestDatabase.h"

#include <gtest/gtest.h>

namespace {

QString counted(TestDatabase& database, const QString& condition = {})
{
    SQLObject query = *StandardQueries().documents;
    query.WhereClause += condition;
    QStringList lines;
    for (const DocumentTypeCount& count : countDocumentTypes(database.session(), query))
        lines << QStringLiteral("%1=%2").arg(count.name).arg(count.documents);
    return lines.join(u'|');
}

TEST(DocumentTypeCounts, CountsEachDocumentOnceForEachOfItsTypes)
{
    TestDatabase database;
    EXPECT_EQ(counted(database), QString());
    database.run(
        "INSERT INTO DocumentType VALUES (1, 'None'), (2, 'Report'), (3, 'Field Map'), (4, 'Report')");
    database.run("INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (1, 'None', 'ACTIVE'), "
                 "(2, 'a', 'ACTIVE'), (3, 'b', 'SUBMITTED'), (4, 'c', 'DELETED'), (5, 'd', 'ACTIVE'), "
                 "(6, 'e', 'ACTIVE'), (7, 'f', 'ACTIVE')");
    // a repeated link, a type 0, a document without a type, one of a type that is not known
    database.run(
        "INSERT INTO DocumentTypes (DocumentID, DocumentTypeID) VALUES (1, 2), (2, 2), (2, 2), (2, 3), "
        "(3, 2), (4, 3), (5, 0), (6, 4), (6, 1), (7, 99)");
    // venues repeat the rows of a document
    database.run("INSERT INTO DocumentVenues (DocumentID, VenueID) VALUES (2, 1), (2, 2), (2, 3)");

    EXPECT_EQ(counted(database), QStringLiteral("None=1|Report=2|Field Map=1|Report=1|=1"));
    EXPECT_EQ(counted(database, QStringLiteral(" AND VenueID IN (2,3)")),
              QStringLiteral("Report=1|Field Map=1"));
    EXPECT_EQ(counted(database, QStringLiteral(" AND Document.DocumentID = 5")), QString());
    EXPECT_NE(errorNumberOf([&] { counted(database, QStringLiteral(" AND Nothing = 1")); }), 0);
}

TEST(ReadableTypes, AreThoseOfMostDocumentsInTheirOrder)
{
    std::vector<DocumentTypeCount> counts(30000, {QString(), 1});
    for (std::size_t i = 0; i < counts.size(); ++i)
        counts[i].name = QString::number(i);
    counts[29999].documents = 7;
    counts[100].documents = 2;
    EXPECT_EQ(keepReadable(counts), 29950u);
    ASSERT_EQ(counts.size(), 50u);
    EXPECT_EQ(counts.front().name, u"0");
    EXPECT_EQ(counts[47].name, u"47") << "of those with as many, the first";
    EXPECT_EQ(counts[48].name, u"100");
    EXPECT_EQ(counts[49].name, u"29999");
    EXPECT_EQ(keepReadable(counts), 0u);
    EXPECT_EQ(counts.size(), 50u);
}

} // namespace
