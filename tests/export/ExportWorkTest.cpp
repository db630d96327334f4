// SPDX-License-Identifier: GPL-3.0-or-later
// What an export reads, also of unusual files.

#include "export/ExportWork.h"

#include "export/ExportFormats.h"
#include "export/ExportedCollection.h"

namespace {

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

qsizetype openFiles()
{
    return QDir(u"/proc/self/fd"_s).entryList(QDir::Files | QDir::System).size();
}

TEST(UnfinishedExport, CancelledAtAnyStepLeavesWhatWasThere)
{
    ExportedCollection collection;
    for (const ExportFormat& format : exportFormats()) {
        const RecordKind kind = format.kind.value_or(RecordKind::Document);
        const QString file = collection.database().folder() + u"/cancelled"_s;
        const std::vector<qint64> identifiers = collection.identifiers(kind);
        writeFile(file, "precious");
        const QStringList before = QDir(collection.database().folder()).entryList();
        const qsizetype opened = openFiles();
        bool isDone = false;
        for (int steps = 0; !isDone && steps < 100; ++steps) {
            ExportWork work(collection.session(), kind, identifiers, format, {}, file);
            for (int step = 0; step < steps && !isDone; ++step)
                isDone = !work.step();
            while (!isDone && work.undoStep()) {
            }
            if (isDone) break;
            EXPECT_EQ(QDir(collection.database().folder()).entryList(), before)
                << format.name.toStdString() << steps;
            EXPECT_EQ(contentOf(file), "precious");
        }
        EXPECT_TRUE(isDone && contentOf(file) != "precious") << format.name.toStdString();
        EXPECT_EQ(openFiles(), opened) << format.name.toStdString();
        QFile::remove(file);
    }
}

TEST(UnfinishedExport, ReplacesWhatALinkLeadsToAndKeepsItsPermissions)
{
    ExportedCollection collection;
    const QString before = collection.database().folder() + u"/before"_s;
    writeFile(before, "before");
    const QFile::Permissions permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    QFile::setPermissions(before, permissions);
    QFile::link(before, collection.database().folder() + u"/Event.csv"_s);
    EXPECT_TRUE(QFileInfo(collection.exportTo("csv", RecordKind::Event)).isSymLink());
    EXPECT_TRUE(contentOf(before).startsWith("\"ID\",Title,"));
    EXPECT_EQ(QFile::permissions(before) & ~(QFile::ReadUser | QFile::WriteUser), permissions);
}

} // namespace
