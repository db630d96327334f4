// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimelineBand.h"

#include "timeline/BandPicture.h"
#include "timeline/Timeline.h"
#include "widgets/PlainToolTip.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

// pixels: how far beside an edge of the box it can be taken hold of, and how far a click may slip
constexpr double reachOutside = 5;
constexpr double reachInside = 3;
constexpr double clickSlips = 2;

constexpr int narrowestBand = 100;

} // namespace

TimelineBand::TimelineBand(const Timeline& timeline, QWidget* parent) : QWidget(parent), m_timeline(timeline)
{
    AccessibleItems::install();
    setObjectName(QStringLiteral("picBand"));
    setAccessibleName(tr("Whole time span"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

QSize TimelineBand::sizeHint() const
{
    return {TimelineScale::stepWidth, BandPicture::heightFor(fontMetrics())};
}

QSize TimelineBand::minimumSizeHint() const
{
    return {narrowestBand, sizeHint().height()};
}

void TimelineBand::showWindow()
{
    const BandScale scale(m_timeline.window().limits(), width());
    if (scale != m_scale || m_density != m_timeline.density()) {
        m_scale = scale;
        m_density = m_timeline.density();
        layOut();
    }
    describe();
    update();
}

/// Lays all but the box out anew.
void TimelineBand::layOut()
{
    m_parts = BandParts(m_scale, *m_density);
    m_items.clear();
    for (const BandPart& part : m_parts.all())
        if (part.events > 0) m_items.push_back(&part);
    m_labels = bandLabelsOf(
        m_scale, [this](const QString& text) { return fontMetrics().horizontalAdvance(text) + 1; });
    m_picture = {};
    QAccessibleTableModelChangeEvent changed(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&changed);
}

void TimelineBand::describe()
{
    const TimeWindow& window = m_timeline.window();
    const auto events = static_cast<int>(m_parts.events());
    const TimelineLimits& limits = window.limits();
    const QString days = tr("%1 to %2").arg(dateText(limits.timelineStart), dateText(limits.timelineEnd));
    QString whole = tr("%1: %n events.", nullptr, events).arg(days);
    if (events == 0) whole = tr("%1: no events.").arg(days);
    if (events == 1) whole = tr("%1: 1 event.").arg(days);
    setAccessibleDescription(
        tr("%1 The window shows %2 to %3. The arrow keys go from one part with events to the next.")
            .arg(whole, dateTimeText(window.currentTime()), dateTimeText(window.windowEnd())));
}

QString TimelineBand::accessibleItemName(int item) const
{
    return m_items.at(static_cast<std::size_t>(item))->text();
}

QRect TimelineBand::accessibleItemRect(int item) const
{
    const BandPart& part = *m_items.at(static_cast<std::size_t>(item));
    return QRectF(part.left, 0, part.right - part.left, height()).toAlignedRect();
}

int TimelineBand::accessibleCurrentItem() const
{
    const BandPart* part = m_parts.partOf(m_timeline.window().currentTime());
    const auto found = std::ranges::find(m_items, part);
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

void TimelineBand::paintEvent(QPaintEvent* /*event*/)
{
    const QSize size = this->size() * devicePixelRatio();
    if (m_picture.size() != size) {
        m_picture = QPixmap(size);
        m_picture.setDevicePixelRatio(devicePixelRatio());
        QPainter painter(&m_picture);
        painter.setFont(font());
        BandPicture::paint(painter, m_scale, m_parts, *m_density, m_labels, palette(), height());
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_picture);
    BandPicture::paintBox(painter, m_scale.boxOf(m_timeline.window()), palette(), height());
    if (!hasFocus()) return;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void TimelineBand::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    showWindow();
}

void TimelineBand::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    const bool isSeen = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (!isSeen || m_density == nullptr) return;
    layOut();
    updateGeometry();
    update();
}

void TimelineBand::choose(const TimeWindow& wanted)
{
    const TimeWindow& shown = m_timeline.window();
    if (wanted.currentTime() == shown.currentTime() && wanted.zoomFactor() == shown.zoomFactor()) return;
    Q_EMIT periodChosen(wanted.currentTime(), wanted.zoomFactor());
}

void TimelineBand::chooseMoment(Moment leftEdge)
{
    TimeWindow wanted = m_timeline.window();
    wanted.moveWithin(leftEdge);
    choose(wanted);
}

/// The start of the first event of a part.
std::optional<Moment> TimelineBand::firstStartIn(const BandPart& part) const
{
    const auto start = part.events > 0 ? m_timeline.firstStartFrom(part.from) : std::nullopt;
    return start && *start < part.to ? start : std::nullopt;
}

/// Moves the middle of the window to a position. If the window is shorter than the part there, it would most
/// often miss the events that the user sees: it goes to the first of them.
void TimelineBand::goTo(double position)
{
    const TimeWindow& window = m_timeline.window();
    const Minutes length = window.windowEnd() - window.currentTime();
    Moment middle = m_scale.momentAt(position);
    const BandPart* part = m_parts.partOf(middle);
    if (part != nullptr && part->to - part->from > length) middle = firstStartIn(*part).value_or(middle);
    chooseMoment(middle - length / 2);
}

void TimelineBand::goToPart(const BandPart* part)
{
    if (part != nullptr) chooseMoment(firstStartIn(*part).value_or(part->from));
    endMove();
}

void TimelineBand::goForward()
{
    const Moment now = m_timeline.window().currentTime();
    const BandPart* part = m_parts.partOf(now);
    const auto start = part == nullptr ? std::nullopt : firstStartIn(*part);
    // the window may stand in a part before the first of its events
    goToPart(start && *start > now ? part : m_parts.nextWithEvents(now));
}

void TimelineBand::goToLabel(bool isForward)
{
    const Moment now = m_timeline.window().currentTime();
    const TimelineLimits& limits = m_scale.limits();
    Moment wanted = isForward ? limits.timelineEnd : limits.timelineStart;
    for (const BandLabels::Label& label : m_labels.labels) {
        if (isForward && label.moment > now) wanted = std::min(wanted, label.moment);
        if (!isForward && label.moment < now) wanted = std::max(wanted, label.moment);
    }
    chooseMoment(wanted);
    endMove();
}

/// Tells screen readers where a key has led.
void TimelineBand::endMove()
{
    QAccessibleEvent focused(this, QAccessible::Focus);
    const int item = accessibleCurrentItem();
    if (item >= 0) focused.setChild(item);
    QAccessible::updateAccessibility(&focused);
}

std::optional<BandEdge> TimelineBand::edgeAt(double position) const
{
    const BandBox box = m_scale.boxOf(m_timeline.window());
    if (position >= box.left - reachOutside && position <= box.left + reachInside) return BandEdge::Left;
    if (position >= box.right - reachInside && position <= box.right + reachOutside) return BandEdge::Right;
    return std::nullopt;
}

void TimelineBand::showCursor(double position)
{
    const BandBox box = m_scale.boxOf(m_timeline.window());
    if (edgeAt(position)) {
        setCursor(Qt::SizeHorCursor);
    } else if (position > box.left && position < box.right) {
        setCursor(m_drag ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
    } else {
        unsetCursor();
    }
}

void TimelineBand::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
    const double at = event->position().x();
    const BandBox box = m_scale.boxOf(m_timeline.window());
    const auto edge = edgeAt(at);
    const bool isBeside = !edge && (at < box.left || at > box.right);
    const TimeWindow before = m_timeline.window();
    m_drag = Drag{edge, at, before, before, isBeside};
    if (isBeside) goTo(at);
    if (m_drag) m_drag->window = m_timeline.window();
    showCursor(at);
}

void TimelineBand::mouseMoveEvent(QMouseEvent* event)
{
    const double at = event->position().x();
    // the release may have gone to another window
    if (!event->buttons().testFlag(Qt::LeftButton)) m_drag.reset();
    if (!m_drag) return showCursor(at);
    m_drag->hasMoved = m_drag->hasMoved || std::abs(at - m_drag->from) > clickSlips;
    if (!m_drag->hasMoved) return;
    if (m_drag->edge) return choose(m_scale.withEdgeAt(m_drag->window, *m_drag->edge, at));
    TimeWindow wanted = m_drag->window;
    wanted.moveWithin(wanted.currentTime() + m_scale.momentAt(at) - m_scale.momentAt(m_drag->from));
    choose(wanted);
}

void TimelineBand::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_drag) return;
    const bool isClick = !m_drag->hasMoved && !m_drag->edge;
    m_drag.reset();
    const double at = event->position().x();
    if (isClick) goTo(at);
    showCursor(at);
}

void TimelineBand::takeBackDrag()
{
    const TimeWindow before = m_drag->before;
    m_drag.reset();
    choose(before);
    showCursor(mapFromGlobal(QCursor::pos()).x());
}

void TimelineBand::keyPressEvent(QKeyEvent* event)
{
    if (m_drag && event->key() == Qt::Key_Escape) return takeBackDrag();
    const TimeWindow& window = m_timeline.window();
    // with other keys held down they are those of the timeline
    if ((event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return event->ignore();
    switch (event->key()) {
    case Qt::Key_Left:
        return goToPart(m_parts.previousWithEvents(window.currentTime()));
    case Qt::Key_Right:
        return goForward();
    case Qt::Key_PageUp:
        return goToLabel(false);
    case Qt::Key_PageDown:
        return goToLabel(true);
    case Qt::Key_Home:
        chooseMoment(m_scale.limits().timelineStart);
        return endMove();
    case Qt::Key_End:
        chooseMoment(m_scale.limits().timelineEnd);
        return endMove();
    default:
        event->ignore();
    }
}

bool TimelineBand::event(QEvent* event)
{
    // by a message, which the next move would show again
    if (event->type() == QEvent::WindowBlocked) m_drag.reset();
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    showToolTip(*static_cast<QHelpEvent*>(event));
    return true;
}

void TimelineBand::showToolTip(const QHelpEvent& help)
{
    const BandPart* part = m_parts.partOf(m_scale.momentAt(help.pos().x()));
    if (part == nullptr || m_drag) return QToolTip::hideText();
    // goes as soon as the mouse leaves the part
    const QRect place = QRectF(part->left, 0, part->right - part->left, height()).toAlignedRect();
    QToolTip::showText(help.globalPos(), PlainToolTip::text(part->text()), this, place);
}

void TimelineBand::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void TimelineBand::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}
