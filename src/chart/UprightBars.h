// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chart/BarLayout.h"
#include "chart/BarNames.h"
#include "chart/ChartBars.h"

#include <QPointF>

class QChartView;

/// Bars side by side above their names, with an axis of numbers at their left. If they are too many for the
/// width of the view, it has to be wider and is scrolled.
class UprightBars final : public BarLayout
{
public:
    /// View and counts must outlive the object.
    UprightBars(QChartView& view, const std::vector<DocumentTypeCount>& counts);

    void begin() override;
    void mark(std::optional<int> bar) override { m_bars.mark(bar); }
    void layOut() override;
    [[nodiscard]] QSize leastSize() const override;
    [[nodiscard]] QSize wholeSize() const override;
    void draw(QPainter& painter, const QRect& sight) override;
    [[nodiscard]] QRect barRect(int bar) const override;
    [[nodiscard]] std::optional<int> barAt(QPoint position) const override;

private:
    void drawAxis(QPainter& painter, const QRect& sight);
    [[nodiscard]] int barCount() const { return static_cast<int>(m_counts.size()); }
    [[nodiscard]] int axisRoom() const;
    [[nodiscard]] int axisWidth() const;
    [[nodiscard]] int narrowestSlot() const;
    [[nodiscard]] QPointF inView(double bar, double value) const;

    QChartView& m_view;
    const std::vector<DocumentTypeCount>& m_counts;
    ChartBars m_bars;
    BarNames m_names;
};
