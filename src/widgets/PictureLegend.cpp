// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/PictureLegend.h"

#include "widgets/Paper.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace {

// pixels
constexpr int above = 8;
constexpr int signWidth = 20;
constexpr int between = 18;
constexpr int rowGap = 4;

} // namespace

PictureLegend::PictureLegend(const QFont& font, int width)
    : m_font(Paper::font(font)), m_width(width), m_next(0, above)
{
}

void PictureLegend::add(const Sign& sign, const QString& text)
{
    constexpr int mostLines = 100;
    const QFontMetrics metrics(m_font);
    const int left = sign ? signWidth : 0;
    Entry entry{sign, Paper::lines(text, m_font, m_width - left, mostLines), {}};
    int width = left;
    for (const QString& line : entry.lines)
        width = std::max(width, left + metrics.horizontalAdvance(line));
    if (m_next.x() > 0 && m_next.x() + width > m_width) {
        m_next = {0, m_next.y() + m_rows * metrics.height() + rowGap};
        m_rows = 1;
    }
    entry.place = m_next;
    m_rows = std::max(m_rows, static_cast<int>(entry.lines.size()));
    m_next.rx() += width + between;
    m_entries.push_back(std::move(entry));
}

int PictureLegend::height() const
{
    return m_entries.empty() ? 0 : m_next.y() + m_rows * QFontMetrics(m_font).height();
}

void PictureLegend::draw(QPainter& painter) const
{
    const QFontMetrics metrics(m_font);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(m_font);
    for (const Entry& entry : m_entries) {
        QPointF at = entry.place;
        if (entry.sign) {
            entry.sign(painter, at + QPointF(signWidth / 2.0 - 2, metrics.height() / 2.0));
            at.rx() += signWidth;
        }
        painter.setPen(Qt::black);
        for (const QString& line : entry.lines) {
            painter.drawText(at + QPointF(0, metrics.ascent()), line);
            at.ry() += metrics.height();
        }
    }
}
