// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/TimelineLanes.h"

#include <QLabel>

/// The caption of one lane. It belongs to the pool of the picture: made once, then filled, moved, shown and
/// hidden. Its property `tag` is the identifier of its event.
class EventLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit EventLabel(QWidget* parent);

    /// Shows the caption of a lane; `index` is the number of the lane from the top, from 0.
    void showLane(const Lane& lane, int index);

    [[nodiscard]] qint64 eventId() const { return m_eventId; }

    /// Draws the caption at the painter's origin, in its font.
    void draw(QPainter& painter, const QPalette& palette) const;

Q_SIGNALS:
    void clicked(qint64 eventId);
    void doubleClicked(qint64 eventId);

    /// The right button was clicked, at a global position.
    void menuRequested(qint64 eventId, const QPoint& position);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    qint64 m_eventId = 0;
    bool m_isInside = false;
    Qt::MouseButton m_pressed = Qt::NoButton;
};
