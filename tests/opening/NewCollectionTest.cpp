// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/NewCollection.h"

#include "data/DatabaseSession.h"
#include "support/AsPlainUser.h"
#include "support/TestDatabase.h"

namespace {

const QStringList lists{u"DocumentType"_s,
                        u"DocumentCategory"_s,
                        u"FileTypes"_s,
                        u"Function"_s,
                        u"Venue"_s,
                        u"OrganizationTypes"_s,
                        u"OrganizationSubTypes"_s,
                        u"JurisdictionTypes"_s,
                        u"PopulationTypes"_s,
                        u"States"_s,
                        u"CityLocations"_s};

/// What a file is made of, besides its rows.
QString shapeOf(const QString& file)
{
    const QString shape = u"SELECT type, name, sql FROM sqlite_master ORDER BY name"_s;
    return TestDatabase::answer(file, shape) + TestDatabase::answer(file, u"PRAGMA user_version"_s) +
           TestDatabase::answer(file, u"PRAGMA application_id"_s);
}

QString entriesOf(const QString& folder)
{
    QStringList names = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    names.sort();
    return names.join(u'|');
}

TEST(NewCollection, HasTheSchemaItsReservedRowsTheStatesAndTheTypesOfFiles)
{
    const QTemporaryDir place;
    const QString file = NewCollection(place.path(), u"  My Papers "_s).make(QString());
    EXPECT_EQ(file, place.filePath(u"My Papers/data/My Papers.sqlite"_s));
    EXPECT_EQ(entriesOf(place.path()), u"My Papers"_s);
    EXPECT_EQ(entriesOf(place.filePath(u"My Papers/data"_s)), u"My Papers.sqlite|documents|orgcharts"_s);
    EXPECT_EQ(shapeOf(file), shapeOf(TestDatabase().fileName()));

    // as the sample has them, which was built by other means
    const QString sample = QStringLiteral(ORVIK_SAMPLE_DATABASE);
    QStringList reserved;
    for (const char* table : {"Document", "Event", "Organization"})
        reserved << u"SELECT * FROM %1"_s.arg(QLatin1StringView(table));
    for (const QString& list : lists) {
        if (list != u"CityLocations"_s) reserved << u"SELECT * FROM %1"_s.arg(list);
    }
    for (const QString& rows : reserved)
        EXPECT_EQ(TestDatabase::answer(file, rows + u" WHERE rowid = 1"_s),
                  TestDatabase::answer(sample, rows + u" WHERE rowid = 1"_s));
    const QString states = u"SELECT * FROM States"_s;
    EXPECT_EQ(TestDatabase::answer(file, states), TestDatabase::answer(sample, states));
    const QString counts = u"SELECT (SELECT count(*) FROM Document), (SELECT count(*) FROM Venue), "
                           "(SELECT count(*) FROM CityLocations), (SELECT count(*) > 5 FROM FileTypes)"_s;
    EXPECT_EQ(TestDatabase::answer(file, counts), u"1|1|0|1"_s);
}

TEST(NewCollection, TakesListsAndNothingElseFromTheSample)
{
    const QTemporaryDir place;
    const QString sample = QStringLiteral(ORVIK_SAMPLE_DATABASE);
    const QByteArray before = contentOf(sample);
    const QString file = NewCollection(place.path(), u"Größe 100% #1"_s).make(sample);
    for (const QString& list : lists) {
        const QString rows = u"SELECT * FROM %1"_s.arg(list);
        EXPECT_EQ(TestDatabase::answer(file, rows), TestDatabase::answer(sample, rows)) << list.toStdString();
    }
    const QString records = u"SELECT (SELECT count(*) FROM Document), (SELECT count(*) FROM Event), "
                            "(SELECT count(*) FROM Organization), (SELECT count(*) FROM DocumentTypes)"_s;
    EXPECT_EQ(TestDatabase::answer(file, records), u"1|1|1|0"_s);
    EXPECT_EQ(TestDatabase::answer(file, u"PRAGMA integrity_check"_s), u"ok"_s);
    EXPECT_EQ(contentOf(sample), before);
    DatabaseSession().open(file);
}

TEST(NewCollection, SaysWhatHindersItAndTouchesNothing)
{
    const QTemporaryDir place;
    writeFile(place.filePath(u"Taken/x"_s));
    writeFile(place.filePath(u"File"_s), "theirs");
    writeFile(place.filePath(u"Other.new/x"_s));
    writeFile(place.filePath(u"sealed/x"_s));
    const auto enterOnly = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                           QFile::ReadOther | QFile::ExeOther;
    QFile::setPermissions(place.path(), enterOnly | QFile::WriteOwner);
    QFile::setPermissions(place.filePath(u"sealed"_s), enterOnly);
    const QString taken = u"This name is taken: the place has a file or folder called so."_s;
    const QString nowhere = u"There is no such place: choose a folder that exists."_s;
    const QString period = u"A name cannot begin or end with a period."_s;
    const QString characters = u"A name cannot have any of these characters: / \\ : * ? \" < > |"_s;
    const std::tuple<QString, QString, QString> cases[] = {
        {place.path(), u" \t"_s, u"The collection needs a name."_s},
        {place.path(), u"tAKEN"_s, taken},
        {place.path(), u"File"_s, taken},
        {place.path(), u"other"_s, taken}, // by the name for the time being
        {place.path(), u"a/b"_s, characters},
        {place.path(), u"a\\b"_s, characters},
        {place.path(), u"c:"_s, characters},
        {place.path(), u"a\nb"_s, characters},
        {place.path(), u".."_s, period},
        {place.path(), u".hidden"_s, period},
        {place.path(), u"end."_s, period},
        {place.path(), u"Data"_s,
         u"This name is the program's own: each collection has a folder called so."_s},
        {place.path(), QString(231, u'a'), u"This name is too long."_s},
        {place.path(), QString(120, u'é'), u"This name is too long."_s},
        {place.filePath(u"gone"_s), u"New"_s, nowhere},
        {place.filePath(u"File"_s), u"New"_s, nowhere},
        {u"relative"_s, u"New"_s, nowhere},
        {QString(), u"New"_s, nowhere},
    };
    const QString before = entriesOf(place.path());
    for (const auto& [where, name, hindrance] : cases) {
        SCOPED_TRACE((where + u' ' + name).toStdString());
        const NewCollection collection(where, name);
        EXPECT_EQ(collection.hindrance(), hindrance);
        EXPECT_NE(errorNumberOf([&] { (void)collection.make(QString()); }), 0);
    }
    {
        const AsPlainUser plainUser;
        EXPECT_EQ(NewCollection(place.filePath(u"sealed"_s), u"New"_s).hindrance(),
                  u"Nothing can be written in this place."_s);
    }
    EXPECT_EQ(NewCollection(place.path(), QString(230, u'a')).hindrance(), QString());
    EXPECT_EQ(entriesOf(place.path()), before);
    EXPECT_EQ(contentOf(place.filePath(u"File"_s)), "theirs");

    // the lists come from a file that has none
    EXPECT_NE(
        errorNumberOf([&] { (void)NewCollection(place.path(), u"New"_s).make(place.filePath(u"File"_s)); }),
        0);
    EXPECT_EQ(entriesOf(place.path()), before);
}

} // namespace
