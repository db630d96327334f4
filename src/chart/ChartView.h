// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chart/DocumentTypeCounts.h"
#include "chart/HorizontalBars.h"
#include "chart/UprightBars.h"
#include "widgets/AccessibleItems.h"

#include <QChartView>

#include <optional>
#include <vector>

/// The bar chart of documents by type, and what the mouse and the keyboard do on it. If its bars are too many
/// for its pane, the chart asks for more room and is scrolled.
class ChartView final : public QChartView, public AccessibleItems
{
    Q_OBJECT

public:
    explicit ChartView(QWidget* parent);

    void setCounts(std::vector<DocumentTypeCount> counts);
    [[nodiscard]] const std::vector<DocumentTypeCount>& counts() const { return m_counts; }

    /// Stands the bars upright, as they are at first, or lays them down. The current bar stays.
    void setHorizontal(bool isHorizontal);
    [[nodiscard]] bool isHorizontal() const { return m_layout == &m_horizontal; }

    /// Sets what is written on a chart without bars; empty for one with bars.
    void setEmptyText(const QString& text);

    /// Marks one bar, or none.
    void setCurrentBar(std::optional<int> bar);

    [[nodiscard]] std::optional<int> currentBar() const { return m_current; }

    /// Returns the bar at a position in pixels of the view: a hit is the bar itself, its number or its name.
    [[nodiscard]] std::optional<int> barAt(QPoint position) const { return m_layout->barAt(position); }

    /// The place of a bar with its number, in pixels of the view.
    [[nodiscard]] QRect barRect(int bar) const { return m_layout->barRect(bar); }

    /// Takes a size in pixels without being shown, and another one if bars or names would not be whole.
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
    void beginLayout();
    void layOut();
    void drawTexts(QPainter& painter, const QRect& sight);

    std::vector<DocumentTypeCount> m_counts;
    QString m_emptyText;
    std::optional<int> m_current;
    UprightBars m_upright;
    HorizontalBars m_horizontal;
    BarLayout* m_layout = &m_upright;
};
