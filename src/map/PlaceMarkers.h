// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/MapExtent.h"
#include "map/MarkerPictures.h"
#include "map/StatesPicture.h"
#include "views/clsCities.h"

#include <QColor>
#include <QPointF>
#include <QString>

#include <optional>
#include <vector>

class QPainter;

/// The markers of the places on the map: their positions, their pictures, which of them a pointer hits and in
/// which order the keyboard goes through them. Entries are numbered as they are drawn, from 0.
class PlaceMarkers
{
public:
    /// Takes the places in place of those before.
    void set(const std::vector<clsCities>& places);

    [[nodiscard]] std::size_t count() const { return m_positions.size(); }
    [[nodiscard]] const QString& name(std::size_t entry) const { return m_names.at(entry); }

    /// The positions of the markers in the plane of the map, by entry.
    [[nodiscard]] const std::vector<QPointF>& positions() const { return m_positions; }

    /// What names of states keep clear of.
    [[nodiscard]] std::vector<MapObstacle> obstacles() const;

    [[nodiscard]] QPointF position(std::size_t entry) const { return m_positions.at(entry); }

    /// Returns the entry whose marker is at a pixel or near it, or `std::nullopt`.
    [[nodiscard]] std::optional<std::size_t> entryAt(QPointF screen, const MapExtent& extent) const;

    /// Returns the next entry in the order of names (`step` 1) or the one before (-1), round and round;
    /// without an entry, the first or the last. There must be at least one.
    [[nodiscard]] std::size_t neighbour(std::optional<std::size_t> entry, int step) const;

    /// Draws the markers that are at least partly within `sight`, in pixels.
    void paint(QPainter& painter, const MapExtent& extent, const QRect& sight, double devicePixelRatio);

    /// Draws the markers whose middle is in sight, as areas and lines.
    void draw(QPainter& painter, const MapExtent& extent) const;

    /// Draws one marker over the others, with a ring around it. Call after `paint`.
    void paintRinged(QPainter& painter, const MapExtent& extent, std::size_t entry,
                     const QColor& colour) const;

    /// The width of a marker as painted last, in logical pixels.
    [[nodiscard]] double markerExtent() const { return m_pictures.extent(); }

private:
    MarkerPictures m_pictures;
    std::vector<QPointF> m_positions;          ///< in the plane, by entry
    std::vector<int> m_colours;                ///< by entry
    std::vector<QString> m_names;              ///< by entry
    std::vector<std::size_t> m_topmost;        ///< those that no later one covers, in the order of drawing
    mutable std::vector<std::size_t> m_byName; ///< empty until the keyboard goes through them
};
