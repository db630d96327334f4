// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/TimelineLanes.h"

#include <QWidget>

/// The marker of one lane whose event takes no time. It belongs to the pool of the picture, as EventLabel
/// does.
class EventMarker final : public QWidget
{
    Q_OBJECT

public:
    /// The four pictures of a marker.
    enum class Picture
    {
        imgDefault,
        imgDefaultKey,
        imgSelected,
        imgSelectedKey
    };

    explicit EventMarker(QWidget* parent);

    /// Shows the marker of a lane; `index` is the number of the lane from the top, from 0.
    void showLane(const Lane& lane, int index);

    [[nodiscard]] Picture picture() const { return m_picture; }

    /// Draws a picture of a marker around a point. At an edge of the timeline, whose width it is, the marker
    /// is drawn narrower rather than cut off.
    static void draw(QPainter& painter, Picture picture, QPointF middle, double width, const QColor& text);

    /// Paints the sign of a key event as large as the rectangle. Bars carry it too.
    static void paintKey(QPainter& painter, const QRectF& place);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Picture m_picture = Picture::imgDefault;
};
