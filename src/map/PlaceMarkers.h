#pragma once

#include "map/MapExtent.h"
#include "map/MarkerPictures.h"
#include "views/clsCities.h"

#include <QColor>
#include <QPointF>
#include <QString>

#include <optional>
#include <vector>

class QPainter;

/// The markers of the places on the map: where each stands, how it is drawn, which of them a pointer means
/// and in which order the keyboard goes through them. Entries are numbered as they are drawn, from 0.
class PlaceMarkers
{
public:
    /// Takes the places in place of those before.
    void set(const std::vector<clsCities>& places);

    [[nodiscard]] std::size_t count() const { return m_positions.size(); }
    [[nodiscard]] const QString& name(std::size_t entry) const { return m_names.at(entry); }

    /// Where the markers are in the plane of the map, by entry.
    [[nodiscard]] const std::vector<QPointF>& positions() const { return m_positions; }

    /// Where a marker is in the plane of the map.
    [[nodiscard]] QPointF position(std::size_t entry) const { return m_positions.at(entry); }

    /// The marker at a pixel, or near it.
    [[nodiscard]] std::optional<std::size_t> entryAt(QPointF screen, const MapExtent& extent) const;

    /// The next entry in the order of names, or the one before; from none, the first or the last. There must
    /// be an entry.
    [[nodiscard]] std::size_t neighbour(std::optional<std::size_t> entry, int step) const;

    /// Draws the markers that can be seen in a widget of that rectangle.
    void paint(QPainter& painter, const MapExtent& extent, const QRect& sight, double devicePixelRatio);

    /// Draws one marker over the others, with a ring around it. The markers have been painted before.
    void paintRinged(QPainter& painter, const MapExtent& extent, std::size_t entry,
                     const QColor& colour) const;

    /// The room that a marker takes as they were painted last, in logical pixels.
    [[nodiscard]] double markerExtent() const { return m_pictures.extent(); }

private:
    MarkerPictures m_pictures;
    std::vector<QPointF> m_positions;          ///< in the plane, by entry
    std::vector<int> m_colours;                ///< by entry
    std::vector<QString> m_names;              ///< by entry
    std::vector<std::size_t> m_topmost;        ///< those not wholly covered by a later one, as they are drawn
    mutable std::vector<std::size_t> m_byName; ///< empty until the keyboard goes through them
};
