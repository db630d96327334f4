// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/BandLabels.h"
#include "timeline/BandParts.h"
#include "widgets/AccessibleItems.h"

#include <QPixmap>
#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

class QHelpEvent;
class Timeline;

/// The whole span of the timeline above the ruler: how many events of the view begin when, and the visible
/// window as a box that can be moved. To screen readers it is a list of its parts that have events.
class TimelineBand final : public QWidget, public AccessibleItems
{
    Q_OBJECT

public:
    /// The timeline must outlive the band.
    TimelineBand(const Timeline& timeline, QWidget* parent);

    /// Shows the window as it is now.
    void showWindow();

    [[nodiscard]] const BandScale& scale() const { return m_scale; }
    [[nodiscard]] const BandParts& parts() const { return m_parts; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] int accessibleItemCount() const override { return static_cast<int>(m_items.size()); }
    [[nodiscard]] QString accessibleItemName(int item) const override;
    [[nodiscard]] QRect accessibleItemRect(int item) const override;
    [[nodiscard]] int accessibleCurrentItem() const override;

Q_SIGNALS:
    /// The user chose the window that begins at a moment, at a level.
    void periodChosen(Moment leftEdge, int zoomFactor);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// What the mouse moves while its button is held down.
    struct Drag
    {
        std::optional<BandEdge> edge; ///< none for the box as a whole
        double from = 0;              ///< the position that the mouse took hold of
        TimeWindow window;            ///< as it was then
        TimeWindow before;            ///< what Escape brings back
        bool hasMoved = false;
    };

    void layOut();
    void describe();
    void choose(const TimeWindow& wanted);
    void chooseMoment(Moment leftEdge);
    void goTo(double position);
    void goToPart(const BandPart* part);
    void goForward();
    void goToLabel(bool isForward);
    void endMove();
    void takeBackDrag();
    [[nodiscard]] std::optional<Moment> firstStartIn(const BandPart& part) const;
    [[nodiscard]] std::optional<BandEdge> edgeAt(double position) const;
    void showCursor(double position);
    void showToolTip(const QHelpEvent& help);

    const Timeline& m_timeline;
    std::shared_ptr<const EventDensity> m_density;
    BandScale m_scale;
    BandParts m_parts;
    std::vector<const BandPart*> m_items; ///< the parts with events
    BandLabels m_labels;
    QPixmap m_picture; ///< all but the box; null if it has to be painted anew
    std::optional<Drag> m_drag;
};
