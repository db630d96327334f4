// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chart/BarNames.h"
#include "chart/ChartBars.h"
#include "chart/DocumentTypeCounts.h"
#include "widgets/AccessibleItems.h"

#include <QChartView>

#include <optional>
#include <vector>

/// The bar chart of documents by type, and what the mouse and the keyboard do on it. If its bars are too many
/// for the width of its pane, the chart asks for more and is scrolled.
class ChartView final : public QChartView, public AccessibleItems
{
    Q_OBJECT

public:
    explicit ChartView(QWidget* parent);

    void setCounts(std::vector<DocumentTypeCount> counts);
    [[nodiscard]] const std::vector<DocumentTypeCount>& counts() const { return m_counts; }

    /// Sets what is written on a chart without bars; empty for one with bars.
    void setEmptyText(const QString& text);

    /// Marks one bar, or none.
    void setCurrentBar(std::optional<int> bar);

    /// Returns the bar at a position in pixels of the view: a hit is the bar itself, its number or its name.
    [[nodiscard]] std::optional<int> barAt(QPoint position) const;

    /// The place of a bar with its number, in pixels of the view.
    [[nodiscard]] QRect barRect(int bar) const;

    /// Takes a size in pixels without being shown, and more height than that if names would be elided.
    void resizeUnseen(QSize size);

    /// Draws the whole chart, which is not shown, at the painter's origin.
    void draw(QPainter& painter);

    [[nodiscard]] int accessibleItemCount() const override { return static_cast<int>(m_counts.size()); }
    [[nodiscard]] QString accessibleItemName(int item) const override;
    [[nodiscard]] QRect accessibleItemRect(int item) const override { return barRect(item); }
    [[nodiscard]] int accessibleCurrentItem() const override { return m_current.value_or(-1); }

Q_SIGNALS:
    /// A bar was pressed with a mouse button or, with `Qt::NoButton`, gone to by key; `position` is global.
    void barSelected(int bar, Qt::MouseButton button, const QPoint& position);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void goToBar(int bar);
    void applyPalette();
    void applyMinimumSize();
    void layOut();
    void drawTexts(QPainter& painter, const QRect& sight);
    [[nodiscard]] qint64 highestCount() const;
    [[nodiscard]] int axisRoom() const;
    [[nodiscard]] int axisWidth() const;
    [[nodiscard]] int narrowestSlot() const;
    [[nodiscard]] QPointF inView(double bar, double value) const;

    std::vector<DocumentTypeCount> m_counts;
    QString m_emptyText;
    std::optional<int> m_current;
    ChartBars m_bars;
    BarNames m_names;
};
