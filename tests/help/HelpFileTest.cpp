// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/HelpFile.h"

#include "help/AboutText.h"
#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"
#include "util/Error.h"

#include <cerrno>

namespace {

/// A program folder, and what the guide in it is opened with.
class HelpFileTest : public ::testing::Test
{
protected:
    void addBook() { writeFile(path("Kelmsett.chm"), "book"); }
    void addPages()
    {
        for (const char* name : {"index.html", "subjects.html", "records.html"})
            writeFile(path("help/") + QString::fromUtf8(name), "page");
    }

    /// What was tried, without the folder, in this order.
    std::string tried(HelpChapter chapter)
    {
        m_shell.opened.clear();
        m_error = 0;
        try {
            HelpFile(m_folder, m_shell).open(chapter);
        } catch (const Error& error) {
            m_error = error.number();
        }
        return m_shell.opened.join(u'|').remove(m_place.path() + u'/').toStdString();
    }

    QString path(const char* name) const { return m_place.filePath(QString::fromUtf8(name)); }

    QTemporaryDir m_place;
    ProgramFolder m_folder{m_place.path()};
    ScriptedShell m_shell;
    int m_error = 0;
};

TEST_F(HelpFileTest, OpensTheBookForTheWholeGuideAndAPageForAChapter)
{
    addBook();
    addPages();
    EXPECT_EQ(tried(HelpChapter::Contents), "Kelmsett.chm");
    EXPECT_EQ(tried(HelpChapter::Subjects), "Kelmsett.chm");
    EXPECT_EQ(tried(HelpChapter::Records), "help/records.html");

    m_shell.unknown = {u".chm"_s};
    EXPECT_EQ(tried(HelpChapter::Contents), "Kelmsett.chm|help/index.html");
    EXPECT_EQ(tried(HelpChapter::Subjects), "Kelmsett.chm|help/subjects.html");

    m_shell.unknown = {u".html"_s};
    EXPECT_EQ(tried(HelpChapter::Records), "help/records.html|Kelmsett.chm");
    EXPECT_EQ(m_error, 0);
}

TEST_F(HelpFileTest, NeverAsksForAFileThatIsNotThere)
{
    EXPECT_EQ(tried(HelpChapter::Contents), "");
    EXPECT_EQ(m_error, ENOENT);
    addPages();
    EXPECT_EQ(tried(HelpChapter::Contents), "help/index.html");
    EXPECT_EQ(m_error, 0);
    EXPECT_EQ(tried(HelpChapter::Map), "");
    EXPECT_EQ(m_error, ENOENT);
    addBook();
    EXPECT_EQ(tried(HelpChapter::Map), "Kelmsett.chm");

    m_shell.hasProgram = false;
    EXPECT_EQ(tried(HelpChapter::Contents), "Kelmsett.chm|help/index.html");
    EXPECT_EQ(m_error, ENOEXEC);
}

TEST_F(HelpFileTest, IsRenewedFromTheInstalledGuideAndNothingElseIsTouched)
{
    const QString installed = path("installed");
    const QString home = path("home");
    writeFile(installed + u"/Kelmsett.chm"_s, "new book");
    writeFile(installed + u"/help/index.html"_s, "new page");
    writeFile(installed + u"/help/pictures/list.png"_s, "picture");
    writeFile(installed + u"/data/a.sqlite"_s, "sample rows");
    QFile::setPermissions(installed + u"/Kelmsett.chm"_s, QFile::ReadOwner);
    writeFile(home + u"/help/index.html"_s, "page");
    writeFile(home + u"/data/a.sqlite"_s, "my rows");

    // the second time the files that are there are replaced again
    for (const char* book : {"new book", "a newer book"}) {
        QFile::setPermissions(installed + u"/Kelmsett.chm"_s, QFile::ReadOwner | QFile::WriteOwner);
        writeFile(installed + u"/Kelmsett.chm"_s, book);
        QFile::setPermissions(installed + u"/Kelmsett.chm"_s, QFile::ReadOwner);
        HelpFile::renew(home, installed);
        EXPECT_EQ(contentOf(home + u"/Kelmsett.chm"_s), book);
    }
    EXPECT_EQ(contentOf(home + u"/help/index.html"_s), "new page");
    EXPECT_EQ(contentOf(home + u"/help/pictures/list.png"_s), "picture");
    EXPECT_EQ(contentOf(home + u"/data/a.sqlite"_s), "my rows");

    // without an installed guide, or with the installed folder as program folder, everything stays
    HelpFile::renew(home, QString());
    HelpFile::renew(installed, installed);
    EXPECT_EQ(contentOf(home + u"/Kelmsett.chm"_s), "a newer book");
    EXPECT_EQ(contentOf(installed + u"/Kelmsett.chm"_s), "a newer book");
}

TEST(AboutText, CountsWhatTheListsShow)
{
    TestDatabase database;
    database.run(
        "INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (1, 'None', 'ACTIVE'), "
        "(2, 'a', 'ACTIVE'), (3, 'b', 'DELETED'), (4, 'c', NULL), (5, 'd', 'SUBMITTED');"
        "INSERT INTO Event (EventID, EventName, Status) VALUES (1, 'None', 'ACTIVE'), (2, 'a', 'ACTIVE')");
    EXPECT_TRUE(AboutText::database(database.session())
                    .endsWith(u"test.sqlite<br>2 documents, 1 event, 0 organizations"_s));

    database.run("DROP TABLE Organization");
    EXPECT_TRUE(AboutText::database(database.session())
                    .endsWith(u"<br>The records cannot be counted: no such table: Organization"_s));

    DatabaseSession none;
    EXPECT_EQ(AboutText::database(none), u"No database is open."_s);
}

} // namespace
