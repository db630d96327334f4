// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chart/BarLayout.h"
#include "chart/DocumentTypeCounts.h"

#include <QStringList>

class QFontMetrics;
class QWidget;

/// Bars one below the other, each with its name whole at its left, in several lines if it is long, and its
/// number at its end. If they are too many for the height of the view, it has to be higher and is scrolled.
class HorizontalBars final : public BarLayout
{
public:
    /// View and counts must outlive the object.
    HorizontalBars(const QWidget& view, const std::vector<DocumentTypeCount>& counts);

    void begin() override { m_marked.reset(); }
    void mark(std::optional<int> bar) override { m_marked = bar; }
    void layOut() override;
    [[nodiscard]] QSize leastSize() const override;
    [[nodiscard]] QSize wholeSize() const override;
    void draw(QPainter& painter, const QRect& sight) override;
    [[nodiscard]] QRect barRect(int bar) const override;
    [[nodiscard]] std::optional<int> barAt(QPoint position) const override;

private:
    /// A bar with its name, in pixels.
    struct Row
    {
        QStringList name; ///< line by line
        int top = 0;
        int height = 0;
        int length = 0; ///< of the bar
        QString number;
    };

    void drawRow(QPainter& painter, const Row& row, bool isMarked) const;
    [[nodiscard]] QRect plainBar(const Row& row) const;
    [[nodiscard]] int bottom() const;

    const QWidget& m_view;
    const std::vector<DocumentTypeCount>& m_counts;
    std::vector<Row> m_rows;
    int m_nameWidth = 0; ///< pixels
    std::optional<int> m_marked;
};
