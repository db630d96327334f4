#include "files/HelpFile.h"

#include "support/ScriptedPlatform.h"
#include "util/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>

namespace {

void write(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

/// A program folder, and what the guide in it is opened with.
class HelpFileTest : public ::testing::Test
{
protected:
    void addBook() { write(path("Kelmsett.chm"), "book"); }
    void addPages()
    {
        for (const char* name : {"index.html", "subjects.html", "records.html"})
            write(path("help/") + QString::fromUtf8(name), "page");
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

    m_shell.unknown = {QStringLiteral(".chm")};
    EXPECT_EQ(tried(HelpChapter::Contents), "Kelmsett.chm|help/index.html");
    EXPECT_EQ(tried(HelpChapter::Subjects), "Kelmsett.chm|help/subjects.html");

    m_shell.unknown = {QStringLiteral(".html")};
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
    write(installed + QStringLiteral("/Kelmsett.chm"), "new book");
    write(installed + QStringLiteral("/help/index.html"), "new page");
    write(installed + QStringLiteral("/help/pictures/list.png"), "picture");
    write(installed + QStringLiteral("/data/a.sqlite"), "sample rows");
    QFile::setPermissions(installed + QStringLiteral("/Kelmsett.chm"), QFile::ReadOwner);
    write(home + QStringLiteral("/help/index.html"), "page");
    write(home + QStringLiteral("/data/a.sqlite"), "my rows");

    // the second time the files that are there are replaced again
    for (const char* book : {"new book", "a newer book"}) {
        QFile::setPermissions(installed + QStringLiteral("/Kelmsett.chm"),
                              QFile::ReadOwner | QFile::WriteOwner);
        write(installed + QStringLiteral("/Kelmsett.chm"), book);
        QFile::setPermissions(installed + QStringLiteral("/Kelmsett.chm"), QFile::ReadOwner);
        HelpFile::renew(home, installed);
        EXPECT_EQ(contentOf(home + QStringLiteral("/Kelmsett.chm")), book);
    }
    EXPECT_EQ(contentOf(home + QStringLiteral("/help/index.html")), "new page");
    EXPECT_EQ(contentOf(home + QStringLiteral("/help/pictures/list.png")), "picture");
    EXPECT_EQ(contentOf(home + QStringLiteral("/data/a.sqlite")), "my rows");

    // without an installed guide, or with the installed folder as program folder, everything stays
    HelpFile::renew(home, QString());
    HelpFile::renew(installed, installed);
    EXPECT_EQ(contentOf(home + QStringLiteral("/Kelmsett.chm")), "a newer book");
    EXPECT_EQ(contentOf(installed + QStringLiteral("/Kelmsett.chm")), "a newer book");
}

} // namespace
