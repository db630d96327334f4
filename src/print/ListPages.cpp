// SPDX-License-Identifier: GPL-3.0-or-later

#include "print/ListPages.h"

#include "browse/list/RecordListModel.h"
#include "print/PrintTexts.h"
#include "util/ReadableLine.h"
#include "widgets/Paper.h"

#include <QGuiApplication>
#include <QPainter>

#include <algorithm>

namespace {

constexpr double point = PageFormat::twipsPerPoint;
constexpr double fontPoints = 9;
constexpr double between = 8 * point; ///< two columns
constexpr double keyWidth = 11 * point;
constexpr double keySize = 8 * point;
constexpr double above = 2 * point; ///< and below the texts of a row
constexpr int mostLines = 6;
constexpr int rowsAtOnce = 200;
constexpr int rowsToLookAt = 400; ///< for the widths of the columns
constexpr QColor shade(242, 242, 242);

int textFlags()
{
    return static_cast<int>(PageFormat::startSide() | Qt::AlignVCenter) | Qt::TextSingleLine |
           Qt::TextDontClip;
}

} // namespace

ListPages::ListPages(const QString& caption, const RecordListModel& model)
    : PrintedPages(caption),
      m_model(model),
      m_font(PageFormat::font(fontPoints)),
      m_titleFont(PageFormat::font(fontPoints, QFont::Bold)),
      m_metrics(m_font),
      m_lineHeight(m_metrics.height()),
      m_key(QStringLiteral(":/pictures/key.svg"))
{
}

void ListPages::restart()
{
    fitColumns();
    m_firstRows = {0};
    m_measured = 0;
    m_used = 0;
}

void ListPages::fitColumns()
{
    const auto& columns = m_model.list().columns();
    const QRectF content = format().content();
    std::vector<ColumnNeed> needed;
    double room = content.width() + between;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].marksKeys)
            room -= keyWidth + between;
        else
            needed.push_back(need(static_cast<int>(i)));
    }
    const std::vector<double> widths = fittedWidths(needed, room);
    m_columns.clear();
    double left = content.left();
    std::size_t text = 0;
    for (const ListColumn& column : columns) {
        const double width = column.marksKeys ? keyWidth : widths[text++] - between;
        m_columns.push_back({left, width, column.marksKeys});
        left += width + between;
    }
}

/// What a few hundred texts need: a wider one goes on below.
ColumnNeed ListPages::need(int column) const
{
    const QString title = m_model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    std::vector<double> widths{QFontMetricsF(m_titleFont).horizontalAdvance(title) + between};
    const int rows = m_model.rowCount();
    const int step = std::max(1, rows / rowsToLookAt);
    for (int row = 0; row < rows; row += step)
        widths.push_back(m_metrics.horizontalAdvance(text(row, column)) + between);
    std::ranges::sort(widths);
    return {widths.back(), widths[widths.size() * 9 / 10]};
}

/// As the tool tips have it, which show years with four digits: paper has none.
QString ListPages::text(int row, int column) const
{
    QString text = readableLine(m_model.list().toolTip(m_model.source(row), column));
    const auto isControl = [](QChar character) { return character < u' '; };
    std::ranges::replace_if(text, isControl, u' ');
    return text;
}

QStringList ListPages::lines(const QString& text, double width) const
{
    // of tens of thousands of rows, most texts need not be laid out
    if (m_metrics.horizontalAdvance(text) <= width) return {text};
    return Paper::lines(text, m_font, static_cast<int>(width), mostLines);
}

std::vector<QStringList> ListPages::cells(int row) const
{
    std::vector<QStringList> cells;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        cells.push_back(m_columns[i].marksKeys ? QStringList()
                                               : lines(text(row, static_cast<int>(i)), m_columns[i].width));
    }
    return cells;
}

double ListPages::heightOf(const std::vector<QStringList>& cells) const
{
    qsizetype most = 1;
    for (const QStringList& lines : cells)
        most = std::max(most, lines.size());
    return static_cast<double>(most) * m_lineHeight + 2 * above;
}

double ListPages::titlesHeight() const
{
    return m_lineHeight + 3 * above;
}

double ListPages::measureMore()
{
    const double room = format().content().height() - titlesHeight();
    const int end = std::min(m_measured + rowsAtOnce, m_model.rowCount());
    for (; m_measured < end; ++m_measured) {
        const double height = heightOf(cells(m_measured));
        if (m_used + height > room) {
            m_firstRows.push_back(m_measured);
            m_used = 0;
        }
        m_used += height;
    }
    return m_measured < m_model.rowCount() ? static_cast<double>(m_measured) / m_model.rowCount() : 1;
}

void ListPages::paintContent(QPainter& painter, int page)
{
    const auto index = static_cast<std::size_t>(page);
    paintTitles(painter);
    double top = format().content().top() + titlesHeight();
    if (m_model.rowCount() == 0) {
        painter.setFont(m_font);
        painter.drawText(cell(m_columns.front(), top, m_lineHeight + 2 * above), textFlags(),
                         PrintTexts::tr("No records"));
        return;
    }
    const int end = index + 1 < m_firstRows.size() ? m_firstRows[index + 1] : m_measured;
    for (int row = m_firstRows[index]; row < end; ++row) {
        const std::vector<QStringList> texts = cells(row);
        const QRectF place(format().content().left(), top, format().content().width(), heightOf(texts));
        paintRow(painter, row, texts, place);
        top = place.bottom();
    }
}

/// The place of a column, mirrored where the program reads from right to left.
QRectF ListPages::cell(const Column& column, double top, double height) const
{
    const double left =
        QGuiApplication::isRightToLeft() ? format().size().width() - column.left - column.width : column.left;
    return {left, top, column.width, height};
}

void ListPages::paintTitles(QPainter& painter)
{
    const QRectF content = format().content();
    painter.setFont(m_titleFont);
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const QRectF place = cell(m_columns[i], content.top(), m_lineHeight + 2 * above);
        if (m_columns[i].marksKeys) {
            paintKey(painter, place);
            continue;
        }
        const QString title =
            m_model.headerData(static_cast<int>(i), Qt::Horizontal, Qt::DisplayRole).toString();
        painter.drawText(place, textFlags(),
                         QFontMetricsF(m_titleFont).elidedText(title, Qt::ElideRight, place.width()));
    }
    const double bottom = content.top() + titlesHeight() - above;
    painter.setPen(QPen(Qt::black, 0.4 * point));
    painter.drawLine(QPointF(content.left(), bottom), QPointF(content.right(), bottom));
}

void ListPages::paintRow(QPainter& painter, int row, const std::vector<QStringList>& cells,
                         const QRectF& place)
{
    if (row % 2 != 0) painter.fillRect(place.adjusted(-above, 0, above, 0), shade);
    painter.setFont(m_font);
    painter.setPen(Qt::black);
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        QRectF line = cell(m_columns[i], place.top() + above, m_lineHeight);
        if (m_columns[i].marksKeys && m_model.list().isKey(m_model.source(row))) paintKey(painter, line);
        if (cells[i].isEmpty()) continue;
        // that of the whole text also holds for a line in another script
        painter.setLayoutDirection(cells[i].join(u' ').isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
        for (const QString& text : cells[i]) {
            painter.drawText(line, textFlags(), text);
            line.translate(0, m_lineHeight);
        }
    }
    painter.setLayoutDirection(QGuiApplication::layoutDirection());
}

void ListPages::paintKey(QPainter& painter, const QRectF& cell)
{
    QRectF place(0, 0, keySize, keySize);
    place.moveCenter(cell.center());
    m_key.render(&painter, place);
}
