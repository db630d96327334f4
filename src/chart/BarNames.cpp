// SPDX-License-Identifier: GPL-3.0-or-later

#include "chart/BarNames.h"

#include "util/ReadableLine.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int gap = 8; ///< pixels between names, and from a bar to its name
constexpr int widestTurnedSlot = 100;
constexpr double largestShare = 0.4; ///< of the height

} // namespace

void BarNames::layOut(const std::vector<DocumentTypeCount>& counts, const QFontMetrics& metrics, int slot,
                      int viewHeight)
{
    m_names.clear();
    m_widest = 0;
    for (const DocumentTypeCount& count : counts) {
        m_names << readableLine(count.name);
        // the advance is rounded, and a name in a room that is too small by part of a pixel is elided
        m_widest = std::max(m_widest, metrics.horizontalAdvance(m_names.back()) + 1);
    }
    m_areTurned = m_widest > slot - gap && slot < widestTurnedSlot;
    const int longest = static_cast<int>(viewHeight * largestShare);
    m_room = gap + (m_areTurned ? std::min(m_widest, longest) : metrics.height());
}

int BarNames::heightForWhole() const
{
    return m_areTurned ? static_cast<int>(std::ceil(m_widest / largestShare)) : 0;
}

void BarNames::draw(QPainter& painter, const QFontMetrics& metrics, double slot,
                    const std::function<QPointF(int bar)>& foot) const
{
    const int length = m_areTurned ? m_room - gap : static_cast<int>(slot) - gap;
    const double height = metrics.height();
    for (int bar = 0; bar < m_names.size(); ++bar) {
        const QString name = metrics.elidedText(m_names[bar], Qt::ElideRight, length);
        painter.save();
        painter.translate(foot(bar) + QPointF(0, gap));
        if (m_areTurned) {
            constexpr double upwards = -90;
            painter.rotate(upwards);
            painter.drawText(QRectF(-length, -height / 2, length, height), Qt::AlignRight | Qt::AlignVCenter,
                             name);
        } else {
            painter.drawText(QRectF(-slot / 2, 0, slot, height), Qt::AlignHCenter | Qt::AlignTop, name);
        }
        painter.restore();
    }
}
