// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/MapExtent.h"
#include "map/PlaceMarkers.h"
#include "map/StatesPicture.h"
#include "widgets/AccessibleItems.h"

#include <QWidget>

#include <optional>
#include <vector>

/// The states with a marker for each place, as far as they are in sight: what there is to see on the map, for
/// the eye and for assistive tools. Entries are numbered as they are drawn, from 0.
class MapCanvas : public QWidget, public AccessibleItems
{
    Q_OBJECT

public:
    void setStates(StatesLayer layer);
    [[nodiscard]] bool hasStates() const { return !m_states.layer().states().empty(); }

    /// Takes the places in place of those before; none is ringed then.
    void setPlaces(const std::vector<clsCities>& places);

    /// Moves the map to the places if they are not in sight; to the contiguous states if there are none.
    void goToPlaces();

    /// Moves the map so that an entry's marker is in sight, unless it is.
    void showEntry(std::size_t entry);

    /// Rings one marker, or none.
    void setRinged(std::optional<std::size_t> entry);
    [[nodiscard]] std::optional<std::size_t> ringed() const { return m_ringed; }

    void zoomIn();
    void zoomOut();
    void showFullExtent();
    void showContiguousStates();

    /// Draws what is in sight dark on white, and nothing beyond it.
    void draw(QPainter& painter) const;

    /// The size of a marker in degrees of longitude at the current extent.
    [[nodiscard]] double markerScale() const { return m_extent.markerScale(); }
    [[nodiscard]] const MapExtent& extent() const { return m_extent; }

    /// The middle of an entry's marker, in pixels.
    [[nodiscard]] QPointF positionOf(std::size_t entry) const;

    /// The longitude, from -180 to 180, and the latitude at a pixel, as x and y.
    [[nodiscard]] QPointF degreesAt(QPointF screen) const;

    /// The entry whose marker is at a pixel, or near it.
    [[nodiscard]] std::optional<std::size_t> entryAt(QPointF screen) const;

    [[nodiscard]] int accessibleItemCount() const override { return static_cast<int>(m_markers.count()); }
    [[nodiscard]] QString accessibleItemName(int item) const override;
    [[nodiscard]] QRect accessibleItemRect(int item) const override;
    [[nodiscard]] int accessibleCurrentItem() const override;

protected:
    /// The factor by which a click, a key or a command zooms.
    static constexpr double zoomStep = 2;

    explicit MapCanvas(QWidget* parent);

    /// Zooms in by a factor (out if it is below 1) about a pixel that stays where it is.
    void zoom(double factor, QPointF about);

    /// Shows the state at a pixel, or that of the inset there, as large as it fits. If it is as large
    /// already, or on water, zooms in about the pixel.
    void goToState(QPointF screen);

    /// Shows what lies within a rectangle of pixels.
    void zoomTo(const QRectF& screen);

    /// Moves the map by so many pixels.
    void pan(QPointF pixels);

    [[nodiscard]] const PlaceMarkers& markers() const { return m_markers; }

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    StatesPicture m_states;
    PlaceMarkers m_markers;
    MapExtent m_extent;
    std::optional<std::size_t> m_ringed;
};
