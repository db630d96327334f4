// SPDX-License-Identifier: GPL-3.0-or-later
// What an export reads, also of unusual files.

#include "export/ExportWork.h"

#include "export/ExportFormats.h"
#include "export/ExportedCollection.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Exports records into a text.
QByteArray exported(ExportedCollection& collection, const QString& format, RecordKind kind,
                    const std::vector<qint64>& identifiers)
{
    const QString file = collection.database().folder() + u"/exported"_s;
    ExportWork work(collection.session(), kind, identifiers, *exportFormat(format), {}, file);
    while (work.step()) {
    }
    return contentOf(file);
}

TEST(ExportWork, HandsOverEachRecordOnceInTheOrderThatIsAskedFor)
{
    ExportedCollection collection;
    collection.database().run(
        "UPDATE Event SET Status = 'deleted' WHERE EventID = 5;"
        "INSERT INTO Event (EventID, Status, EventDescription) WITH RECURSIVE number (n) AS (SELECT 1001 "
        "UNION "
        "ALL SELECT n + 1 FROM number WHERE n < 1700) SELECT n, 'ACTIVE', hex(zeroblob(500)) FROM number");
    std::vector<qint64> identifiers{1700, 999, 5};
    QByteArray expected("1700");
    for (qint64 each = 1001; each < 1700; ++each) {
        identifiers.push_back(each);
        expected += ' ' + QByteArray::number(each);
    }
    identifiers.push_back(1700);
    QByteArrayList found;
    for (const QByteArray& line : exported(collection, u"csv"_s, RecordKind::Event, identifiers).split('\n'))
        if (!line.isEmpty() && !line.startsWith('"')) found << line.split(',').front();
    EXPECT_EQ(found.join(' '), expected) << "one is not there, one is deleted, one is repeated";
}

TEST(ExportWork, TakesImportedFilesAsTheyAre)
{
    ExportedCollection collection;
    collection.database().run(
        "ALTER TABLE Organization DROP COLUMN Zip;"
        "ALTER TABLE Organization RENAME COLUMN Fax TO fAX;"
        "ALTER TABLE Organization ADD COLUMN \"a \"\"quoted\"\" name\";"
        "UPDATE Organization SET fAX = 'by column', \"a \"\"quoted\"\" name\" = x'00FF'");
    const QByteArray content = exported(collection, u"json"_s, RecordKind::Organization, {2, 3});
    EXPECT_EQ(content.count("\"State\":\"NY\",\"fAX\":\"by column\","), 1);
    EXPECT_EQ(content.count("\"a \\\"quoted\\\" name\":null"), 2) << "bytes are no text";
}

} // namespace
