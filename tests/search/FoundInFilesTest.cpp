// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/FoundInFiles.h"

#include "search/FoundKeys.h"
#include "search/KeywordSearch.h"
#include "search/SearchResults.h"
#include "support/AsPlainUser.h"
#include "support/TestDatabase.h"
#include "support/TestFileTexts.h"
#include "views/StandardQueries.h"

#include <sys/stat.h>

namespace {

/// Documents with files of which each holds something else.
class FoundInFilesOnDisk : public testing::Test
{
protected:
    FoundInFilesOnDisk()
    {
        database.run("INSERT INTO Document (DocumentID, DocumentName, FileLocation, dStatus) VALUES "
                     "(1, 'None', 'a.pdf', 'ACTIVE'), (2, 'Levee', 'a.pdf', 'ACTIVE'), "
                     "(3, 'Gauge', 'b.pdf', 'ACTIVE'), (4, 'Same', 'a.pdf', 'ACTIVE'), "
                     "(5, 'Gone', 'b.pdf', 'DELETED'), (6, 'Page', 'c.htm', 'ACTIVE'), "
                     "(7, 'Scan', 'd.pdf', 'ACTIVE'), (8, 'No file', NULL, 'ACTIVE'), "
                     "(9, 'Other name', 'A.PDF', 'ACTIVE')");
    }

    void writeTexts()
    {
        writeFileTexts(database.fileName(), {{"a.pdf", "The levee broke at Greenville. O'Fallon was dry."},
                                             {"b.pdf", "Crue de l'École à la rivière, 1927"},
                                             {"c.htm", "fire_plan of the county: levees"},
                                             {"d.pdf", std::nullopt},
                                             {"nobody's.txt", "levee"}});
    }

    /// Makes the files of the documents, so that one that is not in the index is known to be missing there.
    void makeFiles()
    {
        for (const char* name : {"a.pdf", "b.pdf", "c.htm", "d.pdf"})
            writeFile(database.folder() + u"/documents/"_s + QLatin1StringView(name));
    }

    FoundInFiles find(const QString& text) { return {database.session(), queries, text}; }

    QString documents(const QString& text)
    {
        QStringList identifiers;
        for (const qint64 identifier : find(text).documents())
            identifiers << QString::number(identifier);
        return identifiers.join(u' ');
    }

    TestDatabase database;
    StandardQueries queries;
};

TEST_F(FoundInFilesOnDisk, FindsFilesInWhichEachWordBeginsOne)
{
    writeTexts();
    const std::pair<QString, QString> cases[] = {
        {u"levee"_s, u"2 4 6"_s},
        {u"LEV bro"_s, u"2 4"_s},
        {u"evee"_s, u""_s},
        // both in one file, not one in each
        {u"levee 1927"_s, u""_s},
        {u"ecole RIVIERE"_s, u"3"_s},
        {u"école"_s, u"3"_s},
        {u"fire_plan"_s, u"6"_s},
        {u"county%fire"_s, u"6"_s},
        // a word with a sign inside is a run of words
        {u"o'fal"_s, u"2 4"_s},
        {u"fallon'o"_s, u""_s},
        {u"fallon."_s, u"2 4"_s},
        // signs alone neither find nor hide anything
        {u"% -- levee"_s, u"2 4 6"_s},
        {u"-- %_ \""_s, u""_s},
        {u"  levee"_s, u"2 4 6"_s},
        {u"levee\" OR \"1927"_s, u""_s},
        {u"levee NOT AND NEAR"_s, u""_s},
        {u"Text : levee ^"_s, u""_s},
        {u"the levee broke at xylophone"_s, u"2 4"_s},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(documents(text), expected) << text.toStdString();
    EXPECT_EQ(find(u"levee"_s).note(), QString());
}

TEST_F(FoundInFilesOnDisk, ShowsThePlaceWithTheMostWords)
{
    const std::string many(3000, 'x');
    const std::string filler = [] {
        std::string text;
        for (int i = 0; i < 200; ++i)
            text += "Some more water. ";
        return text;
    }();
    const std::tuple<std::string, QString, QString> cases[] = {
        {"The levee\n\tbroke at  Greenville.", u"levee green"_s, u"The [levee] broke at [Greenville]."_s},
        {"Levees. " + filler + "The levee broke. " + filler, u"levee broke"_s,
         u"… Some more water. The [levee] [broke]. Some more"_s},
        {"An ÉCOLE\u0301 \U0001F525 école", u"ecole"_s, u"An [ÉCOLE\u0301] \U0001F525 [école]"_s},
        {many + " levee " + many, u"levee"_s, u"… [levee] xxxx"_s},
        {many + "-levee", u"levee"_s, u"… [levee]"_s},
        {"levee\u0007\u200Bs", u"levee"_s, u"[levee] s"_s},
        {"o clock o'clock", u"o'clo"_s, u"[o] [clock] [o]'[clock]"_s},
    };
    for (const auto& [text, words, expected] : cases) {
        QFile::remove(FileTextIndex::pathOf(database.fileName()));
        writeFileTexts(database.fileName(), {{"a.pdf", text}});
        FilePassage passage = find(words).passage(2);
        for (auto mark = passage.marks.rbegin(); mark != passage.marks.rend(); ++mark)
            passage.text.insert(mark->end, u']').insert(mark->begin, u'[');
        EXPECT_TRUE(passage.text.contains(expected.mid(2))) << passage.text.toStdString();
        EXPECT_EQ(passage.text.startsWith(u"… "_s), expected.startsWith(u"… "_s))
            << passage.text.toStdString();
        EXPECT_LT(passage.text.size(), 600);
    }
    EXPECT_EQ(find(u"o'clo"_s).passage(3).text, QString());
}

TEST_F(FoundInFilesOnDisk, SaysWhichFilesWereNotSearched)
{
    EXPECT_EQ(find(u"levee"_s).note(), QString()) << "what does not exist cannot be read";
    makeFiles();
    EXPECT_EQ(find(u"levee"_s).note(), u"The files have not been read yet."_s);
    const QString index = FileTextIndex::pathOf(database.fileName());
    writeFileTexts(database.fileName(), {{"a.pdf", "levee"}}, FileTextIndex::version + 1);
    EXPECT_EQ(find(u"levee"_s).note(), u"The files have not been read yet."_s);
    EXPECT_EQ(documents(u"levee"_s), QString());

    QFile::remove(index);
    writeFileTexts(database.fileName(),
                   {{"a.pdf", "levee"}, {"A.PDF", ""}, {"b.pdf", std::nullopt}, {"c.htm", ""}});
    EXPECT_EQ(find(u"levee"_s).note(), u"1 file has not been read yet."_s);
    EXPECT_EQ(documents(u"levee"_s), u"2 4"_s);
    SQLite::Database writer(index.toStdString(), SQLite::OPEN_READWRITE);
    writer.exec("DELETE FROM File WHERE Name = 'c.htm'");
    EXPECT_EQ(find(u"levee"_s).note(), u"2 files have not been read yet."_s);
    writer.exec("BEGIN EXCLUSIVE");
    EXPECT_EQ(find(u"levee"_s).note(),
              u"The files are being read at this moment. Search again in a while."_s);
    writer.exec("ROLLBACK");

    for (const QByteArray& damage :
         {QByteArray("no database at all, but long enough to be looked at"), contentOf(index).left(5000)}) {
        writeFile(index, damage);
        EXPECT_EQ(find(u"levee"_s).note(),
                  u"The file test.sqlite.filetext with the texts of the files is damaged. It can be deleted: "
                  "the program makes it anew."_s);
        EXPECT_EQ(documents(u"levee"_s), QString());
    }
}

TEST_F(FoundInFilesOnDisk, ReadsWhatACollectionThatCannotBeChangedHas)
{
    DatabaseSession session;
    session.open(database.fileName(), Access::Read);
    EXPECT_EQ(FoundInFiles(session, queries, u"levee"_s).note(),
              u"This collection cannot be changed, so nothing is kept of the texts of its files."_s);
    writeTexts();
    EXPECT_EQ(FoundInFiles::hindrance(session), QString());
    ASSERT_EQ(chmod(FileTextIndex::pathOf(database.fileName()).toStdString().c_str(), 0444), 0);
    ASSERT_EQ(chmod(database.folder().toStdString().c_str(), 0555), 0);
    {
        const AsPlainUser user;
        FoundInFiles found(session, queries, u"levee"_s);
        EXPECT_EQ(found.documents().size(), 3u) << found.note().toStdString();
        EXPECT_EQ(found.passage(6).text, u"fire_plan of the county: levees"_s);
    }
    ASSERT_EQ(chmod(database.folder().toStdString().c_str(), 0755), 0);
    EXPECT_EQ(FoundInFiles::hindrance(DatabaseSession()), u"No database is open."_s);
}

TEST_F(FoundInFilesOnDisk, CountsThemBesideTheRecordsAndListsThem)
{
    writeTexts();
    EXPECT_FALSE(SearchResults::read(database.session(), queries, u"levee"_s).inFiles);
    const SearchResults many = SearchResults::read(database.session(), queries, u"levee"_s, true);
    ASSERT_TRUE(many.inFiles);
    EXPECT_EQ(many.inFiles->label(), u"3 Documents with the words in their files"_s);
    EXPECT_EQ(firstColumnOf(database.session(), many.inFiles->query->sqlStr()), u"2 6 4"_s);
    EXPECT_EQ(many.total(), 1) << "the sentence counts the records";
    const SearchResults one = SearchResults::read(database.session(), queries, u"1927"_s, true);
    EXPECT_EQ(one.inFiles->label(), u"1 Document with the words in its file"_s);
    const clsView view = one.filesView(queries);
    EXPECT_EQ(view.viewIndex, ViewKind::Documents);
    EXPECT_EQ(view.Caption, u"File Search Results for \"1927\""_s);
    EXPECT_EQ(view.Keywords, u"1927"_s);
    EXPECT_TRUE(view.onlyInFiles);

    // a title with the word, and files
    const SharedQuery query = keywordQuery(queries, RecordKind::Document, {u"gauge"_s});
    const SharedQuery both = queryWithKeys(database.session(), RecordKind::Document, query, {6, 2, 6});
    EXPECT_EQ(firstColumnOf(database.session(), both->sqlStr()), u"2 3 6"_s);
    const SharedQuery broken = keywordQuery(queries, RecordKind::Document, {u"o'clock"_s});
    EXPECT_EQ(queryWithKeys(database.session(), RecordKind::Document, broken, {2}), broken);
    EXPECT_FALSE(keywordView(queries, RecordKind::Event, u"levee"_s, true).alsoInFiles);
    EXPECT_TRUE(keywordView(queries, RecordKind::Document, u"levee"_s, true).alsoInFiles);
}

} // namespace
