#pragma once

#include "map/MapExtent.h"
#include "map/MapTool.h"
#include "map/PlaceMarkers.h"
#include "map/StatesPicture.h"
#include "widgets/AccessibleItems.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

/// The map of the states with a marker for each place: paints, and turns what the user does with mouse and
/// keyboard into zooming, moving and the choice of places. Entries are numbered as they are drawn, from 0.
class MapView final : public QWidget, public AccessibleItems
{
    Q_OBJECT

public:
    explicit MapView(QWidget* parent);

    void setStates(StatesLayer layer);
    [[nodiscard]] bool hasStates() const { return !m_states.layer().states().empty(); }

    /// Takes the places in place of those before; none is ringed then.
    void setPlaces(const std::vector<clsCities>& places);

    /// Moves the map to the places if they are not in sight; to the contiguous states if there are none.
    void goToPlaces();

    /// Moves the map so that an entry's marker is in sight, where it is not.
    void showEntry(std::size_t entry);

    /// Rings one marker, or none.
    void setRinged(std::optional<std::size_t> entry);
    [[nodiscard]] std::optional<std::size_t> ringed() const { return m_ringed; }

    void setTool(MapTool tool);
    [[nodiscard]] MapTool tool() const { return m_tool; }

    void zoomIn();
    void zoomOut();
    void showFullExtent();
    void showContiguousStates();

    /// The size of a marker in degrees of longitude at the current extent.
    [[nodiscard]] double markerScale() const { return m_extent.markerScale(); }
    [[nodiscard]] const MapExtent& extent() const { return m_extent; }

    /// Where an entry's marker is, in pixels.
    [[nodiscard]] QPointF positionOf(std::size_t entry) const;
    [[nodiscard]] std::optional<std::size_t> entryAt(QPointF screen) const;

    /// Gives the text, in HTML, that tells of an entry's place; asked when the pointer rests on it.
    std::function<QString(std::size_t)> describe;

    [[nodiscard]] int accessibleItemCount() const override { return static_cast<int>(m_markers.count()); }
    [[nodiscard]] QString accessibleItemName(int item) const override;
    [[nodiscard]] QRect accessibleItemRect(int item) const override;
    [[nodiscard]] int accessibleCurrentItem() const override;

Q_SIGNALS:
    /// The user chose a marker.
    void chosen(std::size_t entry);
    void menuRequested(std::size_t entry, const QPoint& globalPosition);
    void toolChanged(MapTool tool);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    /// A press of the left button, until it is released.
    struct Press
    {
        QPointF begin;
        QPointF last;
        bool isDrag = false;
    };

    void zoom(double factor, QPointF about);
    void click(QPointF position);
    void goToPlace(int step);
    bool moveByKey(int key);
    void updateCursor();

    StatesPicture m_states;
    PlaceMarkers m_markers;
    MapExtent m_extent;
    std::optional<std::size_t> m_ringed;
    std::optional<Press> m_press;
    MapTool m_tool = MapTool::Pointer;
};
