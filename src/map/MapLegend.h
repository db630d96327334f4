// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/LegendLines.h"

#include <QListWidget>

/// The colours of the map's markers and the functions that they stand for. Without functions it is hidden.
class MapLegend final : public QListWidget
{
    Q_OBJECT

public:
    explicit MapLegend(QWidget* parent);

    void setLines(const std::vector<LegendLine>& lines);

    /// Lays the lines out in a column beside the map, or side by side below it, at most so many pixels high.
    void setPlace(bool beside, int highestBelow);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {40, 20}; }

    [[nodiscard]] int heightForWidth(int width) const override;

private:
    int m_highestBelow = 0; ///< pixels
};
