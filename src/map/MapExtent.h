// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/MapInsets.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <optional>
#include <vector>

/// The part of the map that is in sight. Screen positions are in logical pixels from the upper left corner of
/// the widget; the plane is that of MapProjection. When the widget is resized, a part that was fitted is
/// fitted again; once it was moved or zoomed, its middle and its scale stay. States may be shown in insets,
/// until the map is moved or zoomed; what lies within the bounds of such a state is in its inset and nowhere
/// else.
class MapExtent
{
public:
    MapExtent();

    void setSize(QSizeF pixels);
    [[nodiscard]] QSizeF size() const { return m_size; }

    /// Shows a part of the plane as large as it fits, with a little room around it.
    void fit(const QRectF& plane);

    /// Whether `fit` of this part would make it no larger than it is.
    [[nodiscard]] bool isFit(const QRectF& plane) const { return m_scale <= fittingScale(plane); }

    /// Shows the contiguous states, and others in insets beside them; if there is no room for those, or none
    /// is given, shows `whole`.
    void fitWithInsets(const QRectF& whole, std::vector<InsetState> states);

    /// Zooms in by a factor (out if it is below 1); the point of the plane at `about` stays where it is. In
    /// an inset, zooming in goes on from its scale; zooming out is that of the map below it.
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

    /// Both are piecewise while there are insets.
    [[nodiscard]] QPointF toScreen(QPointF plane) const;
    [[nodiscard]] QPointF toPlane(QPointF screen) const;
    [[nodiscard]] QPointF centre() const { return m_centre; }

    /// Whether a point is on the screen and no inset covers it.
    [[nodiscard]] bool isInSight(QPointF plane) const;

    /// Whether a point would be on the screen if an inset did not cover it.
    [[nodiscard]] bool isCovered(QPointF plane) const;

    /// Degrees of longitude to a pixel, outside of the insets.
    [[nodiscard]] double scale() const { return m_scale; }

    [[nodiscard]] const std::vector<MapInset>& insets() const { return m_insets; }

    /// The number of the inset that a point of the plane is shown in, if it is.
    [[nodiscard]] std::optional<std::size_t> insetOf(QPointF plane) const;

    /// The number of the inset that is at a point of the screen, if one is.
    [[nodiscard]] std::optional<std::size_t> insetAt(QPointF screen) const;

    /// In degrees of longitude.
    [[nodiscard]] double width() const { return m_size.width() * m_scale; }

    /// The size of a marker in degrees of longitude; on the screen it is the same at every zoom.
    [[nodiscard]] double markerScale() const { return width() / 115; }

private:
    void applyFit();
    void fitTo(const QRectF& plane);
    [[nodiscard]] double fittingScale(const QRectF& plane) const;
    void leaveFit();
    void keepInBounds();
    [[nodiscard]] QPointF toMainScreen(QPointF plane) const;
    [[nodiscard]] QPointF toMainPlane(QPointF screen) const;

    QSizeF m_size{1, 1};
    QPointF m_centre;
    double m_scale = 1;
    QRectF m_fitted;
    bool m_isFitted = true;
    std::vector<InsetState> m_insetStates; ///< those that are wanted while the fit lasts
    std::vector<MapInset> m_insets;
};
