// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/MapExtent.h"
#include "map/PlaceMarkers.h"
#include "map/StatesPicture.h"
#include "widgets/AccessibleItems.h"

#include <QWidget>

#include <optional>
#include <span>
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

    /// Draws markers that cover each other as one disc, or each for itself.
    void setGrouped(bool grouped);
    [[nodiscard]] bool isGrouped() const { return m_markers.isGrouped(); }

    /// Leaves the markers of some colours out.
    void setHidden(HiddenColours hidden);

    /// Shows the markers of one colour over the others, or of none.
    void setRaised(std::optional<int> colour);

    /// Returns the entries that are drawn as one with an entry: all of a disc, or it alone.
    [[nodiscard]] std::span<const std::size_t> drawnWith(std::size_t entry) const
    {
        return m_markers.members(m_markers.leadOf(entry));
    }

    [[nodiscard]] const PlaceMarkers& markers() const { return m_markers; }

    /// Returns whether more than half of the markers lie below others.
    [[nodiscard]] bool areMostCovered() const { return m_markers.areMostCovered(m_extent); }

    /// Rings the marker or the disc of an entry, or none.
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

    /// The entry whose marker is at a pixel, or near it; of a disc, the one that leads the others.
    [[nodiscard]] std::optional<std::size_t> entryAt(QPointF screen) const;

    [[nodiscard]] int accessibleItemCount() const override
    {
        return static_cast<int>(m_markers.leads().size());
    }
    [[nodiscard]] QString accessibleItemName(int item) const override;
    [[nodiscard]] QRect accessibleItemRect(int item) const override;
    [[nodiscard]] int accessibleCurrentItem() const override;

Q_SIGNALS:
    /// Markers may cover each other otherwise than before.
    void arranged();

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

    /// Zooms so that the places of an entry's disc come apart.
    void takeApart(std::size_t entry);

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void arrange();

    StatesPicture m_states;
    PlaceMarkers m_markers;
    MapExtent m_extent;
    std::optional<std::size_t> m_ringed;
    double m_arrangedScale = 0; ///< of the extent for which the markers were arranged last
};
