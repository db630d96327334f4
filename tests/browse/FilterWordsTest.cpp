// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/FilterWords.h"

#include "browse/list/FoldedRows.h"
#include "support/TestDatabase.h"
#include "views/StandardQueries.h"

namespace {

/// The names of the rows that the words leave, separated by blanks.
std::string left(TestDatabase& database, RecordKind kind, const char* typed)
{
    RecordSet rows = database.session().read(StandardQueries().of(kind)->sqlStr());
    RecordList list(kind);
    list.beginReading(rows);
    const FilterWords words{QString::fromUtf8(typed)};
    FoldedRows folded;
    QStringList names;
    while (rows.next()) {
        list.append(rows);
        folded.follow(list);
        if (words.match(folded.row(list.count() - 1))) names << list.text(list.count() - 1, 0);
    }
    return names.join(u' ').toStdString();
}

TEST(FilterWords, LeaveTheRowsThatHoldAllOfThemInAnyColumn)
{
    TestDatabase database;
    database.runFile("browse/rows/Documents.sql");
    database.runFile("browse/rows/SortedEvents.sql");
    database.run("UPDATE Document SET DocumentName = 'Déltà', KeyDocument = 1 WHERE DocumentID = 5");
    const struct
    {
        RecordKind kind;
        const char* typed;
        const char* names;
    } cases[] = {
        {RecordKind::Document, "", "alpha Beta Déltà"},
        {RecordKind::Document, " - ", "alpha Beta Déltà"},
        {RecordKind::Document, "LT", "Déltà"},
        {RecordKind::Document, "delta", "Déltà"},
        {RecordKind::Document, "BÉTA", "Beta"},
        {RecordKind::Document, "1907 survey\tpd", "Beta"},
        {RecordKind::Document, "office 3", "Beta"},
        {RecordKind::Document, "office3", ""},
        {RecordKind::Document, "-delta", "alpha Beta"},
        {RecordKind::Document, "ta -pdf", "Déltà"},
        {RecordKind::Document, "beta -beta", ""},
        {RecordKind::Document, "-\u0301", "alpha Beta Déltà"},
        // the text of a key record and the file's name are not shown
        {RecordKind::Document, "1", "Beta"},
        {RecordKind::Document, "mpg", ""},
        // dates as they are shown, not as they are held
        {RecordKind::Event, "01/06/99", "longer"},
        {RecordKind::Event, "1999", ""},
        {RecordKind::Event, "08:00 -07:00", "early late"},
    };
    for (const auto& [kind, typed, names] : cases)
        EXPECT_EQ(left(database, kind, typed), names) << typed;
}

TEST(FilterWords, AreMarkedWhereTheyMatch)
{
    const struct
    {
        const char* typed;
        const char* text;
        const char* marked;
    } cases[] = {
        {"", "Fire", "Fire"},
        {"fire", "Fire and fire", "[Fire] and [fire]"},
        {"fi ire -and", "Fire and", "[Fire] and"},
        {"aa", "aaab", "[aaa]b"},
        {"cole e", "L'École", "L'[École]"},
        {"cafe", "Cafe\u0301s", "[Cafe\u0301]s"},
        {"\u0443", "\U0001F525\u0423\U0001F525", "\U0001F525[\u0423]\U0001F525"},
        {"\U0001F525", "a\U0001F525b", "a[\U0001F525]b"},
    };
    for (const auto& [typed, text, marked] : cases) {
        QString shown = QString::fromUtf8(text);
        const std::vector<TextRange> places = FilterWords(QString::fromUtf8(typed)).in(shown);
        for (auto place = places.rbegin(); place != places.rend(); ++place)
            shown.insert(place->end, u']').insert(place->begin, u'[');
        EXPECT_EQ(shown.toStdString(), marked) << typed;
    }
}

} // namespace
