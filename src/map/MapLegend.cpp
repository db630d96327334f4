#include "map/MapLegend.h"

#include "map/MarkerPictures.h"

#include <algorithm>

namespace {

constexpr int swatch = 12;
constexpr int widestBeside = 240;

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
        const QString names = line.names.join(QStringLiteral(", "));
        auto* item =
            new QListWidgetItem(MarkerPictures::draw(line.colour, swatch, devicePixelRatioF()), names, this);
        item->setToolTip(names.toHtmlEscaped());
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
    setSizePolicy(beside ? QSizePolicy::Fixed : QSizePolicy::Expanding,
                  beside ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    updateGeometry();
}

int MapLegend::lineHeight() const
{
    return std::max(fontMetrics().height(), iconSize().height()) + 2 * spacing() + 4;
}

QSize MapLegend::sizeHint() const
{
    int widest = 0;
    int total = 0;
    for (int row = 0; row < count(); ++row) {
        const int width = sizeHintForIndex(model()->index(row, 0)).width() + 4 * spacing() + 8;
        widest = std::max(widest, width);
        total += width;
    }
    if (flow() == TopToBottom) return {std::min(widest + 20, widestBeside), count() * lineHeight()};
    const int lines = total / std::max(width(), 1) + 1;
    return {widest, std::min(lines * lineHeight() + 4, m_highestBelow)};
}
