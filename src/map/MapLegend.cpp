// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapLegend.h"

#include "map/MarkerPictures.h"
#include "widgets/PlainToolTip.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>

namespace {

constexpr int swatch = 12;
constexpr int barFrame = 4; ///< at most; some styles put a frame around a scroll bar

/// Draws a line that is wider than the legend with an ellipsis, not cut off: a cut number reads as another
/// one.
class LineDelegate final : public QStyledItemDelegate
{
public:
    explicit LineDelegate(MapLegend* legend) : QStyledItemDelegate(legend), m_legend(*legend) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem seen(option);
        seen.rect.setRight(std::min(option.rect.right(), m_legend.viewport()->width() - 1));
        QStyledItemDelegate::paint(painter, seen, index);
    }

private:
    const MapLegend& m_legend;
};

} // namespace

MapLegend::MapLegend(QWidget* parent) : QListWidget(parent)
{
    setObjectName(QStringLiteral("MapLegend"));
    setAccessibleName(tr("Functions and their colours"));
    setAccessibleDescription(tr("The arrow keys show the markers of a line over the others, Space hides them "
                                "and shows them again"));
    setSelectionMode(NoSelection);
    // a click leaves the focus where it is, so that no line stays raised when the mouse has gone
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
    setFrameShape(NoFrame);
    setWrapping(true);
    setResizeMode(Adjust);
    setSpacing(1);
    setIconSize(QSize(swatch + 2, swatch + 2));
    setTextElideMode(Qt::ElideMiddle); // keeps the number at the end
    setItemDelegate(new LineDelegate(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setPlace(false, 0);
    hide();
}

void MapLegend::setLines(const std::vector<LegendLine>& lines)
{
    const int current = currentRow();
    m_lines = lines;
    clear();
    for (int row = 0; row < static_cast<int>(lines.size()); ++row) {
        addItem(new QListWidgetItem);
        item(row)->setFlags(Qt::ItemIsEnabled);
        showLine(row);
    }
    setCurrentRow(std::min(current, count() - 1));
    setVisible(!lines.empty());
    updateGeometry();
}

bool MapLegend::isHiddenAt(int row) const
{
    return m_hidden.test(static_cast<std::size_t>(m_lines.at(static_cast<std::size_t>(row)).colour));
}

QString MapLegend::textOf(const LegendLine& line) const
{
    return m_hidden.test(static_cast<std::size_t>(line.colour)) ? line.hiddenText() : line.text();
}

void MapLegend::showLine(int row)
{
    const LegendLine& line = m_lines.at(static_cast<std::size_t>(row));
    const QIcon sign(MarkerPictures::picture(line.colour, swatch, devicePixelRatioF()));
    const bool isHidden = isHiddenAt(row);
    item(row)->setIcon(isHidden ? sign.pixmap(iconSize(), devicePixelRatioF(), QIcon::Disabled) : sign);
    item(row)->setText(textOf(line));
    item(row)->setToolTip(PlainToolTip::text(textOf(line)));
    item(row)->setData(Qt::ForegroundRole,
                       isHidden ? QVariant(palette().brush(QPalette::Disabled, QPalette::Text)) : QVariant());
}

/// Raises the markers of a line; none with -1 or those of a hidden line.
void MapLegend::raise(int row)
{
    std::optional<int> colour;
    if (row >= 0 && !isHiddenAt(row)) colour = m_lines.at(static_cast<std::size_t>(row)).colour;
    if (colour == m_raised) return;
    m_raised = colour;
    Q_EMIT raised(colour);
}

void MapLegend::toggle(int row)
{
    m_hidden.flip(static_cast<std::size_t>(m_lines.at(static_cast<std::size_t>(row)).colour));
    showLine(row);
    // lines must not move away below the pointer
    if (!underMouse()) updateGeometry();
    raise(row);
    Q_EMIT hiddenChanged();
}

void MapLegend::mouseMoveEvent(QMouseEvent* event)
{
    const QListWidgetItem* pointed = itemAt(event->position().toPoint());
    raise(pointed == nullptr ? -1 : row(pointed));
}

void MapLegend::mouseReleaseEvent(QMouseEvent* event)
{
    QListWidget::mouseReleaseEvent(event);
    const QListWidgetItem* clicked = itemAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && clicked != nullptr) toggle(row(clicked));
}

void MapLegend::leaveEvent(QEvent* event)
{
    QListWidget::leaveEvent(event);
    updateGeometry();
    raise(hasFocus() ? currentRow() : -1);
}

void MapLegend::keyPressEvent(QKeyEvent* event)
{
    const bool toggles = event->key() == Qt::Key_Space && currentRow() >= 0;
    if (toggles) {
        toggle(currentRow());
        return;
    }
    QListWidget::keyPressEvent(event);
    raise(currentRow());
}

void MapLegend::focusInEvent(QFocusEvent* event)
{
    QListWidget::focusInEvent(event);
    if (currentRow() < 0) setCurrentRow(0);
    raise(currentRow());
}

void MapLegend::focusOutEvent(QFocusEvent* event)
{
    QListWidget::focusOutEvent(event);
    raise(-1);
}

void MapLegend::changeEvent(QEvent* event)
{
    QListWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    for (int row = 0; row < count(); ++row)
        showLine(row);
}

void MapLegend::setPlace(bool beside, int room)
{
    m_room = room;
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
    return {std::min(widest + 2 * spacing() + scrollBar, m_room), height};
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
    return std::min(height + spacing(), m_room);
}
