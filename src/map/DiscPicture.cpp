// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/DiscPicture.h"

#include "map/ColourPalette.h"

#include <QFontMetricsF>
#include <QLineF>
#include <QPainter>

#include <cmath>

namespace {

constexpr double shareWidth = 4;
constexpr double roomForNumber = 2; ///< on each side of it
const QColor edgeColour(40, 40, 40);

/// A circle is that much for the arcs of a painter.
constexpr int fullCircle = 360 * 16;

QColor colourOf(int index)
{
    const PaletteColour& colour = colourPalette[static_cast<std::size_t>(index)];
    return {colour.red, colour.green, colour.blue};
}

void drawRing(QPainter& painter, const QRectF& circle, std::span<const ColourShare> shares, int all)
{
    painter.setPen(Qt::NoPen);
    if (shares.size() == 1) {
        painter.setBrush(colourOf(shares.front().colour));
        painter.drawEllipse(circle);
        return;
    }
    constexpr int top = fullCircle / 4;
    // one share after the other, so that roundings do not add up to a gap
    int done = 0;
    int begin = 0;
    // the lines drawn over its edges are smooth, and rough areas are drawn in half the time
    painter.setRenderHint(QPainter::Antialiasing, false);
    QList<QLineF> edges;
    for (const ColourShare& share : shares) {
        done += share.organizations;
        const int end = static_cast<int>(std::lround(static_cast<double>(fullCircle) * done / all));
        painter.setBrush(colourOf(share.colour));
        painter.drawPie(circle, top - begin, begin - end);
        edges << QLineF::fromPolar(circle.width() / 2, (top - begin) * 360.0 / fullCircle)
                     .translated(circle.center());
        begin = end;
    }
    // a thin light line sets dark colours off from each other
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, 1));
    painter.drawLines(edges);
}

} // namespace

QFont DiscPicture::fontBeside(const QFont& font)
{
    constexpr double part = 0.68;
    QFont small(font);
    small.setPixelSize(static_cast<int>(std::round(QFontMetricsF(font).height() * part)));
    small.setBold(true);
    return small;
}

DiscMetrics DiscPicture::metricsOf(const QFont& discFont, double markerRadius)
{
    return {markerRadius, QFontMetricsF(discFont).horizontalAdvance(u'0'),
            2 * (shareWidth + roomForNumber + 1)};
}

void DiscPicture::draw(QPainter& painter, QPointF middle, double radius, std::span<const ColourShare> shares)
{
    int all = 0;
    for (const ColourShare& share : shares)
        all += share.organizations;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const auto fill = [&](const QColor& colour, double to) {
        painter.setBrush(colour);
        painter.drawEllipse(middle, to, to);
    };
    fill(Qt::white, radius + 1);
    QRectF circle(0, 0, 2 * radius, 2 * radius);
    circle.moveCenter(middle);
    drawRing(painter, circle, shares, all);
    // dark edges on both sides set light colours off from what lies beside them
    painter.setPen(QPen(edgeColour, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(middle, radius - 0.5, radius - 0.5);
    painter.setPen(Qt::NoPen);
    fill(edgeColour, radius - shareWidth + 0.5);
    fill(Qt::white, radius - shareWidth - 0.5);
    painter.setPen(edgeColour);
    painter.drawText(circle, Qt::AlignCenter | Qt::TextDontClip, discText(all));
}
