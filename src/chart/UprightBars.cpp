// SPDX-License-Identifier: GPL-3.0-or-later

#include "chart/UprightBars.h"

#include "chart/ChartScale.h"

#include <QChartView>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double widestShare = 0.7; ///< of its slot that a bar takes

// pixels
constexpr double widestBar = 90;
constexpr int pixelsPerStep = 36;
constexpr int besideAxis = 26; ///< the margins on both sides, and the ticks
constexpr int titleRoom = 48;  ///< with the margins above and below
constexpr int lowestPlot = 60;
constexpr int lowestHeight = 150;
constexpr int highestPicture = 800;

constexpr int mostSteps = 10;

} // namespace

UprightBars::UprightBars(QChartView& view, const std::vector<DocumentTypeCount>& counts)
    : m_view(view), m_counts(counts), m_bars(*view.chart())
{
}

void UprightBars::begin()
{
    m_bars.setColours(m_view.palette(), m_view.font());
    m_bars.setCounts(m_counts);
}

/// The width that the axis takes with its numbers, none of which is twice the highest count.
int UprightBars::axisRoom() const
{
    const QString number = QString::number(2 * highestCount(m_counts));
    return besideAxis + m_view.fontMetrics().horizontalAdvance(number);
}

/// Wide enough for a name that is turned and for a number that is not.
int UprightBars::narrowestSlot() const
{
    constexpr int numberGap = 4;
    const QFontMetrics metrics = m_view.fontMetrics();
    const int number = metrics.horizontalAdvance(QString::number(highestCount(m_counts)));
    return std::max(metrics.height() + 2, number + numberGap);
}

QSize UprightBars::leastSize() const
{
    return {axisRoom() + narrowestSlot() * barCount(), lowestHeight};
}

QSize UprightBars::wholeSize() const
{
    return {m_view.width(), std::max(m_view.height(), std::min(m_names.heightForWhole(), highestPicture))};
}

void UprightBars::layOut()
{
    const int slot = (m_view.width() - axisRoom()) / std::max(barCount(), 1);
    const QFontMetrics metrics = m_view.fontMetrics();
    m_names.layOut(m_counts, metrics, slot, m_view.height());
    const int plotHeight = std::max(m_view.height() - m_names.room() - titleRoom, lowestPlot);
    const double numberRoom = static_cast<double>(metrics.height() + 8) / plotHeight;
    m_bars.layOut(ChartScale::forCounts(highestCount(m_counts),
                                        std::min(plotHeight / pixelsPerStep, mostSteps),
                                        std::min(numberRoom, 0.5)),
                  std::min(widestShare, widestBar / std::max(slot, 1)));
    m_view.chart()->setMargins(QMargins(4, 4, 8, m_names.room()));
}

int UprightBars::axisWidth() const
{
    const QChart& chart = *m_view.chart();
    return static_cast<int>(std::ceil(chart.mapToScene(chart.plotArea().topLeft()).x()));
}

void UprightBars::draw(QPainter& painter, const QRect& sight)
{
    const double slot = inView(1, 0).x() - inView(0, 0).x();
    m_names.draw(painter, m_view.fontMetrics(), slot, [this](int bar) { return inView(bar, 0); });
    if (sight.left() > 0) drawAxis(painter, sight);
}

/// Draws the axis, which stays in sight, over bars that are scrolled.
void UprightBars::drawAxis(QPainter& painter, const QRect& sight)
{
    const QRect axis(0, 0, axisWidth(), m_view.height());
    const QRect place = axis.translated(sight.left(), 0);
    painter.fillRect(place, m_view.palette().color(QPalette::Base));
    m_view.render(&painter, place, axis);
}

/// The point at a value above a bar, in pixels of the view.
QPointF UprightBars::inView(double bar, double value) const
{
    return m_view.mapFromScene(m_view.chart()->mapToScene(m_bars.position(bar, value)));
}

QRect UprightBars::barRect(int bar) const
{
    const double value = static_cast<double>(m_counts.at(static_cast<std::size_t>(bar)).documents);
    const double half = m_bars.barWidth() / 2;
    const QRect plain(inView(bar - half, value).toPoint(), inView(bar + half, 0).toPoint());
    return plain.adjusted(0, -m_view.fontMetrics().height() - 2, 0, 0);
}

std::optional<int> UprightBars::barAt(QPoint position) const
{
    if (m_counts.empty()) return std::nullopt;
    const QPointF inChart = m_view.chart()->mapFromScene(m_view.mapToScene(position));
    const int bar = m_bars.slotAt(inChart);
    if (bar < 0 || bar >= barCount()) return std::nullopt;
    const QRectF plot = m_view.chart()->plotArea();
    if (inChart.x() < plot.left() || inChart.x() > plot.right()) return std::nullopt;
    const int sight = m_view.viewport()->visibleRegion().boundingRect().left();
    if (position.x() < sight + axisWidth()) return std::nullopt;
    return position.y() >= barRect(bar).top() ? std::optional(bar) : std::nullopt;
}
