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

    /// Stands beside the map as a column, or below it with its lines side by side and no higher than that.
    void setPlace(bool beside, int highestBelow);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {40, 20}; }

    [[nodiscard]] int heightForWidth(int width) const override;

private:
    int m_highestBelow = 0; ///< pixels
};
