// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimelinePicture.h"

#include "timeline/EmptyWindowNotice.h"
#include "timeline/EventLabel.h"
#include "timeline/EventMarker.h"
#include "timeline/Timeline.h"
#include "timeline/TimelineColours.h"
#include "widgets/PlainToolTip.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace {

/// Of the outline that sets the dark colours of events off from a dark background.
constexpr int outlineAlpha = 110;

constexpr int firstPool = 26;
constexpr int fewestLanes = 3;
constexpr int usualLanes = 12;

/// A shorter bar could not be seen.
constexpr double narrowestBar = 2;

QRectF barPlace(const Lane& lane, std::size_t index)
{
    const auto top = static_cast<double>(index) * TimelineLanes::laneHeight;
    return {lane.barLeft, top + 1, std::max(lane.barWidth, narrowestBar), TimelineLanes::laneHeight - 3.0};
}

} // namespace

TimelinePicture::TimelinePicture(const Timeline& timeline, QWidget* parent)
    : QWidget(parent), m_timeline(timeline), m_notice(new EmptyWindowNotice(this))
{
    AccessibleItems::install();
    setObjectName(QStringLiteral("picTimeline"));
    setAccessibleName(tr("Timeline"));
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(m_notice, &EmptyWindowNotice::chosen, this, &TimelinePicture::nearestChosen);
    chooseFont();
    growPool(firstPool);
}

QSize TimelinePicture::sizeHint() const
{
    return {TimelineScale::stepWidth * 2, TimelineLanes::laneHeight * usualLanes};
}

QSize TimelinePicture::minimumSizeHint() const
{
    return {TimelineScale::stepWidth / 2, TimelineLanes::laneHeight * fewestLanes};
}

void TimelinePicture::chooseFont()
{
    QFont font = parentWidget()->font();
    for (int size = QFontInfo(font).pixelSize(); QFontMetrics(font).height() >= TimelineLanes::laneHeight;
         --size)
        font.setPixelSize(std::max(1, size));
    if (font != this->font()) setFont(font);
}

void TimelinePicture::growPool(int count)
{
    for (int i = static_cast<int>(m_labels.size()); i < count; ++i) {
        m_labels.push_back(new EventLabel(this));
        m_labels.back()->setObjectName(QStringLiteral("tlLabel(%1)").arg(i));
        m_markers.push_back(new EventMarker(this));
        m_markers.back()->setObjectName(QStringLiteral("imgInstantEvent(%1)").arg(i));
        connect(m_labels.back(), &EventLabel::clicked, this, &TimelinePicture::eventClicked);
        connect(m_labels.back(), &EventLabel::doubleClicked, this, &TimelinePicture::eventDoubleClicked);
        connect(m_labels.back(), &EventLabel::menuRequested, this, &TimelinePicture::eventMenuRequested);
    }
}

void TimelinePicture::showLanes()
{
    const std::vector<Lane>& lanes = m_timeline.lanes();
    for (std::size_t i = 0; i < m_labels.size(); ++i) {
        const Lane* lane = i < lanes.size() ? &lanes[i] : nullptr;
        if (lane == nullptr) {
            m_labels[i]->hide();
        } else {
            m_labels[i]->showLane(*lane, static_cast<int>(i));
        }
        if (lane == nullptr || !lane->isInstant) {
            m_markers[i]->hide();
        } else {
            m_markers[i]->showLane(*lane, static_cast<int>(i));
        }
    }
    if (m_timeline.isEmpty()) {
        m_notice->showNearest(m_timeline.nearestBefore(), m_timeline.nearestAfter());
    } else {
        m_notice->hide();
    }
    const QString description = m_timeline.description();
    // Qt tells screen readers of a description that is set again, too
    if (description != accessibleDescription()) setAccessibleDescription(description);
    update();
}

/// The lanes are the items of this widget, from the first in sight.
int TimelinePicture::accessibleItemCount() const
{
    return static_cast<int>(m_timeline.lanes().size());
}

QString TimelinePicture::accessibleItemName(int item) const
{
    return m_timeline.lanes().at(static_cast<std::size_t>(item)).toolTip;
}

QRect TimelinePicture::accessibleItemRect(int item) const
{
    return {0, item * TimelineLanes::laneHeight, width(), TimelineLanes::laneHeight};
}

int TimelinePicture::accessibleCurrentItem() const
{
    const std::vector<Lane>& lanes = m_timeline.lanes();
    const auto selected = std::ranges::find_if(lanes, &Lane::isSelected);
    return selected == lanes.end() ? -1 : static_cast<int>(selected - lanes.begin());
}

bool TimelinePicture::accessibleShowsWidgets() const
{
    return m_timeline.isEmpty();
}

void TimelinePicture::announceSelected()
{
    const int item = accessibleCurrentItem();
    if (item < 0 || !hasFocus()) return;
    // another event may have been in that lane
    QAccessibleEvent renamed(this, QAccessible::NameChanged);
    renamed.setChild(item);
    QAccessible::updateAccessibility(&renamed);
    QAccessibleEvent focused(this, QAccessible::Focus);
    focused.setChild(item);
    QAccessible::updateAccessibility(&focused);
}

void TimelinePicture::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    paintGrid(painter, palette(), height());
    paintSelection(painter);
    paintBars(painter, palette(), true);
    if (!hasFocus()) return;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void TimelinePicture::draw(QPainter& painter, const QPalette& palette, int height) const
{
    paintGrid(painter, palette, height);
    paintBars(painter, palette, false);
    const std::vector<Lane>& lanes = m_timeline.lanes();
    for (std::size_t i = 0; i < lanes.size(); ++i) {
        const QRect marker = m_markers[i]->geometry();
        if (lanes[i].isInstant) {
            EventMarker::draw(painter,
                              lanes[i].isKey ? EventMarker::Picture::imgDefaultKey
                                             : EventMarker::Picture::imgDefault,
                              QRectF(marker).center(), width(), palette.color(QPalette::Text));
        }
        const QPoint label = m_labels[i]->pos();
        painter.translate(label);
        m_labels[i]->draw(painter, palette);
        painter.translate(-label);
    }
}

/// Paints the steps of the ruler through the lanes, those of days and longer more strongly.
void TimelinePicture::paintGrid(QPainter& painter, const QPalette& palette, int height) const
{
    QColor faint = palette.color(QPalette::Text);
    for (const TimelineRuler::Tick& tick : m_timeline.ruler().ticks) {
        if (tick.rank == TimelineRuler::Rank::Part) continue;
        faint.setAlpha(tick.rank == TimelineRuler::Rank::Step ? 28 : 70);
        painter.setPen(faint);
        painter.drawLine(QLineF(tick.left, 0, tick.left, height));
    }
}

void TimelinePicture::paintSelection(QPainter& painter) const
{
    const std::vector<Lane>& lanes = m_timeline.lanes();
    QColor band = palette().color(QPalette::Highlight);
    band.setAlpha(60);
    for (std::size_t i = 0; i < lanes.size(); ++i) {
        if (!lanes[i].isSelected) continue;
        painter.fillRect(0, static_cast<int>(i) * TimelineLanes::laneHeight, width(),
                         TimelineLanes::laneHeight - 1, band);
    }
}

void TimelinePicture::paintBars(QPainter& painter, const QPalette& palette, bool marksSelected) const
{
    const std::vector<Lane>& lanes = m_timeline.lanes();
    painter.setRenderHint(QPainter::Antialiasing);
    QColor edge = palette.color(QPalette::Text);
    edge.setAlpha(outlineAlpha);
    for (std::size_t i = 0; i < lanes.size(); ++i) {
        const Lane& lane = lanes[i];
        if (lane.barWidth <= 0) continue;
        const bool isMarked = lane.isSelected && marksSelected;
        const QRectF bar = barPlace(lane, i);
        painter.fillRect(bar, isMarked ? TimelineColours::selected : TimelineColours::event);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(edge);
        painter.drawRect(bar.adjusted(0.5, 0.5, -0.5, -0.5));
        if (lane.isKey) {
            constexpr double size = TimelineLanes::keyMarkWidth - 2;
            EventMarker::paintKey(painter, {bar.left() + 1, bar.center().y() - size / 2, size, size});
        }
    }
}

void TimelinePicture::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    growPool(TimelineLanes::laneCount(height()));
    Q_EMIT resized(width(), height());
}

const Lane* TimelinePicture::drawnAt(const QPointF& point) const
{
    const auto index = static_cast<std::size_t>(std::max(0.0, point.y()) / TimelineLanes::laneHeight);
    if (index >= m_timeline.lanes().size()) return nullptr;
    const Lane& lane = m_timeline.lanes()[index];
    const double left = lane.isInstant ? lane.markerLeft : lane.barLeft;
    const double width = lane.isInstant ? TimelineLanes::markerWidth : std::max(lane.barWidth, narrowestBar);
    return point.x() >= left && point.x() < left + width ? &lane : nullptr;
}

/// A click on a bar or a marker means the same as on its label.
void TimelinePicture::mousePressEvent(QMouseEvent* event)
{
    const Lane* lane = drawnAt(event->position());
    if (lane == nullptr) return;
    if (event->button() == Qt::LeftButton) Q_EMIT eventClicked(lane->eventId);
    if (event->button() == Qt::RightButton) {
        Q_EMIT eventMenuRequested(lane->eventId, event->globalPosition().toPoint());
    }
}

void TimelinePicture::mouseDoubleClickEvent(QMouseEvent* event)
{
    const Lane* lane = event->button() == Qt::LeftButton ? drawnAt(event->position()) : nullptr;
    if (lane != nullptr) Q_EMIT eventDoubleClicked(lane->eventId);
}

/// Bars and markers have the tool tip of their label.
bool TimelinePicture::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto& help = *static_cast<QHelpEvent*>(event);
    const Lane* lane = drawnAt(help.pos());
    QToolTip::showText(help.globalPos(), lane == nullptr ? QString() : PlainToolTip::text(lane->toolTip),
                       this);
    return true;
}

void TimelinePicture::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ParentChange) chooseFont();
}

void TimelinePicture::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void TimelinePicture::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}
