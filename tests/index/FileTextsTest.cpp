// SPDX-License-Identifier: GPL-3.0-or-later

#include "index/IndexedFolder.h"
#include "support/Testing.h"

#include <QStringEncoder>

#include <sys/stat.h>

namespace {

constexpr qsizetype largestText = 64 << 20; ///< bytes

QByteArray encoded(const char* encoding, const QString& text)
{
    QStringEncoder encoder(encoding);
    return encoder(text);
}

struct Case
{
    const char* name;
    QByteArray content;
    const char* text; ///< what the index holds of it
};

std::vector<Case> texts()
{
    const QByteArray cyrillic = "<meta http-equiv='Content-Type' content='text/html; charset=koi8-r'><p>";
    return {
        {"utf8.txt", "Größe\t\"x\"\r\n\fnext\x1a", "Größe \"x\" next"},
        {"marked.txt", "\xef\xbb\xbfmarked", "marked"},
        {"damaged.txt", "äöü Ł ß \xff ok", "äöü Ł ß \xef\xbf\xbd ok"},
        {"windows.txt", "Gr\xf6\xdf\x65 \x96 \x84so\x93 5 \x80", "Größe – „so“ 5 €"},
        {"utf16.txt", "\xff\xfe" + encoded("UTF-16LE", u"Привет"_s), "Привет"},
        {"big.txt", QByteArray("\xfe\xff\x04\x1f", 4), "П"},
        {"markless.txt", encoded("UTF-16LE", u"no mark, größe"_s), "no mark, größe"},
        {"other.txt", encoded("UTF-16BE", u"no mark, größe"_s), "no mark, größe"},
        {"joined.txt", "o\xef\xac\x83\x63\x65 Do\xc2\xadnau e\xcc\x81t\xc3\xa9", "office Donau e\xcc\x81té"},
        {"no ending", "plain", "plain"},
        {"page.html",
         "<html><head><title>A title</title><style>p{}</style><script>unseen()</script></head><body>"
         "<table><tr><td>one<td>two</table>three<p>W<b>o</b>rd&eacute; &lt;b&gt;<!-- unseen --><br>end"
         "<noscript>unseen</noscript><img src=x alt='a picture'>",
         "A title one two three Wordé <b> end a picture"},
        {"undeclared.htm", "<p>gr\xc3\xb6\xc3\x9f\x65 \xe2\x80\x93", "größe –"},
        {"wrong.htm", "<meta charset=iso-8859-1><p>gr\xc3\xb6\xc3\x9f\x65", "größe"},
        {"declared.htm", cyrillic + encoded("KOI8-R", u"Привет"_s), "Привет"},
        {"unknown.htm", "<meta charset=no-such><p>gr\xf6\xdf\x65", "größe"},
        {"sixteen.htm", "\xff\xfe" + encoded("UTF-16LE", u"<html><p>größe"_s), "größe"},
        {"xml.xhtml", "<?xml version='1.0' encoding='windows-1251'?><html><p>\xcf\xf0\xe8</p></html>", "При"},
        {"deep.html", QByteArray("<div>").repeated(100'000) + "deep", "deep"},
        {"zero.html", "<p>before" + QByteArray(5000, ' ') + QByteArray("\0after", 6), "before after"},
        {"page.txt", " \n<!DOCTYPE HTML>\n<p>by its <i>content", "by its content"},
        {"file.pdf", pdfOf("caf\xe9 au lait"), "café au lait"},
        {"-dash.pdf", pdfOf("dash"), "dash"},
        {"pdf.txt", QByteArray(1019, '\n') + pdfOf("in spite of its ending"), "in spite of its ending"},
        {"page.pdf", "<html><p>no PDF", "no PDF"},
        {"full.txt", "full" + QByteArray(largestText - 4, ' '), "full"},
    };
}

std::vector<Case> failures()
{
    const QByteArray password(32, 'x');
    return {
        {"empty.txt", "", "! It is empty."},
        {"blank.txt", " \r\n", "! It holds no text. Scanned pages are pictures."},
        {"scan.pdf", pdfOf(""), "! It holds no text. Scanned pages are pictures."},
        {"secret.pdf",
         pdfOf("secret", "/ID[(a)(a)]/Encrypt<</Filter/Standard/V 1/R 2/P -4/O(" + password + ")/U(" +
                             password + ")>>"),
         "! A password protects it."},
        {"broken.pdf", "%PDF-1.4\nand nothing else", "! It is damaged."},
        {"binary.pdf", QByteArray("\x00\x01\x02\x03", 4), "! It is damaged."},
        {"picture.jpg", QByteArray("\xff\xd8\xff\xe0\x00\x10JFIF", 10),
         "! It is not a PDF, a web page or a text."},
        {"long.txt", "long" + QByteArray(largestText - 3, ' '), "! It is too large."},
        {"long.html", "<!--" + QByteArray(largestText, ' '), "! It is too large."},
        {"letter.rtf", "{\\rtf1 text}", "! It is not a PDF, a web page or a text."},
    };
}

} // namespace

TEST(FileTextsTest, EachFileHasItsTextOrTheReasonWhyNot)
{
    const IndexedFolder folder;
    QMap<QString, QString> expected;
    for (const auto& cases : {texts(), failures()}) {
        for (const Case& each : cases) {
            const QString name = QString::fromUtf8(each.name);
            folder.write(name, each.content);
            expected[name] = QString::fromUtf8(each.text);
        }
    }
    const IndexRun run = folder.run(expected.keys() + QStringList{u"missing.pdf"_s});
    EXPECT_EQ(run.status, 0);
    const QByteArray total = QByteArray::number(expected.size() + 1);
    EXPECT_EQ(run.last(), total + ' ' + total);
    const auto contents = folder.contents();
    EXPECT_EQ(contents.keys(), expected.keys());
    for (const QString& name : expected.keys())
        EXPECT_EQ(contents[name].toStdString(), expected[name].toStdString()) << name.toStdString();
    EXPECT_EQ(folder.holding(u"GROSSE"_s), QStringList());
    EXPECT_EQ(folder.holding(u"GRÖßE"_s).size(), 8);
    EXPECT_EQ(folder.holding(u"ete"_s), QStringList(u"joined.txt"_s));
    EXPECT_EQ(folder.holding(u"unseen"_s), QStringList());
}

TEST(FileTextsTest, WhatIsNoFileOfTheFolderIsNotRead)
{
    const IndexedFolder folder;
    folder.write(u"Kept.TXT"_s, "kept");
    folder.write(u"a.txt"_s, "small");
    folder.write(u"A.txt"_s, "capital");
    folder.write(u"../outside.txt"_s, "outside");
    folder.write(u"large.txt"_s, "large");
    folder.write(u"folder/inside.txt"_s, "inside");
    ASSERT_TRUE(QFile::resize(folder.path(u"large.txt"_s), 1LL << 40));
    ASSERT_EQ(mkfifo(qPrintable(folder.path(u"pipe.pdf"_s)), 0600), 0);
    ASSERT_TRUE(QFile::link(u"../outside.txt"_s, folder.path(u"out.txt"_s)));
    ASSERT_TRUE(QFile::link(u"Kept.TXT"_s, folder.path(u"in.txt"_s)));
    ASSERT_TRUE(QFile::link(u"/dev/zero"_s, folder.path(u"zero.txt"_s)));
    const QStringList names{u"a.txt"_s,    u"A.txt"_s,   u"kept.txt"_s,       u"large.txt"_s,
                            u"pipe.pdf"_s, u"out.txt"_s, u"in.txt"_s,         u"zero.txt"_s,
                            u"folder"_s,   u"."_s,       u"../outside.txt"_s, u"folder/inside.txt"_s};
    const QMap<QString, QString> expected{{u"a.txt"_s, u"small"_s},
                                          {u"A.txt"_s, u"capital"_s},
                                          {u"kept.txt"_s, u"kept"_s},
                                          {u"in.txt"_s, u"kept"_s},
                                          {u"large.txt"_s, u"! It is too large."_s},
                                          {u"pipe.pdf"_s, u"! It is not a file."_s},
                                          {u"folder"_s, u"! It is not a file."_s}};
    EXPECT_EQ(folder.run(names).status, 0);
    EXPECT_EQ(folder.contents(), expected);
}
