// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/DatabaseRescue.h"

#include "check/CheckedCollection.h"
#include "check/RescuedCollection.h"

using testing::HasSubstr;

namespace {

constexpr qsizetype pageSize = 4096;

/// A collection with enough in it for every table to have several pages, and long rows that go on in others.
void fill(const CheckedCollection& collection)
{
    collection.run(
        u"CREATE TEMP TABLE n AS WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < "
        u"700) SELECT i FROM n;"
        "INSERT INTO Document (DocumentID, DocumentName, FileTypeID, OrganizationID, FileLocation, "
        "DocumentDescription, "
        "Notes, dStatus) SELECT i, 'Document ' || i, 2, 1, i || '.pdf', printf('%.*c', i * 7 % 900, 'd') || "
        "CASE WHEN i "
        "% 97 = 0 THEN printf('%9000c', 'x') ELSE '' END, 'n' || i, 'ACTIVE' FROM n;"
        "INSERT INTO Event (EventID, EventName, StartDate, EventDescription, Status) SELECT i, 'Event ' || "
        "i, "
        "'2005-06-15', printf('%.*c', i * 3 % 300, 'e'), 'ACTIVE' FROM n;"
        "INSERT INTO DocumentEvents SELECT i, 702 - i FROM n; INSERT INTO EventVenues SELECT i, 1 FROM n;"
        "INSERT INTO Document_HIST (DocumentID, DocumentName, Notes) SELECT i, 'Former ' || i, "
        "printf('%200c', 'h') FROM n;"
        "DELETE FROM Document WHERE DocumentID BETWEEN 300 AND 340"_s);
}

/// The tables whose rows are compared.
const QStringList& tables()
{
    static const QStringList names{u"Document"_s,      u"Event"_s,     u"DocumentEvents"_s, u"EventVenues"_s,
                                   u"Document_HIST"_s, u"FileTypes"_s, u"States"_s};
    return names;
}

/// Each row of these tables as a text, with its number.
std::set<QString> rowsOfAll(const QString& file)
{
    std::set<QString> rows;
    for (const QString& table : tables()) {
        for (const QString& row :
             TestDatabase::answer(file, u"SELECT '%1', rowid, * FROM %1"_s.arg(table)).split(u'\n'))
            rows.insert(row);
    }
    return rows;
}

QStringList rescue(const QString& from, const QString& to)
{
    QFile::remove(to);
    DatabaseRescue work(from, to);
    while (work.step()) {
    }
    return work.lines();
}

/// The rows that lie on a page, of a table or of an index, if it is the last one of its tree.
int rowsOn(const QByteArray& content, qsizetype page)
{
    const auto byte = [&](qsizetype at) { return static_cast<unsigned char>(content[page * pageSize + at]); };
    return byte(0) == 0x0D ? byte(3) * 256 + byte(4) : 0;
}

TEST(DatabaseRescue, LosesNoRowsButThoseOfTheDamagedPage)
{
    CheckedCollection collection;
    fill(collection);
    const QByteArray sound = contentOf(collection.database());
    const std::set<QString> all = rowsOfAll(collection.database());
    const QString schema =
        u"SELECT group_concat(name || sql, ';') FROM (SELECT name, sql FROM sqlite_master ORDER BY name)"_s;
    const QString damaged = collection.folder() + u"/damaged.sqlite"_s;
    const QString rescued = collection.folder() + u"/rescued.sqlite"_s;
    // the first pages hold the description of the tables
    const qsizetype pages = sound.size() / pageSize;
    int refused = 0;
    int known = 0;
    for (qsizetype page = 1; page < pages; page += 13) {
        QByteArray content = sound;
        if (page % 2 == 0) {
            content.replace(page * pageSize, pageSize, QByteArray(pageSize, '\0'));
        } else {
            for (qsizetype i = 0; i < pageSize; ++i)
                content[page * pageSize + i] = static_cast<char>((i * 7919 + page) % 251);
        }
        writeFile(damaged, content);
        SCOPED_TRACE(page);
        try {
            rescue(damaged, rescued);
        } catch (const Error& error) {
            EXPECT_THAT(error.description().toStdString(), HasSubstr("restore a backup"));
            ++refused;
            continue;
        }
        EXPECT_EQ(contentOf(damaged), content);
        const std::set<QString> found = rowsOfAll(rescued);
        int lost = 0;
        for (const QString& row : all)
            lost += found.contains(row) ? 0 : 1;
        // a page in which a long row goes on is no page of rows, but damages that one
        EXPECT_LE(lost, std::max(1, rowsOn(sound, page)));
        known += static_cast<int>(found.size());
        EXPECT_EQ(TestDatabase::answer(rescued, u"PRAGMA integrity_check"_s), u"ok"_s);
        EXPECT_EQ(TestDatabase::answer(rescued, schema), TestDatabase::answer(collection.database(), schema));
    }
    EXPECT_LT(refused, 4) << "the description of the tables is on the first few of " << pages << " pages";
    EXPECT_GT(known, 0);
}

/// A document whose page is lost keeps what the list of documents shows, and its links stay; of what was
/// deleted nothing comes back.
TEST(DatabaseRescue, TakesFromIndexesWhatTheyKnow)
{
    CheckedCollection collection;
    fill(collection);
    QByteArray content = contentOf(collection.database());
    qsizetype damagedPage = 0;
    for (qsizetype page = 1; page < content.size() / pageSize; ++page) {
        const bool isFound = content.mid(page * pageSize, pageSize).contains("Document 250");
        if (isFound && rowsOn(content, page) > 0) damagedPage = page;
    }
    ASSERT_GT(damagedPage, 0);
    content.replace(damagedPage * pageSize, pageSize, QByteArray(pageSize, '\0'));
    const QString damaged = collection.folder() + u"/damaged.sqlite"_s;
    const QString rescued = collection.folder() + u"/rescued.sqlite"_s;
    writeFile(damaged, content);
    const QStringList lines = rescue(damaged, rescued);
    EXPECT_EQ(lines.front(), u"Documents: 658, events: 699, organizations: 0."_s);
    EXPECT_THAT(
        lines.join(u'\n').toStdString(),
        HasSubstr("The table Document is damaged: 1 page could not be read. Rows that were rescued: 659."));
    EXPECT_EQ(lines.size(), 2);
    EXPECT_EQ(TestDatabase::answer(rescued,
                                   u"SELECT DocumentName, FileLocation, dStatus, Notes FROM Document WHERE "
                                   "DocumentID = 250"_s),
              u"Document 250|250.pdf|ACTIVE|NULL"_s);
    EXPECT_EQ(TestDatabase::answer(rescued,
                                   u"SELECT count(*) FROM Document WHERE DocumentID BETWEEN 300 AND 340"_s),
              u"0"_s);
}

TEST(DatabaseRescue, ReadsAllThatIsThereOfACutFile)
{
    CheckedCollection collection;
    fill(collection);
    // begins beyond the cut, as what an upgrade adds
    collection.run(u"CREATE TABLE Former AS SELECT * FROM Event; CREATE TABLE Later (A)"_s);
    const QByteArray sound = contentOf(collection.database());
    const std::set<QString> all = rowsOfAll(collection.database());
    const QString rescued = collection.folder() + u"/rescued.sqlite"_s;
    const qsizetype pages = sound.size() / pageSize;
    const qsizetype length = sound.size() * 6 / 10;
    writeFile(collection.database(), sound.first(length));
    EXPECT_GT(rescue(collection.database(), rescued).size(), 1);
    const std::set<QString> found = rowsOfAll(rescued);
    int cut = 0;
    for (qsizetype page = length / pageSize; page < pages; ++page)
        cut += std::max(1, rowsOn(sound, page));
    int lost = 0;
    for (const QString& row : all)
        lost += found.contains(row) ? 0 : 1;
    EXPECT_LE(lost, cut);
    // the lists show no record without a status
    EXPECT_EQ(TestDatabase::answer(rescued, u"SELECT count(*) FROM Document WHERE dStatus IS NULL"_s),
              u"0"_s);
    EXPECT_EQ(TestDatabase::answer(rescued, u"PRAGMA integrity_check"_s), u"ok"_s);
}

/// A row that goes on in the first page of another table costs that table nothing.
TEST(DatabaseRescue, KeepsTheRowsOfAPageThatADamagedRowLeadsTo)
{
    CheckedCollection collection;
    fill(collection);
    QByteArray content = contentOf(collection.database());
    const int root = TestDatabase::answer(collection.database(),
                                          u"SELECT rootpage FROM sqlite_master WHERE name = 'Event'"_s)
                         .toInt();
    for (qsizetype page = 1; page < content.size() / pageSize; ++page) {
        const qsizetype text = content.lastIndexOf("        ", (page + 1) * pageSize - 12);
        if (rowsOn(content, page) == 0 || text < page * pageSize) continue;
        const qsizetype pointer = text + 8;
        for (int i = 0; i < 4; ++i)
            content[pointer + i] = static_cast<char>(root >> (24 - 8 * i));
    }
    writeFile(collection.database(), content);
    const QString rescued = collection.folder() + u"/rescued.sqlite"_s;
    const QStringList lines = rescue(collection.database(), rescued);
    ASSERT_EQ(lines.size(), 2) << lines.join(u'\n').toStdString();
    EXPECT_THAT(lines.back().toStdString(), HasSubstr("The table Document is damaged"));
}

TEST(DatabaseRescue, RefusesWhatCannotBeUnderstood)
{
    CheckedCollection collection;
    const QByteArray sound = contentOf(collection.database());
    const QString rescued = collection.folder() + u"/rescued.sqlite"_s;
    for (const QByteArray& content :
         {QByteArray(pageSize, '\0') + sound.mid(pageSize),
          QByteArray(sound).replace("CREATE TABLE Event (", "CREATE TABLE Ev)nt ("), QByteArray("short"),
          QByteArray()}) {
        writeFile(collection.database(), content);
        EXPECT_NE(errorNumberOf([&] { rescue(collection.database(), rescued); }), 0);
    }
}

TEST(RescuedCollection, BringsTheFilesAlong)
{
    CheckedCollection collection;
    collection.addDocument(u"Levees"_s, "a report");
    collection.session().close();
    ScriptedWorks works;
    const QString place = collection.folder() + u"/place"_s;
    const auto rescued =
        RescuedCollection::make(works, collection.database(), collection.files(), place, u"Rivers"_s);
    ASSERT_TRUE(rescued);
    EXPECT_EQ(rescued->database, place + u"/Rivers/data/Rivers.sqlite"_s);
    EXPECT_EQ(rescued->lines, QStringList{u"Documents: 1, events: 0, organizations: 0."_s});
    EXPECT_EQ(contentOf(place + u"/Rivers/data/documents/2.txt"_s), "a report");
    for (int steps = 0; steps < 6; ++steps) {
        works.cancelAfter = steps;
        EXPECT_FALSE(
            RescuedCollection::make(works, collection.database(), collection.files(), place, u"Lakes"_s));
    }
    EXPECT_EQ(QDir(place).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{u"Rivers"_s});
}

} // namespace
