// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/MapExtent.h"
#include "map/StateOutlines.h"
#include "map/StatesLayer.h"

#include <QFont>
#include <QPalette>
#include <QPixmap>

class QFontMetricsF;
class QPainter;

/// The states as a picture somewhat larger than the widget, so that dragging the map only moves it. Borders
/// are drawn anew at every zoom, in device pixels. Names keep clear of markers, and are left out if they
/// would be cut off.
class StatesPicture
{
public:
    void setLayer(StatesLayer layer);
    [[nodiscard]] const StatesLayer& layer() const { return m_layer; }

    /// Takes what names must keep clear of.
    void setObstacles(std::vector<MapObstacle> obstacles);

    /// Paints the part that the extent shows, at the painter's origin.
    void paint(QPainter& painter, const MapExtent& extent, const QPalette& palette, const QFont& font);

    /// Draws that part as areas, lines and texts, none of which reaches beyond it.
    void draw(QPainter& painter, const MapExtent& extent, const QFont& font) const;

    /// Makes the next painting draw the picture anew, as after a change of palette or font.
    void forget() { m_picture = QPixmap(); }

private:
    /// What the states are drawn on.
    struct Sheet
    {
        MapPicture frame;
        double ratio = 1;     ///< pixels of the frame to a logical one
        double beyond = 0;    ///< pixels by which outlines may reach beyond the frame
        QPointF screenCorner; ///< of the screen, in the frame
        QPalette palette;
        QFont font;
    };
    /// The name of a state, and the place of it.
    struct PlacedName
    {
        QString text;
        QRectF place;
    };
    using States = std::vector<const StateShape*>;

    [[nodiscard]] bool covers(const QRectF& sight) const;
    void render(const MapExtent& extent, const QPalette& palette, const QFont& font, double devicePixelRatio);
    void drawGround(QPainter& painter, const MapExtent& extent, const Sheet& sheet) const;
    void drawInset(QPainter& painter, const MapInset& inset, const States& states, const Sheet& sheet) const;
    [[nodiscard]] PlacedName titleOf(const MapInset& inset, const QFontMetricsF& metrics, double ratio) const;
    [[nodiscard]] std::vector<PlacedName> namesOf(const States& states, const MapPicture& frame,
                                                  const QRectF& sight, const QFont& font) const;
    [[nodiscard]] static std::optional<PlacedName> nameOf(const StateShape& state, const MapPicture& frame,
                                                          const QFontMetricsF& metrics,
                                                          const std::vector<MapObstacle>& obstacles);
    static void drawNames(QPainter& painter, const std::vector<PlacedName>& names, const QRectF& sight,
                          const QFont& font);
    [[nodiscard]] States statesIn(const MapExtent& extent, std::optional<std::size_t> inset) const;
    [[nodiscard]] std::vector<MapObstacle> obstaclesIn(const StateShape& state,
                                                       const MapPicture& frame) const;

    StatesLayer m_layer;
    std::vector<MapObstacle> m_obstacles; ///< each once, from left to right
    double m_widest = 0;                  ///< the largest radius of an obstacle
    QPixmap m_picture;
    MapPicture m_frame;              ///< in device pixels
    std::vector<MapInset> m_insets;  ///< those in the picture
    std::vector<PlacedName> m_names; ///< in logical pixels of the picture
};
