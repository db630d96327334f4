// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/Timeline.h"

#include <QObject>
#include <QPoint>

#include <optional>
#include <vector>

class QKeyEvent;
class QMouseEvent;
class QWheelEvent;
class QWidget;

/// What keys, the wheel and the middle button of the mouse do on the panel of the timeline. Lives as long as
/// the panel.
class TimelineInput final : public QObject
{
    Q_OBJECT

public:
    /// The middle button drags on the strip, which are children of the panel. The timeline must outlive the
    /// panel, whose child the object becomes.
    TimelineInput(Timeline& timeline, const std::vector<QWidget*>& strip, QWidget& panel);

Q_SIGNALS:
    /// The timeline shows another window.
    void moved();

    /// The user wants to see the lanes so much further down, or up if negative.
    void lanesScrolled(int lanes);

    /// The timeline has selected an event.
    void eventChosen(qint64 eventId);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Handler = void (Timeline::*)();

    /// Where the button went down, in pixels of the panel, and where the timeline was.
    struct Drag
    {
        int from = 0;
        Moment leftEdge = 0;
    };

    [[nodiscard]] bool takeFromPanel(QEvent& event);
    [[nodiscard]] bool takeFromStrip(QEvent& event);
    [[nodiscard]] bool pressKey(const QKeyEvent& event);
    void turnWheel(const QWheelEvent& event);
    void turn(int notches, Handler up, Handler down);
    void run(Handler handler);
    void choose(int lanes);
    void beginDrag(const QMouseEvent& event);
    void drag(const QMouseEvent& event);
    void endDrag();

    Timeline& m_timeline;
    QWidget& m_panel;
    std::optional<Drag> m_drag;
    QPoint m_wheel; ///< the turn of the wheel since its last whole notch, in eighths of a degree
};
