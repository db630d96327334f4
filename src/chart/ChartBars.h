// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chart/DocumentTypeCounts.h"

#include <QPointF>

#include <optional>
#include <vector>

class QBarCategoryAxis;
class QBarSeries;
class QBarSet;
class QChart;
class QFont;
class QPalette;
class QValueAxis;
struct ChartScale;

/// The bars of a chart with their numbers and their two axes. All of it belongs to the chart, which must
/// outlive this object. Bars count from 0.
class ChartBars
{
public:
    /// Adds the bars, none yet, and their axes to the chart.
    explicit ChartBars(QChart& chart);

    /// Takes the counts in place of those before; no bar is marked then.
    void setCounts(const std::vector<DocumentTypeCount>& counts);

    /// Lays the bars out along a scale; each takes a share of its slot, from 0 to 1.
    void layOut(const ChartScale& scale, double barWidth);

    void setColours(const QPalette& palette, const QFont& font);

    /// Marks one bar, or none.
    void mark(std::optional<int> bar);

    /// The share of its slot that a bar takes.
    [[nodiscard]] double barWidth() const;

    /// The point of the chart at a value above the middle of a bar, or beside it for a fraction of a bar.
    [[nodiscard]] QPointF position(double bar, double value) const;

    /// The bar in whose slot a point of the chart lies; there need not be a bar of that number.
    [[nodiscard]] int slotAt(QPointF inChart) const;

private:
    void applyScale(const ChartScale& scale);

    QChart& m_chart;
    QBarSet* m_bars; ///< owned by the series
    QBarSeries* m_series;
    QBarCategoryAxis* m_slots;
    QValueAxis* m_axis;
};
