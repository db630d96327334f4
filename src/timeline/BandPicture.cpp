// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/BandPicture.h"

#include "timeline/TimelineColours.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace {

// pixels
constexpr int columnsTop = 4;
constexpr int columnsHeight = 18;
constexpr int lineTop = columnsTop + columnsHeight + 1;
constexpr int lineHeight = 2;
constexpr int ticksTop = lineTop + lineHeight;
constexpr int shortTick = 3;
constexpr int labelsTop = ticksTop + shortTick;
constexpr int lowestColumn = 3;
constexpr double shortestLine = 4; ///< shorter events are told by their column

/// A wider window is told by its ground, which must not hide what is seen through it.
constexpr double widestLine = 4;

constexpr int darkGround = 128; ///< the lightness below which a ground is dark
constexpr int lightBox = 165;   ///< the least lightness of a box on it

QColor withAlpha(QColor colour, int alpha)
{
    colour.setAlpha(alpha);
    return colour;
}

/// The colours of events are dark: on a dark ground the band takes lighter ones of the same kind.
struct Colours
{
    explicit Colours(const QPalette& palette)
        : ground(palette.color(QPalette::Base)),
          text(palette.color(QPalette::Text)),
          isDark(ground.lightness() < darkGround),
          event(isDark ? QColor(120, 134, 235) : QColor(92, 96, 178)),
          key(isDark ? TimelineColours::key : QColor(222, 150, 24)),
          box(palette.color(QPalette::Highlight))
    {
        if (isDark) box.setHsl(box.hslHue(), box.hslSaturation(), std::max(box.lightness(), lightBox));
    }

    QColor ground;
    QColor text;
    bool isDark;
    QColor event;
    QColor key;
    QColor box;
};

int heightOf(qint64 events, qint64 most)
{
    if (events == 0) return 0;
    const double share = std::sqrt(static_cast<double>(events) / static_cast<double>(most));
    return std::max(static_cast<int>(std::lround(share * columnsHeight)), lowestColumn);
}

void paintTicks(QPainter& painter, const BandLabels& labels, const Colours& colours)
{
    painter.setPen(withAlpha(colours.text, 90));
    for (const double tick : labels.ticks)
        painter.drawLine(QLineF(tick, ticksTop, tick, ticksTop + shortTick - 1));
    for (const BandLabels::Label& label : labels.labels) {
        painter.setPen(withAlpha(colours.text, label.isStrong ? 80 : 36));
        painter.drawLine(
            QLineF(label.tick, columnsTop, label.tick, labelsTop + painter.fontMetrics().height()));
    }
}

void paintColumns(QPainter& painter, const BandParts& parts, const Colours& colours)
{
    const int bottom = columnsTop + columnsHeight;
    for (const BandPart& part : parts.all()) {
        if (part.events == 0) continue;
        const int left = static_cast<int>(std::floor(part.left));
        const int width = std::max(static_cast<int>(std::floor(part.right)) - left, 1);
        const int keys = heightOf(part.keyEvents, parts.most());
        // what is stacked on key events is seen however few it is
        const int whole = std::max(heightOf(part.events, parts.most()),
                                   keys + (part.events > part.keyEvents ? lowestColumn : 0));
        painter.fillRect(left, bottom - whole, width, whole - keys, colours.event);
        painter.fillRect(left, bottom - keys, width, keys, colours.key);
    }
}

void paintRuns(QPainter& painter, const BandScale& scale, const EventDensity& density, const Colours& colours)
{
    for (const EventDensity::Run& run : density.runs()) {
        const double left = std::clamp(scale.positionOf(run.begin), 0.0, static_cast<double>(scale.width()));
        const double right = std::clamp(scale.positionOf(run.end), 0.0, static_cast<double>(scale.width()));
        if (right - left < shortestLine) continue;
        painter.fillRect(QRectF(left, lineTop, right - left, lineHeight), withAlpha(colours.event, 150));
    }
}

} // namespace

int BandPicture::heightFor(const QFontMetrics& font)
{
    return labelsTop + font.height() + 1;
}

void BandPicture::paint(QPainter& painter, const BandScale& scale, const BandParts& parts,
                        const EventDensity& density, const BandLabels& labels, const QPalette& palette,
                        int height)
{
    const Colours colours(palette);
    painter.fillRect(0, 0, scale.width(), height, colours.ground);
    paintTicks(painter, labels, colours);
    paintColumns(painter, parts, colours);
    paintRuns(painter, scale, density, colours);
    for (const BandLabels::Label& label : labels.labels) {
        painter.setPen(withAlpha(colours.text, label.isStrong ? 255 : 170));
        painter.drawText(QPointF(label.left, labelsTop + painter.fontMetrics().ascent()), label.text);
    }
    painter.fillRect(0, height - 1, scale.width(), 1, withAlpha(colours.text, 60));
}

void BandPicture::paintBox(QPainter& painter, const BandBox& box, const QPalette& palette, int height)
{
    const QColor colour = Colours(palette).box;
    const QRectF frame(box.left + 0.5, 0.5, box.right - box.left - 1, height - 2.0);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(withAlpha(colour, 40));
    painter.drawRoundedRect(frame, 2, 2);
    // the window itself, which may be shorter than a pixel
    const double shown = std::max(box.windowRight - box.windowLeft, 1.0);
    const double left = std::clamp(box.windowLeft, box.left, std::max(box.right - shown, box.left));
    painter.fillRect(QRectF(left, frame.top() + 1, shown, frame.height() - 2),
                     withAlpha(colour, shown > widestLine ? 60 : 130));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, 1));
    painter.drawRoundedRect(frame, 2, 2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    const double middle = height / 2.0;
    for (const double edge : {frame.left(), frame.right()})
        painter.drawRoundedRect(QRectF(edge - 1.5, middle - 6, 3, 12), 1.5, 1.5);
}
