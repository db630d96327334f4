// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chart/DocumentTypeCounts.h"

#include <QStringList>

#include <functional>
#include <vector>

class QFontMetrics;
class QPainter;
class QPointF;

/// The names below the bars of a chart: side by side, or turned upwards if the slots of the bars are too
/// narrow for them. Names that are still too long are elided.
class BarNames
{
public:
    /// Takes the names for slots of that width in a view of that height, in pixels.
    void layOut(const std::vector<DocumentTypeCount>& counts, const QFontMetrics& metrics, int slot,
                int viewHeight);

    /// The room that the names take below the bars, in pixels.
    [[nodiscard]] int room() const { return m_room; }

    /// The height of a view, in pixels, from which on turned names are not elided; 0 if they are not turned.
    [[nodiscard]] int heightForWhole() const;

    /// Writes each name below the foot of its bar, in the painter's font, whose metrics these are.
    void draw(QPainter& painter, const QFontMetrics& metrics, double slot,
              const std::function<QPointF(int bar)>& foot) const;

private:
    QStringList m_names;
    int m_widest = 0; ///< pixels
    bool m_areTurned = false;
    int m_room = 0;
};
