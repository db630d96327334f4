// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "widgets/AccessibleItems.h"

#include <QWidget>

#include <vector>

class EmptyWindowNotice;
class EventLabel;
class EventMarker;
class Timeline;
struct Lane;

/// The lanes of the timeline, each with a label and a marker from a pool. The pool grows when the picture is
/// resized; drawing only fills, moves, shows and hides what is there.
class TimelinePicture final : public QWidget, public AccessibleItems
{
    Q_OBJECT

public:
    /// The timeline must outlive the picture.
    TimelinePicture(const Timeline& timeline, QWidget* parent);

    /// Shows the lanes as they are now.
    void showLanes();

    /// Tells screen readers of the selected event, to which the keys have gone.
    void announceSelected();

    /// Draws the lanes with their grid, in the painter's font, and nothing as selected. `height` is in
    /// pixels.
    void draw(QPainter& painter, const QPalette& palette, int height) const;

    /// Takes the font of the window, made smaller if it is too high for a lane.
    void chooseFont();

    [[nodiscard]] int accessibleItemCount() const override;
    [[nodiscard]] QString accessibleItemName(int item) const override;
    [[nodiscard]] QRect accessibleItemRect(int item) const override;
    [[nodiscard]] int accessibleCurrentItem() const override;
    [[nodiscard]] bool accessibleShowsWidgets() const override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void resized(int width, int height);
    void eventClicked(qint64 eventId);
    void eventDoubleClicked(qint64 eventId);
    void eventMenuRequested(qint64 eventId, const QPoint& position);
    void nearestChosen(qint64 eventId);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void growPool(int count);

    /// Returns the lane whose bar or marker is at a point, or null.
    [[nodiscard]] const Lane* drawnAt(const QPointF& point) const;

    void paintGrid(QPainter& painter, const QPalette& palette, int height) const;
    void paintSelection(QPainter& painter) const;
    void paintBars(QPainter& painter, const QPalette& palette, bool marksSelected) const;

    const Timeline& m_timeline;
    std::vector<EventLabel*> m_labels;
    std::vector<EventMarker*> m_markers;
    EmptyWindowNotice* m_notice;
};
