// SPDX-License-Identifier: GPL-3.0-or-later
// What an export reads of unusual files, and what it leaves if it does not come to its end.

#include "export/ExportWork.h"

#include "export/ExportFormats.h"
#include "export/ExportedCollection.h"
#include "support/SizeLimit.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Exports : public testing::Test
{
protected:
    /// Does the work up to a number of steps; returns how many it took.
    int run(const ExportFormat& format, const QString& file, int steps)
    {
        const RecordKind kind = format.kind.value_or(RecordKind::Document);
        ExportWork work(collection.session(), kind, collection.identifiers(kind), format, {}, file);
        for (int done = 0; done < steps; ++done)
            if (!work.step()) return done + 1;
        while (work.undoStep()) {
        }
        return steps;
    }

    /// The names and the contents in the folder of the export.
    [[nodiscard]] QStringList files() const
    {
        QStringList all;
        for (const QString& name :
             QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
            all << name << QString::fromLatin1(contentOf(m_folder.filePath(name)).toBase64());
        return all;
    }

    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

    ExportedCollection collection;

private:
    QTemporaryDir m_folder;
};

TEST_F(Exports, LeaveAnOlderFileIfTheyAreCancelledOrTheDiskIsFull)
{
    constexpr int all = 1'000'000;
    for (const ExportFormat& format : exportFormats()) {
        SCOPED_TRACE(format.name.toStdString());
        const QString whole = path(u"whole"_s + format.ending);
        const int steps = run(format, whole, all);
        EXPECT_GT(steps, 1);
        const qint64 size = QFileInfo(whole).size();
        const QString file = path(u"new"_s + format.ending);
        writeFile(file, "precious");
        const QStringList before = files();
        for (int cancelled = 0; cancelled < steps; ++cancelled) {
            EXPECT_EQ(run(format, file, cancelled), cancelled);
            EXPECT_EQ(files(), before) << "cancelled after " << cancelled;
        }
        for (const qint64 room : {qint64{0}, size / 2, size - 1}) {
            const SizeLimit limit(static_cast<rlim_t>(room));
            EXPECT_NE(errorNumberOf([&] { run(format, file, all); }), 0) << room;
            EXPECT_EQ(files(), before) << "room for " << room;
        }
    }
}

TEST_F(Exports, HaveEachRecordOnceInTheOrderThatIsAskedFor)
{
    collection.database().run(
        "INSERT INTO Event (EventID, Status, EventDescription) WITH RECURSIVE number (n) AS (SELECT 1001 "
        "UNION ALL "
        "SELECT n + 1 FROM number WHERE n < 1700) SELECT n, 'ACTIVE', hex(zeroblob(500)) FROM number");
    collection.database().run("UPDATE Event SET Status = 'deleted' WHERE EventID = 5");
    std::vector<qint64> identifiers{1700, 999, 5};
    QByteArray expected("1700");
    for (qint64 each = 1001; each < 1700; ++each) {
        identifiers.push_back(each);
        expected += ' ' + QByteArray::number(each);
    }
    identifiers.push_back(1700);
    ExportWork work(collection.session(), RecordKind::Event, identifiers, *exportFormat(u"csv"_s), {},
                    path(u"a"_s));
    while (work.step()) {
    }
    EXPECT_EQ(work.count(), 700U) << "one is not there, one is deleted, one is repeated";
    QByteArrayList found;
    for (const QByteArray& line : contentOf(path(u"a"_s)).split('\n'))
        if (line.contains("0000")) found << line.split(',').front();
    EXPECT_EQ(found.join(' '), expected);
}

TEST_F(Exports, TakeImportedFilesAsTheyAre)
{
    collection.database().run(
        "ALTER TABLE Organization DROP COLUMN Zip;"
        "ALTER TABLE Organization RENAME COLUMN Fax TO fAX;"
        "ALTER TABLE Organization ADD COLUMN \"a \"\"quoted\"\" name\";"
        "UPDATE Organization SET fAX = 'by column', \"a \"\"quoted\"\" name\" = x'00FF'");
    const ExportFormat* const json = exportFormat(u"json"_s);
    ExportWork work(collection.session(), RecordKind::Organization, {2, 3}, *json, {}, path(u"a"_s));
    while (work.step()) {
    }
    const QByteArray content = contentOf(path(u"a"_s));
    EXPECT_EQ(content.count("\"State\":\"NY\",\"fAX\":\"by column\","), 1);
    EXPECT_EQ(content.count("\"a \\\"quoted\\\" name\":null"), 2) << "bytes are no text";
}

} // namespace
