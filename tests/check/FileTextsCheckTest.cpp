// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/CheckedCollection.h"
#include "filetext/FileTextIndex.h"

/// The states of the index, as it is beside a collection with files for the documents 57, 60 and 61, the
/// latter for 62, too, and none for 59; 58 is deleted.
TEST(FileTextsCheck, NamesFilesWhoseTextCouldNotBeReadAndADamagedIndex)
{
    const QString damaged = u"file-texts: The file Rivers.sqlite.filetext with the texts of the files is "
                            "damaged. It can be deleted: the program makes it anew.\n"_s;
    const struct
    {
        QString statements;
        QByteArray over; ///< written over the index: its beginning, or the texts if it is long
        QString found;
        QString remark;
    } cases[] = {
        {u""_s, {}, u""_s, u""_s},
        {u"UPDATE File SET Failure = 'It took too long.' WHERE Name <> '60.txt'"_s,
         {},
         u"file-texts: Document \"Levees\" (57) has the file 57.txt, whose text could not be read. It took "
         "too long.\nfile-texts: Document \"Storm\" (61) has the file 61.txt, whose text could not be read. "
         "It took too long.\n"_s,
         u""_s},
        {u"UPDATE File SET Failure = 'It is not a PDF, a web page or a text.' WHERE Name = '57.txt'"_s,
         {},
         u""_s,
         u"The program finds no words in 1 file."_s},
        {u"DELETE FROM File WHERE Name = '57.txt'; UPDATE File SET Size = 7 WHERE Name = '60.txt';"
         "UPDATE File SET Changed = NULL WHERE Name = '61.txt'"_s,
         {},
         u""_s,
         u"2 files have not been read yet."_s},
        {u"UPDATE File SET Changed = Changed - 1 WHERE Name = '57.txt'"_s,
         {},
         u""_s,
         u"1 file has not been read yet."_s},
        {u"PRAGMA synchronous = OFF; BEGIN; UPDATE File SET Size = 7"_s,
         {},
         u""_s,
         u"The reading of the files was interrupted and is not finished yet."_s},
        {u"PRAGMA user_version = 99"_s, {}, u""_s, u"3 files have not been read yet."_s},
        {u""_s, QByteArray(9, 'x'), damaged, u""_s},
        {u""_s, QByteArray(5000, 'x'), damaged, u""_s},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.statements.toStdString());
        CheckedCollection collection;
        collection.run(u"INSERT INTO Document (DocumentID, DocumentName, FileLocation, dStatus) VALUES "
                       "(57, 'Levees', '57.txt', 'ACTIVE'), (58, 'Old', '58.txt', 'DELETED'), "
                       "(59, 'Gone', '59.txt', 'ACTIVE'), (60, 'Maps', '60.txt', 'ACTIVE'), "
                       "(61, 'Storm', '61.txt', 'ACTIVE'), "
                       "(62, 'Storm again', '61.txt', 'ACTIVE')"_s);
        const QString index = collection.database() + u".filetext"_s;
        const QString journal = index + u"-journal"_s;
        {
            SQLite::Database database(index.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
            database.exec(FileTextIndex::tables);
            database.exec("PRAGMA user_version = 1");
            for (const char* name : {"57.txt", "58.txt", "60.txt", "61.txt"}) {
                const QString file = collection.data() + u"documents/"_s + QString::fromLatin1(name);
                writeFile(file, "a text");
                SQLite::Statement row(database, "INSERT INTO File (Name, Size, Changed) VALUES (?, 6, ?)");
                row.bind(1, name);
                row.bind(2, static_cast<int64_t>(QFileInfo(file).lastModified().toMSecsSinceEpoch()));
                row.exec();
            }
            database.exec(each.statements.toStdString());
            QFile::copy(journal, journal + u".kept"_s);
        }
        QFile::rename(journal + u".kept"_s, journal);
        QFile content(index);
        ASSERT_TRUE(content.open(QIODevice::ReadWrite) && content.seek(each.over.size() > 9 ? 3 * 4096 : 0));
        content.write(each.over);
        content.close();
        const CheckResult result = collection.check(CheckScope::Structure).back();
        ASSERT_EQ(result.topic, CheckTopic::FileTexts);
        EXPECT_EQ(CheckedCollection::textOf({result}), each.found.toStdString());
        EXPECT_EQ(result.remark, each.remark);
    }
}
