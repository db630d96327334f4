// SPDX-License-Identifier: GPL-3.0-or-later

#include "LocalFiles.h"

#include "WarningTone.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QTextDocument>
#include <QtMath>

#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString stylesheet =
    u"body { font-family: sans-serif; max-width: 46em; margin: 2em auto; color: #222f3e; }\n"
    "h1 { border-bottom: 3px solid #b03a2e; }\n"
    ".notice { background: #f4efe6; padding: 0.5em; }\n"
    "td, th { text-align: left; vertical-align: top; }\n"_s;

/// A page names at most so many agencies; a great disaster has more links than a reader wants.
constexpr qsizetype mostAgencies = 6;

/// A sheet that is a picture, in pixels.
constexpr int pictureWidth = 900;
constexpr int pictureMargin = 36;

std::vector<std::pair<QString, QString>> publicationData(const DocumentFacts& document, const QString& owner)
{
    const std::array<std::pair<QString, QString>, 8> all{{{u"Author"_s, document.author},
                                                          {u"Date"_s, document.date},
                                                          {u"Publication"_s, document.publication},
                                                          {u"Number"_s, document.number},
                                                          {u"Volume"_s, document.volume},
                                                          {u"Pages"_s, document.pages},
                                                          {u"Source"_s, owner},
                                                          {u"Address"_s, document.address}}};
    std::vector<std::pair<QString, QString>> known;
    for (const auto& entry : all) {
        if (!entry.second.isEmpty()) known.push_back(entry);
    }
    return known;
}

QString agencyLine(const OrganizationFacts& agency)
{
    const QString place = agency.place.isEmpty() ? QString() : u" (%1)"_s.arg(agency.place);
    return u"%1%2. %3"_s.arg(agency.name, place, agency.activities).trimmed();
}

} // namespace

LocalFiles::LocalFiles(const FigureTables& figures, const FigurePainter& painter, const EventRecords& events,
                       const OrganizationRecords& organizations, const QDir& folder)
    : m_figures(figures),
      m_painter(painter),
      m_events(events),
      m_organizations(organizations),
      m_folder(folder)
{
}

void LocalFiles::check(const DocumentFacts& document) const
{
    const FigureTable* figures = figuresOf(document);
    if (document.figures.isEmpty()) return;
    if (figures == nullptr || figures->rows.empty())
        document.row.fail(u"there are no figures \"%1\""_s.arg(document.figures));
    if (document.localFile == LocalFile::Map && !figures->hasPlaces())
        document.row.fail(u"the figures %1 have no places"_s.arg(document.figures));
}

void LocalFiles::write(const DocumentFacts& document) const
{
    const FigureTable* figures = figuresOf(document);
    switch (document.localFile) {
    case LocalFile::None:
        break;
    case LocalFile::Sheet:
        writeSheet(document);
        break;
    case LocalFile::Chart:
        writeImage(m_painter.barChart(*figures), document.fileLocation);
        break;
    case LocalFile::Map:
        writeImage(m_painter.placeMap(*figures), document.fileLocation);
        break;
    case LocalFile::Table:
        writeBytes(figuresAsCsv(*figures).toUtf8(), document.fileLocation);
        break;
    case LocalFile::Tone:
        writeBytes(warningTone(), document.fileLocation);
        break;
    }
}

const FigureTable* LocalFiles::figuresOf(const DocumentFacts& document) const
{
    return document.figures.isEmpty() ? nullptr : m_figures.find(document.figures);
}

QStringList LocalFiles::agenciesOf(const DocumentFacts& document) const
{
    std::set<qint64> agencies;
    if (document.organization > 1) agencies.insert(document.organization);
    for (const qint64 event : document.events)
        agencies.insert(m_events.facts(event).organizations.begin(),
                        m_events.facts(event).organizations.end());
    QStringList lines;
    for (const qint64 agency : agencies)
        lines.append(agencyLine(m_organizations.facts(agency)));
    return lines.first(qMin(lines.size(), mostAgencies));
}

SummarySheet LocalFiles::sheetOf(const DocumentFacts& document) const
{
    SummarySheet sheet;
    sheet.title = document.name;
    sheet.notice = sampleNotice() +
                   u". It describes the publication named above in other words; it is not that "
                   "publication, nor a part of it."_s;
    const QString owner =
        document.organization > 1 ? m_organizations.facts(document.organization).name : QString();
    sheet.data = publicationData(document, owner);
    if (!document.description.isEmpty())
        sheet.sections.push_back({u"What it is about"_s, {document.description}});

    QStringList events;
    for (const qint64 identifier : document.events) {
        const EventFacts& event = m_events.facts(identifier);
        const QString when = event.when.isEmpty() ? QString() : u" (%1)"_s.arg(event.when);
        events.append(u"%1%2. %3"_s.arg(event.name, when, event.description));
    }
    if (!events.isEmpty()) sheet.sections.push_back({u"The events"_s, events});
    const QStringList agencies = agenciesOf(document);
    if (!agencies.isEmpty()) sheet.sections.push_back({u"The agencies"_s, agencies});
    sheet.figures = figuresOf(document);
    return sheet;
}

QImage LocalFiles::pictureOf(const FigureTable& figures) const
{
    return figures.hasPlaces() ? m_painter.placeMap(figures) : m_painter.barChart(figures);
}

void LocalFiles::writeSheet(const DocumentFacts& document) const
{
    const SummarySheet sheet = sheetOf(document);
    const QString extension = QFileInfo(document.fileLocation).suffix();
    if (extension == u"pdf"_s)
        writePdf(sheet, m_folder.filePath(document.fileLocation));
    else if (extension == u"htm"_s)
        writePage(sheet, document);
    else if (extension == u"rtf"_s)
        writeBytes(sheetAsRtf(sheet), document.fileLocation);
    else if (extension == u"jpg"_s || extension == u"png"_s)
        writeImage(pictureOf(sheet), document.fileLocation);
    else
        writeBytes(sheetAsText(sheet).toUtf8(), document.fileLocation);
}

void LocalFiles::layOut(const SummarySheet& sheet, QTextDocument& text) const
{
    QString picture;
    if (sheet.figures != nullptr) {
        picture = u"figure.png"_s;
        text.addResource(QTextDocument::ImageResource, QUrl(picture), pictureOf(*sheet.figures));
    }
    text.setDefaultFont(QFont(u"Sans Serif"_s, 10));
    text.setHtml(sheetAsHtmlBody(sheet, picture));
}

QImage LocalFiles::pictureOf(const SummarySheet& sheet) const
{
    QTextDocument text;
    layOut(sheet, text);
    text.setDocumentMargin(pictureMargin);
    text.setTextWidth(pictureWidth);
    QImage image(pictureWidth, qCeil(text.size().height()), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    text.drawContents(&painter);
    return image;
}

void LocalFiles::writePdf(const SummarySheet& sheet, const QString& path) const
{
    QTextDocument text;
    layOut(sheet, text);
    QPdfWriter writer(path);
    writer.setPageSize(QPageSize(QPageSize::Letter));
    writer.setTitle(sheet.title);
    text.print(&writer);
    if (QFileInfo(path).size() == 0) throw SourceError(u"%1: the file cannot be written"_s.arg(path));
}

void LocalFiles::writePage(const SummarySheet& sheet, const DocumentFacts& document) const
{
    const QString companion = QFileInfo(document.fileLocation).completeBaseName() + u"_files"_s;
    if (!m_folder.mkpath(companion))
        throw SourceError(u"%1: the folder cannot be made"_s.arg(m_folder.filePath(companion)));
    writeImage(pictureOf(*sheet.figures), companion + u"/figure.png"_s);
    writeBytes(stylesheet.toUtf8(), companion + u"/style.css"_s);
    const QString page =
        u"<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>%1</title>\n"
        "<link rel=\"stylesheet\" href=\"%2/style.css\">\n</head>\n<body>\n%3</body>\n</html>\n"_s.arg(
            sheet.title.toHtmlEscaped(), companion, sheetAsHtmlBody(sheet, companion + u"/figure.png"_s));
    writeBytes(page.toUtf8(), document.fileLocation);
}

void LocalFiles::writeImage(const QImage& image, const QString& name) const
{
    if (!image.save(m_folder.filePath(name)))
        throw SourceError(u"%1: the picture cannot be written"_s.arg(m_folder.filePath(name)));
}

void LocalFiles::writeBytes(const QByteArray& bytes, const QString& name) const
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        throw SourceError(u"%1: %2"_s.arg(file.fileName(), file.errorString()));
}
