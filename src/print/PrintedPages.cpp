// SPDX-License-Identifier: GPL-3.0-or-later

#include "print/PrintedPages.h"

#include "print/PrintTexts.h"
#include "util/ReadableLine.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>

namespace {

constexpr double captionPoints = 11;
constexpr double numberPoints = 9;
constexpr double ruleWidth = 0.6 * PageFormat::twipsPerPoint;

QString pageText(int page, std::optional<int> count)
{
    const QLocale locale;
    if (!count) return PrintTexts::tr("Page %1").arg(locale.toString(page + 1));
    return PrintTexts::tr("Page %1 of %2").arg(locale.toString(page + 1), locale.toString(*count));
}

void drawLine(QPainter& painter, const QRectF& place, Qt::Alignment side, const QString& text)
{
    painter.drawText(place, static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine, text);
}

} // namespace

PrintedPages::PrintedPages(const QString& caption)
    : m_caption(readableLine(caption)), m_format(PageFormat::layout(QPageSize::A4, QPageLayout::Portrait))
{
}

void PrintedPages::begin(const QPageLayout& layout)
{
    m_format = PageFormat(layout);
    m_measured = 0;
    restart();
}

bool PrintedPages::measure()
{
    if (!isMeasured()) m_measured = measureMore();
    return !isMeasured();
}

void PrintedPages::paint(QPainter& painter, int page)
{
    painter.save();
    painter.setPen(Qt::black);
    paintHeader(painter, page);
    paintContent(painter, page);
    painter.restore();
}

void PrintedPages::paintHeader(QPainter& painter, int page) const
{
    const QRectF header = m_format.header();
    const QFont number = PageFormat::font(numberPoints);
    const QString pages = pageText(page, isMeasured() ? std::optional(count()) : std::nullopt);
    painter.setFont(number);
    drawLine(painter, header, PageFormat::endSide(), pages);

    const QFont font = PageFormat::font(captionPoints, QFont::Bold);
    const double room = header.width() - QFontMetricsF(number).horizontalAdvance(pages) -
                        2 * captionPoints * PageFormat::twipsPerPoint;
    painter.setFont(font);
    drawLine(painter, header, PageFormat::startSide(),
             QFontMetricsF(font).elidedText(m_caption, Qt::ElideRight, room));
    painter.setPen(QPen(Qt::black, ruleWidth));
    painter.drawLine(header.bottomLeft(), header.bottomRight());
}
