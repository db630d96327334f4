// SPDX-License-Identifier: GPL-3.0-or-later

// The picture of a file, and what comes of files that were made to do harm.

#include "support/Testing.h"

#include <QBuffer>
#include <QImage>

#include <sys/stat.h>

namespace {

QByteArray picture(const QSize& size, const char* format)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QBuffer bytes;
    image.save(&bytes, format);
    return bytes.data();
}

/// A PDF with one empty page of that size in points.
QByteArray pdf(const QByteArray& size)
{
    return "%PDF-1.4\n1 0 obj <</Type /Catalog /Pages 2 0 R>> endobj\n"
           "2 0 obj <</Type /Pages /Kids [3 0 R] /Count 1>> endobj\n"
           "3 0 obj <</Type /Page /Parent 2 0 R /MediaBox [0 0 " +
           size + "]>> endobj\ntrailer <</Root 1 0 R>>\n%%EOF\n";
}

/// The head of a bitmap that is 60,000 pixels wide and high.
QByteArray hugeBitmap()
{
    return QByteArray::fromHex("424d46000000000000003600000028000000"
                               "60ea000060ea0000010018000000000010000000130b0000130b00000000000000000000");
}

/// What the program makes of a file.
QSize madeOf(const QString& file, const QString& width = u"100"_s)
{
    QProcess program;
    program.start(QStringLiteral(ORVIK_PAGE), {file, width, u"100"_s});
    EXPECT_TRUE(program.waitForFinished(20000));
    const QImage image = QImage::fromData(program.readAllStandardOutput(), "PNG");
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode() == 0, !image.isNull());
    return image.isNull() ? QSize() : image.size();
}

} // namespace

TEST(Page, FitsOrIsRefused)
{
    const struct
    {
        const char* name;
        QByteArray content;
        QSize made; ///< of the picture that fits into 100 by 100 pixels; empty if there is none
    } cases[] = {
        {"wide.pdf", pdf("200 100"), {100, 50}},
        {"high.pdf", pdf("100 400"), {25, 100}},
        {"mailed.pdf", "From: a\n\n" + pdf("50 50"), {100, 100}},
        {"endless.pdf", pdf("100000000 1"), {100, 1}},
        {"cut.pdf", "%PDF-1.4\n1 0 obj", {}},
        {"wide.png", picture({400, 200}, "PNG"), {100, 50}},
        {"small.png", picture({20, 10}, "PNG"), {20, 10}},
        {"photo.jpg", picture({1000, 2000}, "JPG"), {50, 100}},
        {"called-otherwise.jpg", pdf("100 100"), {100, 100}},
        {"cut.png", picture({400, 200}, "PNG").first(40), {}},
        {"huge.bmp", hugeBitmap(), {}},
        {"empty.pdf", {}, {}},
        {"text.png", "no picture at all", {}},
    };
    const QTemporaryDir folder;
    for (const auto& [name, content, made] : cases) {
        const QString file = folder.filePath(QLatin1StringView(name));
        writeFile(file, content);
        EXPECT_EQ(madeOf(file), made) << name;
    }
}

TEST(Page, IsNotMadeOfWhatIsNoFile)
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe.pdf"_s);
    ASSERT_EQ(mkfifo(qPrintable(pipe), 0600), 0);
    EXPECT_EQ(madeOf(pipe), QSize());
    EXPECT_EQ(madeOf(folder.path()), QSize());
    EXPECT_EQ(madeOf(folder.filePath(u"nothing.pdf"_s)), QSize());
    const QString file = folder.filePath(u"page.pdf"_s);
    writeFile(file, pdf("100 100"));
    for (const char* width : {"0", "-5", "wide", "100000"})
        EXPECT_EQ(madeOf(file, QLatin1StringView(width)), QSize()) << width;
}
