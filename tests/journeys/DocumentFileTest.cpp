// SPDX-License-Identifier: GPL-3.0-or-later

#include "DocumentJourney.h"
#include "editors/RecordEditors.h"

namespace {

class DocumentFile : public DocumentJourney
{
};

/// What a desktop does when files are dragged over a widget and let go. `whileOver` runs in between.
void dropFiles(
    QWidget& target, const QStringList& files, const std::function<void()>& whileOver = [] {})
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& file : files)
        urls << QUrl::fromLocalFile(file);
    data.setUrls(urls);
    data.setText(files.front());
    QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &enter);
    EXPECT_TRUE(enter.isAccepted());
    whileOver();
    QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &drop);
    QCoreApplication::processEvents();
}

TEST_F(DocumentFile, TakesADroppedFileWithWhatItsNameSays)
{
    const QString several = u"Only one file can be taken at a time. Please drop one file."_s;
    QWidget& window = *journey.program->window();
    messages().expectMessage(several);
    dropFiles(window, {source, source});
    inDialog(
        "frmDocument", [&] { dropFiles(window, {source}); },
        [&](OpenDialog& dialog) {
            auto& field = dialog.find<QLineEdit>("txtOriginalFilename");
            QWidget& notes = *dialog.find<QPlainTextEdit>("rtbNotes").viewport();
            const auto expect = [&](const char* file, const char* title, const char* type) {
                EXPECT_TRUE(dialog.text("txtOriginalFilename").ends_with(file));
                EXPECT_EQ(dialog.text("txtDocumentName"), title) << file;
                EXPECT_EQ(dialog.text("cmbFileTypeNames"), type) << file;
            };
            expect("/scan.PDF", "scan", "Adobe PDF");
            const QColor ground = field.palette().color(QPalette::Base);
            dropFiles(notes, {u"/in/old_page.html"_s},
                      [&] { EXPECT_NE(field.palette().color(QPalette::Base), ground) << "it lights up"; });
            EXPECT_EQ(field.palette().color(QPalette::Base), ground);
            expect("/in/old_page.html", "old page", "Web Page");
            EXPECT_EQ(dialog.text("rtbNotes"), "");
            dropFiles(notes, {u"/in/b.txt"_s});
            expect("/in/b.txt", "b", "Web Page");
            messages().expectMessage(several);
            dropFiles(notes, {source, source});
            expect("/in/b.txt", "b", "Web Page");
            // what the user says counts
            dialog.type("txtDocumentName", u"Mine"_s);
            dialog.find<QWidget>("cmbFileTypeNames").setFocus();
            dialog.press(Qt::Key_Up);
            journey.desktop.fileDialogs.files = {u"/in/c.htm"_s};
            dialog.click("cmdUploadDocument");
            expect("/in/c.htm", "Mine", "Adobe PDF");
            discard(dialog, messages());
        });
}

TEST_F(DocumentFile, CompletesARecordWhoseFileCouldNotBeCopied)
{
    const QString inTheWay = journey.dataFolder() + u"documents/3.PDF/kept"_s;
    const auto failOnce = [&](OpenDialog& dialog) {
        QDir().mkpath(inTheWay);
        fillIn(dialog);
        messages().expectMessageBeginning(u"saveDocument Error (21): "_s);
        dialog.click("cmdOK");
        messages().finish();
        QDir(inTheWay).removeRecursively();
        QDir().rmdir(QFileInfo(inTheWay).path());
    };
    const QString longPath = journey.database.folder() + u'/' + QString(300, u'n') + u".pdf"_s;
    inEditor("mnuRecordAddNewDocument", [&](OpenDialog& dialog) {
        fillIn(dialog);
        dialog.type("txtOriginalFilename", longPath);
        messages().expectMessage(u"saveDocument Error (36): File name too long (%1)"_s.arg(longPath));
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.text("txtOriginalFilename"), longPath.toStdString());
        EXPECT_EQ(dialog.text("rtbDocumentDescription"), "About levees");
        EXPECT_TRUE(QDir(journey.dataFolder() + u"documents"_s).isEmpty());
        failOnce(dialog);
        dialog.type("txtAuthor", u"A. Writer"_s);
        dialog.click("cmdOK");
    });
    const QString stored = journey.dataFolder() + u"documents/3.PDF"_s;
    EXPECT_TRUE(QFileInfo(stored).isFile());
    EXPECT_EQ(rows("SELECT DocumentID, Author FROM Document WHERE DocumentName = 'Levees'"), "3|A. Writer");
    EXPECT_EQ(rows("SELECT DocumentTypeID FROM DocumentTypes WHERE DocumentID = 3"), "1");
    EXPECT_EQ(rows("SELECT FileLocation FROM Document_HIST WHERE DocumentID = 3"), "3.PDF");
}

TEST_F(DocumentFile, ADocumentWithoutAFileIsGivenOneWhileItIsEdited)
{
    journey.database.run("UPDATE Document SET FileLocation = NULL WHERE DocumentID = 2");
    const QString stored = journey.dataFolder() + u"documents/2.PDF"_s;
    const auto edit = [&](const std::function<void(OpenDialog&)>& work) {
        journey.select("Old Levees");
        inEditor("mnuRecordEdit", work);
    };
    edit([&](OpenDialog& dialog) {
        EXPECT_TRUE(dialog.find<QWidget>("cmdUploadDocument").isVisible());
        EXPECT_EQ(dialog.text("txtOriginalFilename"), "C:\\papers\\old.html");
        dialog.type("txtAuthor", u"B. Writer"_s);
        dialog.click("cmdOK");
    });
    EXPECT_EQ(rows("SELECT Author, OriginalFilename, FileLocation FROM Document WHERE DocumentID = 2"),
              "B. Writer|C:\\papers\\old.html|NULL")
        << "a path that names no file stays as it is";
    edit([&](OpenDialog& dialog) {
        dialog.type("txtOriginalFilename", source + u'x');
        dialog.type("txtAuthor", u"C. Writer"_s);
        messages().expectMessageBeginning(u"updateDocument Error (2): "_s);
        dialog.click("cmdOK");
        messages().finish();
        EXPECT_EQ(rows("SELECT Author FROM Document WHERE DocumentID = 2"), "B. Writer");
        dialog.type("txtOriginalFilename", QString());
        messages().expectMessage(
            u"Document filename is required. Please browse to select your document file."_s);
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), "txtOriginalFilename");
        journey.desktop.fileDialogs.files = {source};
        dialog.click("cmdUploadDocument");
        dialog.click("cmdOK");
    });
    const std::string given = "C. Writer|" + source.toStdString() + "|2.PDF";
    EXPECT_EQ(rows("SELECT Author, OriginalFilename, FileLocation FROM Document WHERE DocumentID = 2"),
              given);
    EXPECT_EQ(rows("SELECT Author, OriginalFilename, FileLocation FROM Document_HIST WHERE Author LIKE 'C%'"),
              given);
    EXPECT_TRUE(QFileInfo(stored).isFile());
    edit([&](OpenDialog& dialog) {
        EXPECT_FALSE(dialog.find<QWidget>("txtOriginalFilename").isVisible()) << "it has a file now";
        EXPECT_FALSE(dialog.find<QWidget>("lblFilename").isVisible());
        dialog.click("cmdCancel");
    });
    QFile::remove(stored);
    edit([&](OpenDialog& dialog) { dialog.click("cmdOK"); });
    EXPECT_TRUE(QFileInfo(stored).isFile()) << "the path that the field shows names a file";
}

TEST_F(DocumentFile, TwoDatabasesOfAnOldFolderHaveTheirOwnFiles)
{
    journey.program.reset();
    journey.database.run("UPDATE Document SET FileLocation = '2.pdf' WHERE DocumentID = 2");
    const QString other = journey.dataFolder() + u"other.sqlite"_s;
    ASSERT_TRUE(QFile::copy(journey.database.fileName(), other));
    SQLite::Database(other.toStdString(), SQLite::OPEN_READWRITE)
        .exec("UPDATE Document SET FileLocation = '2.txt' WHERE DocumentID = 2; INSERT INTO Document "
              "(DocumentID, DocumentName, FileLocation, dStatus) VALUES (3, 'Theirs', '3.PDF', 'ACTIVE')");
    for (const char* file : {"2.pdf", "2.txt", "3.PDF"})
        writeFile(journey.dataFolder() + u"documents/"_s + QLatin1StringView(file), file);

    const QString own = journey.database.folder() + u"/other"_s;
    messages().expectMessage(
        u"Several databases shared one folder, where the files of one could replace those of another. "
        "test.sqlite stays where it was; these have folders of their own now:\n\nother.sqlite, now in "
        "%1\n\n2 files were moved with them."_s.arg(own));
    start("mnuViewDocuments");
    messages().finish();
    inEditor("mnuRecordAddNewDocument", [&](OpenDialog& dialog) {
        fillIn(dialog);
        dialog.click("cmdOK");
    });
    EXPECT_EQ(contentOf(journey.dataFolder() + u"documents/3.PDF"_s), contentOf(source));
    EXPECT_EQ(contentOf(own + u"/data/documents/3.PDF"_s), "3.PDF");
    for (const auto& [database, file] :
         {std::pair(u"test.sqlite"_s, journey.dataFolder() + u"documents/2.pdf"_s),
          std::pair(u"../other/data/other.sqlite"_s, own + u"/data/documents/2.txt"_s)}) {
        journey.program.reset();
        journey.start(database);
        journey.trigger("mnuViewDocuments");
        journey.select("Old Levees");
        journey.trigger("mnuRecordOpen");
        EXPECT_EQ(journey.desktop.shell.opened.takeFirst(), file);
    }
}

} // namespace
