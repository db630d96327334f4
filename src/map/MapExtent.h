// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <vector>

/// The part of the map that is in sight. Screen positions are in logical pixels from the upper left corner of
/// the widget; the plane is that of MapProjection. When the widget is resized, a part that was fitted is
/// fitted again; once it was moved or zoomed, its middle and its scale stay.
class MapExtent
{
public:
    MapExtent();

    void setSize(QSizeF pixels);
    [[nodiscard]] QSizeF size() const { return m_size; }

    /// Shows a part of the plane as large as it fits, with a little room around it.
    void fit(const QRectF& plane);

    /// Zooms in by a factor (out if it is below 1); the point of the plane at `about` stays where it is.
    void zoom(double factor, QPointF about);

    /// Shows what lies within a rectangle of the screen.
    void zoomTo(const QRectF& screen);

    /// Moves the map by so many pixels.
    void pan(QPointF pixels);

    /// Moves to a point unless it is in sight.
    void show(QPointF plane);

    /// Moves to places of the plane unless they are in sight. A few of many that lie beyond the contiguous
    /// states do not count: they would shrink the rest to a patch. Without places, shows the contiguous
    /// states.
    void goTo(const std::vector<QPointF>& places);

    [[nodiscard]] QPointF toScreen(QPointF plane) const;
    [[nodiscard]] QPointF toPlane(QPointF screen) const;
    [[nodiscard]] QPointF centre() const { return m_centre; }

    /// Degrees of longitude to a pixel.
    [[nodiscard]] double scale() const { return m_scale; }

    /// In degrees of longitude.
    [[nodiscard]] double width() const { return m_size.width() * m_scale; }

    /// The size of a marker in degrees of longitude; on the screen it is the same at every zoom.
    [[nodiscard]] double markerScale() const { return width() / 115; }

private:
    void applyFit();
    void keepInBounds();

    QSizeF m_size{1, 1};
    QPointF m_centre;
    double m_scale = 1;
    QRectF m_fitted;
    bool m_isFitted = true;
};
