// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <vector>

/// A state far off the 48 contiguous ones, which is shown in a frame of its own beside them.
struct InsetState
{
    QString name;
    QString letters; ///< such as `AK`
    QRectF bounds;   ///< in the plane of the map

    friend bool operator==(const InsetState&, const InsetState&) = default;
};

/// Returns Alaska, Hawaii, and Puerto Rico with the Virgin Islands.
const std::vector<InsetState>& insetStates();

/// A part of the map in a frame with a scale of its own. Every point of the frame is one of the plane, and
/// the reverse.
class MapInset
{
public:
    /// Shows a state as large as it fits below the title.
    MapInset(InsetState state, const QRectF& frame);

    [[nodiscard]] const InsetState& state() const { return m_state; }

    /// In pixels of the screen.
    [[nodiscard]] const QRectF& frame() const { return m_frame; }

    /// The room for the state's name, at the top of the frame.
    [[nodiscard]] QRectF title() const;

    /// What the frame shows, in the plane.
    [[nodiscard]] const QRectF& shown() const { return m_shown; }

    /// Degrees of longitude to a pixel.
    [[nodiscard]] double scale() const { return m_scale; }

    [[nodiscard]] QPointF toScreen(QPointF plane) const;
    [[nodiscard]] QPointF toPlane(QPointF screen) const;

    friend bool operator==(const MapInset&, const MapInset&) = default;

private:
    InsetState m_state;
    QRectF m_frame;
    double m_scale = 1;
    QRectF m_shown;
};

/// Returns the insets of states beside the 48, none of which covers another or land of the 48: as large as
/// there is room. `contiguous` is where the 48 are on a screen of `size` pixels. Without room for all of them
/// at a size that shows something, returns none.
std::vector<MapInset> layOutInsets(const std::vector<InsetState>& states, const QRectF& contiguous,
                                   QSizeF size);
