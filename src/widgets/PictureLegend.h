// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFont>
#include <QPointF>
#include <QStringList>

#include <functional>
#include <vector>

class QPainter;

/// The legend below a graphic's picture: signs with their meaning, side by side in as many rows as they need.
class PictureLegend
{
public:
    /// Draws a sign around a point.
    using Sign = std::function<void(QPainter& painter, QPointF middle)>;

    /// `width` is in pixels.
    PictureLegend(const QFont& font, int width);

    /// Without a sign, the text stands for itself.
    void add(const Sign& sign, const QString& text);

    /// In pixels, with a gap above the first row.
    [[nodiscard]] int height() const;

    /// Draws all of it from the painter's origin on.
    void draw(QPainter& painter) const;

private:
    struct Entry
    {
        Sign sign;
        QStringList lines;
        QPoint place;
    };

    QFont m_font;
    int m_width;
    std::vector<Entry> m_entries;
    QPoint m_next;  ///< the place of the next entry, if it fits there
    int m_rows = 1; ///< lines of text in the last row
};
