// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/FileUpload.h"

#include "support/SizeLimit.h"
#include "support/TestDatabase.h"

#include <cerrno>
#include <sys/stat.h>

namespace {

class FileUploadTest : public testing::Test
{
protected:
    FileUploadTest() { QDir().mkpath(m_documents); }

    QString write(const QString& name, const QByteArray& content) const
    {
        QString path = m_place.filePath(name);
        writeFile(path, content);
        return path;
    }

    [[nodiscard]] QByteArray stored(const QString& name) const { return contentOf(m_documents + name); }

    /// All that the documents folder holds, hidden names too.
    [[nodiscard]] QString storedNames() const
    {
        QStringList names;
        QDirIterator entries(m_documents,
                             QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                             QDirIterator::Subdirectories);
        while (entries.hasNext())
            names << entries.next().mid(m_documents.size());
        names.sort();
        return names.join(u' ');
    }

    /// The copy ends with that error, and leaves the documents folder as it was.
    void expectRefused(const QString& path, int number)
    {
        write(u"data/documents/57.pdf"_s, "older");
        write(u"data/documents/57_files/older.txt"_s, "older");
        EXPECT_EQ(errorNumberOf([&] { m_upload.convertDocument(path, 57); }), number) << qPrintable(path);
        EXPECT_EQ(storedNames(), u"57.pdf 57_files 57_files/older.txt"_s) << qPrintable(path);
        EXPECT_EQ(stored(u"57.pdf"_s), "older") << qPrintable(path);
    }

    QTemporaryDir m_place;
    QString m_documents = m_place.filePath(u"data/documents/"_s);
    ProgramFolder m_folder{m_place.path()};
    FileUpload m_upload{m_folder};
};

TEST_F(FileUploadTest, APlainFileIsCopiedUnderItsNumber)
{
    QByteArray large(3 * 1024 * 1024 + 17, '\0');
    for (qsizetype i = 0; i < large.size(); ++i)
        large[i] = static_cast<char>(i * 31 >> 3);
    const std::tuple<QString, QByteArray, QString> cases[] = {
        {u"a.pdf"_s, "%PDF", u"57.pdf"_s},        {u"Größe & \"Maß\" 100%.PDF"_s, "b", u"57.PDF"_s},
        {u"large.tar.bin"_s, large, u"57.bin"_s}, {u"empty.txt"_s, "", u"57.txt"_s},
        {u"v1.2/noextension"_s, "c", u"57."_s},   {QString(250, u'n') + u".htm"_s, "d", u"57.htm"_s}};
    for (const auto& [name, content, storedName] : cases) {
        const QString path = write(name, content);
        QFile::setPermissions(path, QFile::ReadOwner);
        m_upload.convertDocument(path, 57);
        EXPECT_EQ(stored(storedName) == content, true) << qPrintable(name);
        EXPECT_TRUE(QFile::permissions(m_documents + storedName) & QFile::WriteOwner) << qPrintable(name);
    }
    write(u"a.pdf"_s, "newer");
    m_upload.convertDocument(m_place.filePath(u"a.pdf"_s), 57);
    EXPECT_EQ(stored(u"57.pdf"_s), "newer");
    EXPECT_EQ(storedNames(), u"57. 57.PDF 57.bin 57.htm 57.pdf 57.txt"_s);
}

TEST_F(FileUploadTest, AFolderIsMadeOrFoundInAnyLetterCaseAndAPathMayBeOfTheProgram)
{
    QDir(m_documents).removeRecursively();
    m_upload.convertDocument(ProgramFolder::programForm(write(u"in/a.pdf"_s, "x")), 57);
    EXPECT_EQ(stored(u"57.pdf"_s), "x");
    ASSERT_TRUE(QDir(m_place.path()).rename(u"data/documents"_s, u"data/DOCUMENTS"_s));
    m_upload.convertDocument(write(u"b.pdf"_s, "y"), 57);
    EXPECT_EQ(contentOf(m_place.filePath(u"data/DOCUMENTS/57.pdf"_s)), "y");
    EXPECT_FALSE(FileUpload::existingFile(m_place.path()));
    EXPECT_FALSE(FileUpload::existingFile(QString()));
}

TEST_F(FileUploadTest, AWebPageIsCopiedWithItsFolder)
{
    const QString page =
        write(u"page.html"_s, "<img src='page_files/img1.gif'> page_files PAGE_FILES\r\n\0\xff"
                              "mypage_files"_ba);
    write(u"page_files/img1.gif"_s, "GIF");
    write(u"page_files/Deep/Ähre.css"_s, "page_files stays here");
    write(u"page_files/.hidden"_s, "h");
    write(u"data/documents/57_files/stale.gif"_s, "of another page");
    for (int copy = 0; copy < 2; ++copy) {
        m_upload.convertDocument(page, 57);
        EXPECT_EQ(stored(u"57.htm"_s), "<img src='57_files/img1.gif'> 57_files PAGE_FILES\r\n\0\xff"
                                       "my57_files"_ba);
        EXPECT_EQ(stored(u"57_files/img1.gif"_s), "GIF");
        EXPECT_EQ(stored(u"57_files/Deep/Ähre.css"_s), "page_files stays here");
        EXPECT_EQ(
            storedNames(),
            u"57.htm 57_files 57_files/.hidden 57_files/Deep 57_files/Deep/Ähre.css 57_files/img1.gif"_s);
    }
    EXPECT_TRUE(QFile::exists(m_place.filePath(u"page_files/img1.gif"_s)));
}

TEST_F(FileUploadTest, TheNameOfAFolderIsFoundAsPagesWriteIt)
{
    const std::pair<QString, QByteArray> cases[] = {
        {u"Crue d'été_files"_s, "Crue d'été_files"},             // UTF-8
        {u"Crue d'été_files"_s, "Crue d'\xe9t\xe9_files"},       // Latin-1
        {u"Crue d'été_files"_s, "Crue%20d'%C3%A9t%C3%A9_files"}, // as an address
        {u"A & B_files"_s, "A &amp; B_files"},
        {u"A & B_files"_s, "A%20&amp;%20B_files"},
        {u"洪水_files"_s, "洪水_files"},
        {u"7_files"_s, "7_files"}};
    for (const auto& [folder, written] : cases) {
        const QString base = folder.chopped(6);
        write(folder + u"/x.gif"_s, "x");
        m_upload.convertDocument(write(base + u".htm"_s, "\xe9 <" + written + "/x.gif> \xc3\xa9"), 57);
        EXPECT_EQ(stored(u"57.htm"_s), "\xe9 <57_files/x.gif> \xc3\xa9") << written.constData();
    }
}

TEST_F(FileUploadTest, AFolderInAnotherLetterCaseBelongsToThePage)
{
    const QString page = write(u"Page.htm"_s, "Page_files/1 page_FILES/2 PAGE_files/3");
    write(u"page_FILES/1"_s, "x");
    m_upload.convertDocument(page, 57);
    EXPECT_EQ(stored(u"57.htm"_s), "57_files/1 57_files/2 PAGE_files/3");
    EXPECT_EQ(stored(u"57_files/1"_s), "x");
}

TEST_F(FileUploadTest, TheSourceMayBeTheTarget)
{
    const QString file = write(u"data/documents/57.pdf"_s, "itself");
    m_upload.convertDocument(file, 57);
    EXPECT_EQ(stored(u"57.pdf"_s), "itself");
    const QString page = write(u"data/documents/57.htm"_s, "57_files/a.gif");
    write(u"data/documents/57_files/a.gif"_s, "GIF");
    m_upload.convertDocument(page, 57);
    EXPECT_EQ(stored(u"57.htm"_s), "57_files/a.gif");
    EXPECT_EQ(stored(u"57_files/a.gif"_s), "GIF");
    EXPECT_EQ(storedNames(), u"57.htm 57.pdf 57_files 57_files/a.gif"_s);
}

TEST_F(FileUploadTest, AFailedCopyReportsAndLeavesNothingBehind)
{
    expectRefused(m_place.filePath(u"missing.pdf"_s), ENOENT);
    expectRefused(QString(), ENOENT);
    QDir().mkpath(m_place.filePath(u"folder.pdf"_s));
    expectRefused(m_place.filePath(u"folder.pdf"_s), EISDIR);
    ASSERT_EQ(mkfifo(m_place.filePath(u"pipe.pdf"_s).toUtf8().constData(), 0600), 0);
    expectRefused(m_place.filePath(u"pipe.pdf"_s), EINVAL);
    expectRefused(write(u"a."_s + QString(253, u'e'), "x"), ENAMETOOLONG);
    expectRefused(m_place.filePath(QString(252, u'n') + u".pdf"_s), ENAMETOOLONG);
    expectRefused(m_place.filePath(QString(130, u'é') + u".htm"_s), ENAMETOOLONG);

    write(u"page_files/1.gif"_s, "x");
    expectRefused(m_place.filePath(u"page.htm"_s), ENOENT);
    QFile::link(u"nowhere"_s, m_place.filePath(u"page_files/broken.gif"_s));
    expectRefused(write(u"page.htm"_s, "x"), ENOENT);
    QFile::remove(m_place.filePath(u"page_files/broken.gif"_s));

    // a full disk
    const QString large = write(u"large.pdf"_s, QByteArray(3000000, 'x'));
    write(u"page_files/2.gif"_s, QByteArray(3000000, 'x'));
    const SizeLimit limit(1500000);
    expectRefused(large, EFBIG);
    expectRefused(m_place.filePath(u"page.htm"_s), EFBIG);
}

TEST_F(FileUploadTest, AFolderInTheWayOrRoundTheDocumentsIsLeftAlone)
{
    write(u"data/documents/57.pdf/kept.txt"_s, "kept");
    EXPECT_EQ(errorNumberOf([&] { m_upload.convertDocument(write(u"a.pdf"_s, "x"), 57); }), EISDIR);
    EXPECT_EQ(storedNames(), u"57.pdf 57.pdf/kept.txt"_s);

    const ProgramFolder inside(m_place.filePath(u"page_files"_s));
    const QString documents = m_place.filePath(u"page_files/data/documents"_s);
    QDir().mkpath(documents);
    EXPECT_EQ(errorNumberOf([&] { FileUpload(inside).convertDocument(write(u"page.htm"_s, "x"), 57); }),
              EINVAL);
    EXPECT_TRUE(QDir(documents).isEmpty());
}

TEST_F(FileUploadTest, LinksInAPagesFolderAreFollowedWithinIt)
{
    const QString page = write(u"page.htm"_s, "page_files");
    write(u"page_files/sub/1.gif"_s, "one");
    write(u"secret/key"_s, "secret");
    const QString link = m_place.filePath(u"page_files/sub/link"_s);
    for (const auto& [target, copied] :
         {std::pair{u"1.gif"_s, "57_files/sub/link"},
          std::pair{m_place.filePath(u"page_files/sub/1.gif"_s), "57_files/sub/link"},
          std::pair{u"../sub2"_s, "57_files/sub/link/1.gif"}}) {
        write(u"page_files/sub2/1.gif"_s, "one");
        QFile::link(target, link);
        m_upload.convertDocument(page, 57);
        EXPECT_EQ(stored(QString::fromLatin1(copied)), "one") << qPrintable(target);
        QFile::remove(link);
        QDir(m_documents).removeRecursively();
    }
    for (const QString& target : {u"../../secret/key"_s, m_place.filePath(u"secret"_s), u"../.."_s, u".."_s,
                                  u"."_s, u"/etc/hostname"_s}) {
        QFile::link(target, link);
        expectRefused(page, EINVAL);
        QFile::remove(link);
        QDir(m_documents).removeRecursively();
    }
    const QString other = write(u"in/other.htm"_s, "x");
    ASSERT_TRUE(QFile::link(m_place.filePath(u"secret"_s), m_place.filePath(u"in/other_files"_s)));
    expectRefused(other, EINVAL);
}

TEST_F(FileUploadTest, WhatAKilledCopyLeftIsClearedAndNothingElse)
{
    const QString charts = m_place.filePath(u"data/orgcharts/"_s);
    for (const char* name : {"documents/.upload-57", "documents/.upload-58_files/a/b.gif", "documents/57.pdf",
                             "documents/.replaced-58_files/old.gif", "documents/.replaced-59_files/old.gif",
                             "documents/59_files/new.gif", "documents/.upload-notes", "documents/.upload-5x",
                             "documents/x.upload-57", "documents/sub/.upload-57", "orgcharts/.upload-6",
                             "orgcharts/6.pdf", ".upload-7"}) {
        write(u"data/"_s + QString::fromLatin1(name), "x");
    }
    write(u"elsewhere/kept"_s, "x");
    QFile::link(m_place.filePath(u"elsewhere"_s), m_documents + u".upload-60"_s);
    m_upload.clearUnfinished();
    EXPECT_EQ(storedNames(), u".upload-5x .upload-notes 57.pdf 58_files 58_files/old.gif 59_files "
                             "59_files/new.gif sub sub/.upload-57 x.upload-57"_s);
    EXPECT_EQ(QDir(charts).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{u"6.pdf"_s});
    EXPECT_TRUE(QFile::exists(m_place.filePath(u"data/.upload-7"_s)));
    EXPECT_TRUE(QFile::exists(m_place.filePath(u"elsewhere/kept"_s)));
}

TEST_F(FileUploadTest, ATypedPathIsCleanedOfWhatStandsAroundIt)
{
    const QString odd = write(u"'odd'.pdf "_s, "x");
    const std::pair<QString, QString> cases[] = {{u"/home/a b/c.pdf"_s, u"/home/a b/c.pdf"_s},
                                                 {u"  /home/c.pdf \n"_s, u"/home/c.pdf"_s},
                                                 {u"\"/home/a b.pdf\""_s, u"/home/a b.pdf"_s},
                                                 {u" '/home/a b.pdf'\r\n"_s, u"/home/a b.pdf"_s},
                                                 {u"/home/it's.pdf"_s, u"/home/it's.pdf"_s},
                                                 {u"file:///home/a%20b%C3%A9.pdf\r\n"_s, u"/home/a bé.pdf"_s},
                                                 {u"FILE:///home/a b.pdf"_s, u"/home/a b.pdf"_s},
                                                 {u"/home/a\nb.pdf"_s, u"/home/ab.pdf"_s},
                                                 {u"C:\\papers\\x.doc"_s, u"C:\\papers\\x.doc"_s},
                                                 {u"\""_s, u"\""_s},
                                                 {u" \n"_s, QString()},
                                                 {odd, odd}};
    for (const auto& [typed, path] : cases)
        EXPECT_EQ(FileUpload::typedPath(typed), path) << qPrintable(typed);
}

} // namespace
