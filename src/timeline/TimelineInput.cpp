// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimelineInput.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

#include <cstdlib>

namespace {

constexpr int wheelNotch = 120;
constexpr int lanesPerNotch = 3;

} // namespace

TimelineInput::TimelineInput(Timeline& timeline, const std::vector<QWidget*>& strip, QWidget& panel)
    : QObject(&panel), m_timeline(timeline), m_panel(panel)
{
    panel.installEventFilter(this);
    for (QWidget* part : strip)
        part->installEventFilter(this);
}

bool TimelineInput::eventFilter(QObject* watched, QEvent* event)
{
    // what the strip has no use for comes to the panel
    const bool isUsed = watched == &m_panel ? takeFromPanel(*event) : takeFromStrip(*event);
    if (isUsed) event->accept();
    return isUsed;
}

bool TimelineInput::takeFromStrip(QEvent& event)
{
    if (event.type() != QEvent::MouseButtonPress && event.type() != QEvent::MouseButtonDblClick) return false;
    const auto& press = static_cast<QMouseEvent&>(event);
    if (press.button() != Qt::MiddleButton) return false;
    beginDrag(press);
    return true;
}

bool TimelineInput::takeFromPanel(QEvent& event)
{
    switch (event.type()) {
    case QEvent::KeyPress:
        return pressKey(static_cast<QKeyEvent&>(event));
    case QEvent::Wheel:
        turnWheel(static_cast<QWheelEvent&>(event));
        return true;
    case QEvent::MouseMove:
        drag(static_cast<QMouseEvent&>(event));
        return true;
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent&>(event).button() == Qt::MiddleButton) endDrag();
        return true;
    case QEvent::Hide:
    case QEvent::UngrabMouse:
    case QEvent::WindowBlocked: // by a message, whose window could not be clicked
        endDrag();
        return false;
    default:
        return false;
    }
}

bool TimelineInput::pressKey(const QKeyEvent& event)
{
    const bool jumps = event.modifiers().testFlag(Qt::ControlModifier);
    switch (event.key()) {
    case Qt::Key_Left:
        run(jumps ? &Timeline::NavJumpBack : &Timeline::NavStepBack);
        return true;
    case Qt::Key_Right:
        run(jumps ? &Timeline::NavJumpForward : &Timeline::NavStepForward);
        return true;
    case Qt::Key_Home:
        run(&Timeline::NavBeginning);
        return true;
    case Qt::Key_End:
        run(&Timeline::NavEnd);
        return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal: // the key of the plus on many keyboards, without Shift
        run(&Timeline::ZoomIn);
        return true;
    case Qt::Key_Minus:
        run(&Timeline::ZoomOut);
        return true;
    case Qt::Key_Up:
        choose(-1);
        return true;
    case Qt::Key_Down:
        choose(1);
        return true;
    case Qt::Key_PageUp:
        Q_EMIT lanesScrolled(-m_timeline.laneCount());
        return true;
    case Qt::Key_PageDown:
        Q_EMIT lanesScrolled(m_timeline.laneCount());
        return true;
    default:
        return false;
    }
}

void TimelineInput::run(Handler handler)
{
    (m_timeline.*handler)();
    Q_EMIT moved();
}

void TimelineInput::choose(int lanes)
{
    if (const auto eventId = m_timeline.selectBeside(lanes)) Q_EMIT eventChosen(*eventId);
}

void TimelineInput::turnWheel(const QWheelEvent& event)
{
    m_wheel += event.angleDelta();
    const bool isSideways = std::abs(m_wheel.x()) > std::abs(m_wheel.y());
    const int notches = (isSideways ? m_wheel.x() : m_wheel.y()) / wheelNotch;
    if (notches == 0) return;
    m_wheel = {};
    if (event.modifiers().testFlag(Qt::ControlModifier)) {
        turn(notches, &Timeline::ZoomIn, &Timeline::ZoomOut);
    } else if (event.modifiers().testFlag(Qt::ShiftModifier)) {
        Q_EMIT lanesScrolled(-notches * lanesPerNotch);
    } else {
        turn(notches, &Timeline::NavStepBack, &Timeline::NavStepForward);
    }
}

void TimelineInput::turn(int notches, Handler up, Handler down)
{
    for (int i = 0; i < std::abs(notches); ++i)
        run(notches > 0 ? up : down);
}

/// The label under the pointer may be hidden while the strip moves, so the panel takes the mouse.
void TimelineInput::beginDrag(const QMouseEvent& event)
{
    const QPoint place = m_panel.mapFromGlobal(event.globalPosition().toPoint());
    m_drag = Drag{place.x(), m_timeline.window().currentTime()};
    // to hear of moves after a release that went to another window
    m_panel.setMouseTracking(true);
    m_panel.grabMouse(Qt::ClosedHandCursor);
}

void TimelineInput::drag(const QMouseEvent& event)
{
    if (!m_drag) return;
    if (!event.buttons().testFlag(Qt::MiddleButton)) return endDrag();
    const int x = m_panel.mapFromGlobal(event.globalPosition().toPoint()).x();
    m_timeline.drag(m_drag->leftEdge, x - m_drag->from);
    Q_EMIT moved();
}

void TimelineInput::endDrag()
{
    if (!m_drag) return;
    m_drag.reset();
    m_panel.setMouseTracking(false);
    m_panel.releaseMouse();
}
