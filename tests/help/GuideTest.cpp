// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/HelpFile.h"
#include "support/Testing.h"

#include <QXmlStreamReader>

namespace {

/// One page of the guide: what it leads to, what can be led to in it, and the pictures that it shows.
struct Page
{
    QStringList links;
    QSet<QString> anchors;
    QStringList pictures;
    QStringList withoutText; ///< pictures that say nothing to those who cannot see them
    QString title;
    QString error;
};

QDir guide()
{
    return QDir(QStringLiteral(ORVIK_GUIDE));
}

Page read(const QString& name)
{
    Page page;
    QXmlStreamReader reader(contentOf(guide().filePath(name)));
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) continue;
        const auto attribute = [&](const char* key) {
            return reader.attributes().value(QLatin1String(key)).toString();
        };
        if (!attribute("id").isEmpty()) page.anchors << attribute("id");
        if (reader.name() == QLatin1String("a")) page.links << attribute("href");
        if (reader.name() == QLatin1String("link")) page.links << attribute("href");
        if (reader.name() == QLatin1String("title")) page.title = reader.readElementText();
        if (reader.name() != QLatin1String("img")) continue;
        page.pictures << attribute("src");
        if (attribute("alt").size() < 10) page.withoutText << attribute("src");
    }
    if (reader.hasError()) page.error = u"line %1: %2"_s.arg(reader.lineNumber()).arg(reader.errorString());
    return page;
}

QMap<QString, Page> allPages()
{
    QMap<QString, Page> pages;
    for (const QString& name : guide().entryList({u"*.html"_s}, QDir::Files))
        pages.insert(name, read(name));
    return pages;
}

/// The pages that a contents file, an index or a project names.
QStringList pagesNamedIn(const QString& name)
{
    static const QRegularExpression page(u"[\"\\n=]([a-z-]+\\.html(#[a-z-]+)?)\\b"_s);
    QStringList names;
    auto found = page.globalMatch(QString::fromUtf8(contentOf(guide().filePath(name))));
    while (found.hasNext())
        names << found.next().captured(1);
    return names;
}

void expectTarget(const QMap<QString, Page>& pages, const QString& from, const QString& link)
{
    if (link.startsWith(u"https://"_s) || link == u"guide.css"_s) return;
    const QString target = link.section(u'#', 0, 0);
    const QString anchor = link.section(u'#', 1);
    const auto page = pages.constFind(target.isEmpty() ? from : target);
    ASSERT_TRUE(page != pages.constEnd()) << from.toStdString() << " leads to " << link.toStdString();
    EXPECT_TRUE(anchor.isEmpty() || page->anchors.contains(anchor))
        << from.toStdString() << " leads to " << link.toStdString();
}

TEST(Guide, PagesAreWellFormedAndTheirLinksAndPicturesExist)
{
    const QMap<QString, Page> pages = allPages();
    ASSERT_GE(pages.size(), 10);
    for (auto page = pages.begin(); page != pages.end(); ++page) {
        const std::string name = page.key().toStdString();
        EXPECT_EQ(page->error, QString()) << name;
        EXPECT_FALSE(page->title.isEmpty()) << name;
        // viewers of help files guess how the text is encoded
        const QByteArray content = contentOf(guide().filePath(page.key()));
        EXPECT_TRUE(std::all_of(content.begin(), content.end(), [](char c) { return c > 0; })) << name;
        EXPECT_EQ(page->withoutText, QStringList()) << name;
        for (const QString& link : page->links)
            expectTarget(pages, page.key(), link);
        for (const QString& picture : page->pictures)
            EXPECT_TRUE(guide().exists(picture)) << name << " shows " << picture.toStdString();
    }
}

TEST(Guide, ContentsSubjectsAndBookLeadToEveryPage)
{
    const QMap<QString, Page> pages = allPages();
    for (const char* file : {"Kelmsett.hhc", "Kelmsett.hhk", "Kelmsett.hhp"}) {
        const QStringList named = pagesNamedIn(QString::fromUtf8(file));
        EXPECT_FALSE(named.isEmpty()) << file;
        for (const QString& name : named)
            expectTarget(pages, QString::fromUtf8(file), name);
    }
    const QStringList contents = pagesNamedIn(u"Kelmsett.hhc"_s);
    const QStringList inBook = pagesNamedIn(u"Kelmsett.hhp"_s);
    for (const QString& name : pages.keys()) {
        EXPECT_TRUE(contents.contains(name)) << name.toStdString();
        EXPECT_TRUE(inBook.contains(name)) << name.toStdString();
    }
    // the page of subjects and the book's own index tell the same
    const QStringList onPage = pages.value(u"subjects.html"_s).links;
    for (const QString& name : pagesNamedIn(u"Kelmsett.hhk"_s))
        EXPECT_TRUE(onPage.contains(name)) << name.toStdString();
}

TEST(Guide, HasThePageOfEveryChapterAndWindow)
{
    const QStringList pages = allPages().keys();
    for (int chapter = 0; chapter <= static_cast<int>(HelpChapter::Keys); ++chapter)
        EXPECT_TRUE(pages.contains(HelpFile::pageName(static_cast<HelpChapter>(chapter)))) << chapter;

    using Expected = std::pair<const char*, const char*>;
    for (const auto& [window, page] :
         {Expected{"frmDocument", "records.html"}, Expected{"frmEvent", "records.html"},
          Expected{"frmOrganization", "records.html"}, Expected{"frmPicList", "records.html"},
          Expected{"frmSearch", "search.html"}, Expected{"frmAdvSearch", "advanced-search.html"},
          Expected{"frmImport", "database.html"}, Expected{"frmNewDatabase", "collections.html"},
          Expected{"frmSettings", "collections.html"}, Expected{"frmLists", "lists.html"},
          Expected{"frmHistory", "history.html"}, Expected{"frmDeletedRecords", "history.html"},
          Expected{"frmChangedSince", "history.html"}, Expected{"frmProgress", "safe.html"},
          Expected{"frmCheck", "check.html"}, Expected{"frmExport", "export.html"},
          Expected{"frmPrint", "export.html"}, Expected{"frmGoToDate", "timeline.html"},
          Expected{"frmAbout", "index.html"}}) {
        EXPECT_EQ(HelpFile::pageName(HelpFile::chapterOf(QString::fromUtf8(window))), QString::fromUtf8(page))
            << window;
    }
}

} // namespace
