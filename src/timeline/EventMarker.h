#pragma once

#include "timeline/TimelineLanes.h"

#include <QWidget>

/// The marker of one lane whose event takes no time. It belongs to the pool of the picture, as its label
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

    void showLane(const Lane& lane, int index);

    [[nodiscard]] Picture picture() const { return m_picture; }

    /// The sign of a key event, as large as the rectangle; bars carry it too.
    static void paintKey(QPainter& painter, const QRectF& place);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Picture m_picture = Picture::imgDefault;
};
