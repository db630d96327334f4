// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/KeywordSearch.h"

#include "search/FoundKeys.h"
#include "search/FoundWords.h"
#include "search/SearchResults.h"
#include "support/TestDatabase.h"
#include "views/StandardQueries.h"

namespace {

TEST(Keywords, AreSplitAtBlanksAndAtMostFour)
{
    const std::tuple<QString, QStringList, bool> cases[] = {
        {u"fire"_s, {u"fire"_s}, false},
        {u"a b c d"_s, {u"a"_s, u"b"_s, u"c"_s, u"d"_s}, false},
        {u"a b c d "_s, {u"a"_s, u"b"_s, u"c"_s, u"d"_s}, false},
        {u"a b c d e"_s, {u"a"_s, u"b"_s, u"c"_s, u"d"_s}, true},
        {u"a b c d e f g"_s, {u"a"_s, u"b"_s, u"c"_s, u"d"_s}, true},
        // a blank at the start of a word is its first character
        {u" fire "_s, {u" fire"_s}, false},
        {u"fire  plan"_s, {u"fire"_s, u" plan"_s}, false},
        {u"fire   plan"_s, {u"fire"_s, u" "_s, u"plan"_s}, false},
        {u"a b c d  "_s, {u"a"_s, u"b"_s, u"c"_s, u"d"_s}, true},
        {u"Fire fire"_s, {u"Fire"_s, u"fire"_s}, false},
        {u"o'clock \"x\" 50%"_s, {u"o'clock"_s, u"\"x\""_s, u"50%"_s}, false},
    };
    for (const auto& [text, words, moreThanMost] : cases) {
        const Keywords keywords = splitWords(text);
        EXPECT_EQ(keywords.words.join(u'|'), words.join(u'|'));
        EXPECT_EQ(keywords.moreThanMost, moreThanMost) << text.toStdString();
    }
}

TEST(KeywordSearch, BuildsOneConditionForEachKind)
{
    const StandardQueries queries;
    const std::tuple<RecordKind, ViewKind, QString, QString> cases[] = {
        {RecordKind::Document, ViewKind::Documents, u"DocumentName|DocumentDescription"_s,
         u"Document Search for \"fire plan\""_s},
        {RecordKind::Event, ViewKind::Events, u"EventName|EventDescription"_s,
         u"Event Search for \"fire plan\""_s},
        {RecordKind::Organization, ViewKind::Organizations, u"OrganizationName|ResponseActivities"_s,
         u"Organization Search for \"fire plan\""_s},
    };
    for (const auto& [kind, shown, columns, caption] : cases) {
        const clsView view = keywordView(queries, kind, u"fire plan"_s);
        const SQLObject& standard = *queries.of(kind);
        EXPECT_EQ(view.viewIndex, shown);
        EXPECT_EQ(view.Caption, caption);
        EXPECT_EQ(view.Keywords, u"fire plan"_s);
        const QString condition =
            u" AND ((%1 LIKE '%fire%' AND %1 LIKE '%plan%') OR (%2 LIKE '%fire%' AND %2 LIKE '%plan%')) "_s;
        EXPECT_EQ(view.SQL->sqlStr(),
                  standard.SelectClause + u' ' + standard.FromClause + u' ' + standard.WhereClause +
                      condition.arg(columns.section(u'|', 0, 0), columns.section(u'|', 1)));
        EXPECT_EQ(recordKindOf(shown), kind);
    }
    const clsView all = keywordView(queries, std::nullopt, u" fire "_s);
    EXPECT_EQ(all.viewIndex, ViewKind::SearchResults);
    EXPECT_EQ(all.Caption, u"Search Results for \" fire \""_s);
    EXPECT_EQ(all.Keywords, u" fire "_s);
    EXPECT_EQ(all.SQL->sqlStr().trimmed(), QString());
    for (const ViewKind page : {ViewKind::Home, ViewKind::SearchResults})
        EXPECT_EQ(recordKindOf(page), std::nullopt);
}

/// Records of each kind, some with several links. The expected results were counted by hand.
class KeywordSearchOnFile : public testing::Test
{
protected:
    KeywordSearchOnFile() { database.runFile("search/rows/KeywordSearch.sql"); }

    SearchResults results(const QString& text)
    {
        return SearchResults::read(database.session(), queries, text);
    }

    /// Returns the labels of the three kinds, joined by `|`.
    QString labels(const QString& text)
    {
        QStringList labels;
        const SearchResults found = results(text);
        for (const SearchResults::Kind& kind : found.kinds)
            labels << kind.label();
        return labels.join(u'|');
    }

    TestDatabase database;
    StandardQueries queries;
};

TEST_F(KeywordSearchOnFile, AsksForFewRecordsByTheirKeys)
{
    for (const RecordKind kind : recordKinds) {
        const SharedQuery query = keywordQuery(queries, kind, {u"fire"_s});
        const SharedQuery byKeys = queryByKeys(database.session(), kind, query);
        EXPECT_NE(byKeys, query);
        EXPECT_EQ(rowsOf(database.session(), byKeys->sqlStr()), rowsOf(database.session(), query->sqlStr()));
        const SharedQuery none =
            queryByKeys(database.session(), kind, keywordQuery(queries, kind, {u"xylophone"_s}));
        EXPECT_EQ(rowsOf(database.session(), none->sqlStr()), QString());
        const SharedQuery broken = keywordQuery(queries, kind, {u"o'clock"_s});
        EXPECT_EQ(queryByKeys(database.session(), kind, broken), broken);
    }
    database.run(
        "WITH RECURSIVE n(i) AS (VALUES (100) UNION ALL SELECT i + 1 FROM n WHERE i < 700) INSERT INTO "
        "Document (DocumentID, DocumentName, dStatus) SELECT i, 'flood', 'ACTIVE' FROM n");
    const SharedQuery many = keywordQuery(queries, RecordKind::Document, {u"flood"_s});
    EXPECT_EQ(queryByKeys(database.session(), RecordKind::Document, many), many);
}

TEST_F(KeywordSearchOnFile, CountsEachRecordOnce)
{
    const SearchResults many = results(u"fire plan"_s);
    EXPECT_EQ(labels(u"fire plan"_s), u"3 Documents|1 Event|1 Organization"_s);
    EXPECT_EQ(many.total(), 5);
    EXPECT_FALSE(many.single);
    const clsView list = many.listView(many.kinds[0]);
    EXPECT_EQ(list.viewIndex, ViewKind::Documents);
    EXPECT_EQ(list.Caption, u"Document Search Results for \"fire plan\""_s);
    EXPECT_EQ(list.Keywords, u"fire plan"_s);
    EXPECT_EQ(firstColumnOf(database.session(), list.SQL->sqlStr()), u"2 4 7"_s);
    EXPECT_EQ(many.kinds[1].caption, u"Event Search Results for \"fire plan\""_s);
    EXPECT_EQ(many.kinds[2].caption, u"Organization Search Results for \"fire plan\""_s);

    const SearchResults one = results(u"Peshtigo"_s);
    EXPECT_EQ(labels(u"Peshtigo"_s), u"0 Documents|1 Event|0 Organizations"_s);
    ASSERT_TRUE(one.single);
    EXPECT_EQ(one.single->kind, RecordKind::Event);
    EXPECT_EQ(one.single->identifier, 3);
    EXPECT_EQ(one.single->name, u"Peshtigo fire"_s);

    EXPECT_EQ(labels(u"xylophone"_s), u"0 Documents|0 Events|0 Organizations"_s);
    // only the first four of the five words count
    EXPECT_EQ(results(u"plan plan plan plan xylophone"_s).total(), 7);
    EXPECT_NE(errorNumberOf([&] { (void)results(u"O'Fallon"_s); }), 0);
}

/// Returns the text with its marked places in brackets.
QString marked(const QStringList& words, QString text)
{
    const auto places = FoundWords(words).in(text);
    for (auto place = places.rbegin(); place != places.rend(); ++place)
        text.insert(place->end, u']').insert(place->begin, u'[');
    return text;
}

TEST(FoundWords, MarksEveryPlaceWithoutRegardToCase)
{
    const struct
    {
        QStringList words;
        QString text;
        QString expected;
    } cases[] = {
        {{u"fire"_s}, u"Fire of the firemen"_s, u"[Fire] of the [fire]men"_s},
        {{u"fire"_s, u"plan"_s}, u"Fireplan, plan"_s, u"[Fireplan], [plan]"_s},
        {{u"ire"_s, u"fir"_s}, u"fire"_s, u"[fire]"_s},
        {{u"école"_s}, u"l'ÉCOLE, ecole"_s, u"l'[ÉCOLE], ecole"_s},
        {{u"пожар"_s}, u"Большой ПОЖАР"_s, u"Большой [ПОЖАР]"_s},
        {{u"(a"_s, u"[x]"_s, u"50%"_s}, u"f(A) [x] 50%"_s, u"f[(A]) [[x]] [50]%"_s},
        {{u"f%r"_s}, u"of forests for"_s, u"o[f for]ests [for]"_s},
        {{u"f_r"_s}, u"for fair fur"_s, u"[for] fair [fur]"_s},
        {{u"%"_s, u"__"_s}, u"anything"_s, u"anything"_s},
        {{u"\U0001F525"_s}, u"a \U0001F525 b"_s, u"a [\U0001F525] b"_s},
        {{QString(QChar(0xD800))}, u"anything"_s, u"anything"_s},
        {{}, u"fire"_s, u"fire"_s},
    };
    for (const auto& [words, text, expected] : cases)
        EXPECT_EQ(marked(words, text), expected);
}

} // namespace
