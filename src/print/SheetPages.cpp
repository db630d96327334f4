// SPDX-License-Identifier: GPL-3.0-or-later

#include "print/SheetPages.h"

#include "export/RecordSheet.h"
#include "export/SheetColumns.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr double sheetFontPoints = 10;
constexpr double captionPercent = 26;
constexpr std::size_t portion = 64;

/// In the colours of paper, whatever those of the desktop are.
QString style()
{
    return QStringLiteral("h2 { font-size: 14pt; margin-top: 0px; margin-bottom: 14px }"
                          "table { margin-top: 10px }"
                          "th { text-align: left; font-weight: bold }"
                          "th, td { padding-right: 12px; padding-bottom: 6px; vertical-align: top }"
                          "a { color: black }");
}

/// Draws the lines whose middle is between two heights. The document would draw one more above them, which
/// other programs would then find twice in a PDF.
void drawLines(QPainter& painter, const QTextLayout& layout, const QPointF& place,
               const std::pair<double, double>& edges)
{
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        const double middle = place.y() + line.y() + line.height() / 2;
        if (middle > edges.first && middle < edges.second) line.draw(&painter, place);
    }
}

} // namespace

SheetPages::SheetPages(const QString& caption, DatabaseSession& session, RecordKind kind,
                       std::vector<qint64> records)
    : PrintedPages(caption),
      m_reader(session, kind),
      m_records(std::move(records)),
      m_paper(1, 1, QImage::Format_RGB32)
{
    constexpr double inchesPerMeter = 1 / 0.0254;
    m_paper.setDotsPerMeterX(qRound(PageFormat::twipsPerInch * inchesPerMeter));
    m_paper.setDotsPerMeterY(qRound(PageFormat::twipsPerInch * inchesPerMeter));
}

void SheetPages::restart()
{
    m_pages.clear();
    m_measured = 0;
    m_sheetRecord.reset();
}

/// Returns null if the record is not there any more.
const ExportedRecord* SheetPages::read(std::size_t record)
{
    if (m_read.data() == nullptr || record < m_portion || record >= m_portion + portion) {
        m_portion = record - record % portion;
        const std::size_t count = std::min(portion, m_records.size() - m_portion);
        m_read = m_reader.read(std::span(m_records).subspan(m_portion, count));
    }
    const auto found = std::ranges::find(m_read, m_records[record], &ExportedRecord::identifier);
    return found == m_read.end() ? nullptr : &*found;
}

QTextDocument* SheetPages::sheetOf(std::size_t record)
{
    if (m_sheetRecord == record) return m_sheet.get();
    m_sheet.reset();
    m_sheetRecord = record;
    const ExportedRecord* values = read(record);
    if (values == nullptr) return nullptr;
    m_sheet = std::make_unique<QTextDocument>();
    m_sheet->setUndoRedoEnabled(false);
    m_sheet->documentLayout()->setPaintDevice(&m_paper);
    m_sheet->setDocumentMargin(0);
    m_sheet->setDefaultFont(PageFormat::font(sheetFontPoints));
    m_sheet->setDefaultStyleSheet(style());
    std::string html;
    appendRecordSheet(m_reader.kind(), m_reader.fields(), *values, html);
    m_sheet->setHtml(QString::fromStdString(html));
    alignSheetValues(*m_sheet, QTextLength(QTextLength::PercentageLength, captionPercent),
                     QTextLength(QTextLength::PercentageLength, 100 - captionPercent));
    m_sheet->setPageSize(format().content().size());
    return m_sheet.get();
}

double SheetPages::measureMore()
{
    if (m_measured == m_records.size()) return 1;
    if (const QTextDocument* sheet = sheetOf(m_measured)) {
        for (int number = 0; number < sheet->pageCount(); ++number)
            m_pages.push_back({m_measured, number});
    }
    return static_cast<double>(++m_measured) / static_cast<double>(m_records.size());
}

void SheetPages::paintContent(QPainter& painter, int page)
{
    const auto [record, number] = m_pages[static_cast<std::size_t>(page)];
    const QTextDocument* sheet = sheetOf(record);
    if (sheet == nullptr) return;
    const QRectF content = format().content();
    const double top = number * content.height();
    painter.translate(content.left(), content.top() - top);
    for (QTextBlock block = sheet->begin(); block.isValid(); block = block.next()) {
        const QPointF place = sheet->documentLayout()->blockBoundingRect(block).topLeft();
        drawLines(painter, *block.layout(), place, {top, top + content.height()});
    }
}
