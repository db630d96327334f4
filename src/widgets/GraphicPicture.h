// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSize>
#include <QString>

#include <functional>

class QPainter;

/// What a graphic shows, with its legend, to be drawn anywhere: on paper, into a file, into a page. It is
/// drawn dark on white, whatever the colours of the desktop are, and nothing is marked in it as selected. It
/// consists of lines, areas and texts, which every painter takes as such.
struct GraphicPicture
{
    QString name; ///< of the graphic, such as "Timeline"
    QSize size;   ///< in logical pixels

    /// Draws it at the painter's origin, while the graphic is there; leaves the painter as it was.
    std::function<void(QPainter& painter)> draw;
};
