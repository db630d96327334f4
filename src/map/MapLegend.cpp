// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapLegend.h"

#include "map/MarkerPictures.h"
#include "widgets/PlainToolTip.h"

#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int swatch = 12;
constexpr int widestBeside = 240;
constexpr int barFrame = 4; ///< at most; some styles put a frame around a scroll bar

} // namespace

MapLegend::MapLegend(QWidget* parent) : QListWidget(parent)
{
    setObjectName(QStringLiteral("MapLegend"));
    setAccessibleName(tr("Functions and their colours"));
    setSelectionMode(NoSelection);
    setFrameShape(NoFrame);
    setWrapping(true);
    setResizeMode(Adjust);
    setSpacing(1);
    setIconSize(QSize(swatch + 2, swatch + 2));
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setPlace(false, 0);
    hide();
}

void MapLegend::setLines(const std::vector<LegendLine>& lines)
{
    clear();
    for (const LegendLine& line : lines) {
        const QString names = line.text();
        auto* item = new QListWidgetItem(MarkerPictures::picture(line.colour, swatch, devicePixelRatioF()),
                                         names, this);
        item->setToolTip(PlainToolTip::text(names));
        item->setFlags(Qt::ItemIsEnabled);
    }
    setVisible(!lines.empty());
    updateGeometry();
}

void MapLegend::setPlace(bool beside, int highestBelow)
{
    m_highestBelow = highestBelow;
    setFlow(beside ? TopToBottom : LeftToRight);
    setWrapping(!beside);
    QSizePolicy policy(beside ? QSizePolicy::Fixed : QSizePolicy::Expanding,
                       beside ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    policy.setHeightForWidth(!beside);
    setSizePolicy(policy);
    updateGeometry();
}

QSize MapLegend::sizeHint() const
{
    int widest = 0;
    int height = 0;
    for (int row = 0; row < count(); ++row) {
        const QSize line = sizeHintForIndex(model()->index(row, 0));
        widest = std::max(widest, line.width());
        height += line.height() + 2 * spacing();
    }
    if (flow() == LeftToRight) return {widest, heightForWidth(width())};
    const int scrollBar = verticalScrollBar()->sizeHint().width();
    return {std::min(widest + 2 * spacing() + scrollBar, widestBeside), height};
}

/// The height of the lines side by side in that width.
int MapLegend::heightForWidth(int width) const
{
    // the list keeps room for a scroll bar that is hidden
    const int lineWidth = width - verticalScrollBar()->sizeHint().width() - barFrame;
    int height = spacing();
    int right = lineWidth;
    for (int row = 0; row < count(); ++row) {
        const QSize line = sizeHintForIndex(model()->index(row, 0));
        if (right + line.width() >= lineWidth) {
            right = spacing();
            height += line.height() + 2 * spacing();
        }
        right += line.width() + 2 * spacing();
    }
    return std::min(height + spacing(), m_highestBelow);
}
