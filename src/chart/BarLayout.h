// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QRect>
#include <QSize>

#include <optional>

class QPainter;

/// How the bars of a chart stand in its view, with their numbers and names. Bars count from 0; places are in
/// pixels of the view.
class BarLayout
{
public:
    virtual ~BarLayout() = default;

    /// Takes the counts, the colours and the font of the view anew; no bar is marked then.
    virtual void begin() = 0;

    /// Marks one bar, or none.
    virtual void mark(std::optional<int> bar) = 0;

    /// Lays the bars out in the view as large as it is.
    virtual void layOut() = 0;

    /// The size below which a view of this width has no room for its bars. They must have been laid out.
    [[nodiscard]] virtual QSize leastSize() const = 0;

    /// The size from which on a picture of the view, if need be a wider one, shows all bars and their names
    /// whole. The view must have been laid out; a picture of that size may want yet another.
    [[nodiscard]] virtual QSize wholeSize() const = 0;

    /// Draws what is in sight of the bars, unless the view draws it itself, in the painter's font.
    virtual void draw(QPainter& painter, const QRect& sight) = 0;

    /// The place of a bar with its number.
    [[nodiscard]] virtual QRect barRect(int bar) const = 0;

    /// Returns the bar at a position: a hit is the bar itself, its number or its name.
    [[nodiscard]] virtual std::optional<int> barAt(QPoint position) const = 0;

protected:
    BarLayout() = default;
    BarLayout(const BarLayout&) = default;
    BarLayout& operator=(const BarLayout&) = default;
};
