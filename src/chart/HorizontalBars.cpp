// SPDX-License-Identifier: GPL-3.0-or-later

#include "chart/HorizontalBars.h"

#include "util/ReadableLine.h"
#include "widgets/Paper.h"

#include <QFontMetrics>
#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <limits>

namespace {

constexpr double nameShare = 0.45; ///< of the width, for the names

// pixels
constexpr int sideMargin = 10;
constexpr int besideBar = 6; ///< from a name to its bar, and from there to its number
constexpr int betweenRows = 8;
constexpr int topRoom = 34; ///< with the margins above and below
constexpr int narrowestNames = 60;
constexpr int shortestRoom = 20;
constexpr int highestWhole = 12000; ///< an image of twice that height can still be drawn

} // namespace

HorizontalBars::HorizontalBars(const QWidget& view, const std::vector<DocumentTypeCount>& counts)
    : m_view(view), m_counts(counts)
{
}

void HorizontalBars::layOut()
{
    const QFontMetrics metrics = m_view.fontMetrics();
    const int width = m_view.width();
    const int widest = std::max(static_cast<int>(width * nameShare), narrowestNames);
    m_rows.clear();
    m_nameWidth = 0;
    for (const DocumentTypeCount& count : m_counts) {
        const QString name = readableLine(count.name);
        // the advance is rounded
        const int advance = metrics.horizontalAdvance(name) + 1;
        m_nameWidth = std::max(m_nameWidth, std::min(advance, widest));
        m_rows.push_back({{name}, 0, 0, 0, QString::number(count.documents)});
        if (advance > widest)
            m_rows.back().name = Paper::lines(name, m_view.font(), widest, std::numeric_limits<int>::max());
    }
    const qint64 highest = highestCount(m_counts);
    const int numbers = metrics.horizontalAdvance(QString::number(highest));
    const int room = std::max(width - m_nameWidth - numbers - 2 * besideBar - 2 * sideMargin, shortestRoom);
    int top = topRoom;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        Row& row = m_rows[i];
        row.top = top;
        row.height = static_cast<int>(row.name.size()) * metrics.height() + betweenRows;
        const double share = static_cast<double>(m_counts[i].documents) / static_cast<double>(highest);
        row.length = std::max(static_cast<int>(share * room), 1);
        top += row.height;
    }
}

int HorizontalBars::bottom() const
{
    return m_rows.empty() ? topRoom : m_rows.back().top + m_rows.back().height + betweenRows;
}

QSize HorizontalBars::leastSize() const
{
    return {0, bottom()};
}

QSize HorizontalBars::wholeSize() const
{
    // the wider it is, the fewer lines the names take
    return bottom() > highestWhole ? QSize(2 * m_view.width(), m_view.height())
                                   : QSize(m_view.width(), bottom());
}

QRect HorizontalBars::plainBar(const Row& row) const
{
    const int thickness = m_view.fontMetrics().height();
    return {sideMargin + m_nameWidth + besideBar, row.top + (row.height - thickness) / 2, row.length,
            thickness};
}

void HorizontalBars::draw(QPainter& painter, const QRect& sight)
{
    const QPalette colours = m_view.palette();
    painter.fillRect(sight, colours.color(QPalette::Base));
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const Row& row = m_rows[i];
        if (row.top + row.height < sight.top() || row.top > sight.bottom()) continue;
        drawRow(painter, row, m_marked == static_cast<int>(i));
    }
}

void HorizontalBars::drawRow(QPainter& painter, const Row& row, bool isMarked) const
{
    const QPalette colours = m_view.palette();
    const QRect bar = plainBar(row);
    const QColor colour = colours.color(QPalette::Highlight);
    painter.fillRect(bar, isMarked ? colour.darker() : colour);
    painter.setPen(colours.color(QPalette::Text));
    // a text from right to left, too, ends at its bar
    constexpr auto atBar = Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute;
    QRect line(sideMargin, row.top + betweenRows / 2, m_nameWidth, bar.height());
    for (const QString& text : row.name) {
        painter.drawText(line, atBar | Qt::TextSingleLine | Qt::TextDontClip, text);
        line.translate(0, bar.height());
    }
    const QRect number(bar.right() + 1 + besideBar, bar.top(), 0, bar.height());
    painter.drawText(number, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, row.number);
}

QRect HorizontalBars::barRect(int bar) const
{
    const Row& row = m_rows.at(static_cast<std::size_t>(bar));
    return plainBar(row).adjusted(0, 0, besideBar + m_view.fontMetrics().horizontalAdvance(row.number), 0);
}

std::optional<int> HorizontalBars::barAt(QPoint position) const
{
    const auto row = std::ranges::find_if(
        m_rows, [&](const Row& at) { return position.y() >= at.top && position.y() < at.top + at.height; });
    if (row == m_rows.end()) return std::nullopt;
    const auto bar = static_cast<int>(row - m_rows.begin());
    return position.x() <= barRect(bar).right() ? std::optional(bar) : std::nullopt;
}
