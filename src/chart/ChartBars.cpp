// SPDX-License-Identifier: GPL-3.0-or-later

#include "chart/ChartBars.h"

#include "chart/ChartScale.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QFont>
#include <QPalette>
#include <QValueAxis>

#include <cmath>

namespace {

constexpr int allDigits = 15;

} // namespace

ChartBars::ChartBars(QChart& chart)
    : m_chart(chart),
      m_bars(new QBarSet(QString())),
      m_series(new QBarSeries(&chart)),
      m_slots(new QBarCategoryAxis(&chart)),
      m_axis(new QValueAxis(&chart))
{
    m_series->append(m_bars);
    m_series->setLabelsVisible(true);
    m_series->setLabelsPosition(QAbstractBarSeries::LabelsOutsideEnd);
    m_series->setLabelsPrecision(allDigits);
    m_axis->setLabelFormat(QStringLiteral("%d"));
    m_axis->setTickType(QValueAxis::TicksDynamic);
    m_slots->setGridLineVisible(false);
    m_slots->setLabelsVisible(false);

    chart.addSeries(m_series);
    chart.addAxis(m_slots, Qt::AlignBottom);
    chart.addAxis(m_axis, Qt::AlignLeft);
    m_series->attachAxis(m_slots);
    m_series->attachAxis(m_axis);
}

void ChartBars::setCounts(const std::vector<DocumentTypeCount>& counts)
{
    m_bars->remove(0, m_bars->count());
    m_bars->deselectAllBars();
    QList<qreal> values;
    for (const DocumentTypeCount& count : counts)
        values << static_cast<double>(count.documents);
    m_bars->append(values);
    m_slots->setVisible(!counts.empty());
    m_axis->setVisible(!counts.empty());
}

void ChartBars::layOut(const ChartScale& scale, double barWidth)
{
    m_series->setBarWidth(barWidth);
    applyScale(scale);
    // the axis would leave out names that are alike or long, so its categories are numbers that are not shown
    QStringList categories;
    for (int bar = 0; bar < m_bars->count(); ++bar)
        categories << QString::number(bar);
    if (categories != m_slots->categories()) m_slots->setCategories(categories);
}

/// Makes the axis coarser before it becomes longer and shorter before it becomes finer: in between, a long
/// axis with small steps would have thousands of numbers.
void ChartBars::applyScale(const ChartScale& scale)
{
    const auto top = static_cast<double>(scale.top);
    const auto step = static_cast<double>(scale.step);
    if (step > m_axis->tickInterval()) m_axis->setTickInterval(step);
    // at some heights the uppermost line would be found above the plot, and hidden
    constexpr double roundingRoom = 1e-9;
    m_axis->setRange(0, top * (1 + roundingRoom));
    m_axis->setTickInterval(step);
}

void ChartBars::setColours(const QPalette& palette, const QFont& font)
{
    const QColor text = palette.color(QPalette::Text);
    QColor faint = text;
    constexpr int faintness = 60;
    faint.setAlpha(faintness);
    m_bars->setColor(palette.color(QPalette::Highlight));
    m_bars->setSelectedColor(palette.color(QPalette::Highlight).darker());
    m_bars->setBorderColor(Qt::transparent);
    m_bars->setLabelColor(text);
    m_bars->setLabelFont(font);
    for (QAbstractAxis* axis : {static_cast<QAbstractAxis*>(m_slots), static_cast<QAbstractAxis*>(m_axis)}) {
        axis->setLabelsFont(font);
        axis->setLabelsColor(text);
        axis->setLinePenColor(faint);
        axis->setGridLineColor(faint);
    }
}

void ChartBars::mark(std::optional<int> bar)
{
    m_bars->deselectAllBars();
    if (bar) m_bars->selectBar(*bar);
}

double ChartBars::barWidth() const
{
    return m_series->barWidth();
}

QPointF ChartBars::position(double bar, double value) const
{
    return m_chart.mapToPosition(QPointF(bar, value), m_series);
}

int ChartBars::slotAt(QPointF inChart) const
{
    return static_cast<int>(std::lround(m_chart.mapToValue(inChart, m_series).x()));
}
