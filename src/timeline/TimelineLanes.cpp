// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimelineLanes.h"

#include "util/ReadableLine.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace TimelineLanes;

/// Units from the end of a bar, or from the middle of a marker, to the caption.
constexpr int barOffset = 2;
constexpr int markerOffset = 10;

/// Far out of sight, yet sums of such positions fit into an int.
constexpr double farthest = 1 << 30;

struct Extent
{
    double left = 0;
    double right = 0;
};

/// The extent of a bar or a marker without its caption.
Extent drawnExtent(const Lane& lane)
{
    if (lane.isInstant) return {lane.markerLeft, lane.markerLeft + markerWidth};
    const double mark = lane.isKey ? keyMarkWidth : 0;
    return {lane.barLeft, lane.barLeft + std::max(lane.barWidth, mark)};
}

/// Puts the caption inside the bar if it fits, else after it, else before it; if it fits nowhere, at the
/// place with the most room.
void placeCaption(Lane& lane, int pictureWidth, int textWidth)
{
    const Extent drawn = drawnExtent(lane);
    const int mark = lane.isKey ? keyMarkWidth : 0;
    const int inside = lane.isInstant ? 0 : static_cast<int>(lane.barWidth) - mark - 2 * barOffset;
    const int afterLeft =
        lane.isInstant ? static_cast<int>(std::lround(lane.markerLeft)) + markerWidth / 2 + markerOffset
                       : static_cast<int>(std::ceil(drawn.right)) + barOffset;
    const int after = pictureWidth - afterLeft - barOffset;
    const int before = static_cast<int>(drawn.left) - 2 * barOffset;

    const int most = std::max({inside, after, before});
    lane.captionWidth = std::max(0, std::min(textWidth, most));
    if (inside >= lane.captionWidth && !lane.isInstant) {
        lane.place = Lane::CaptionPlace::Inside;
        lane.captionLeft = static_cast<int>(std::ceil(lane.barLeft)) + mark + barOffset;
    } else if (after >= lane.captionWidth) {
        lane.place = Lane::CaptionPlace::After;
        lane.captionLeft = afterLeft;
    } else {
        lane.place = Lane::CaptionPlace::Before;
        lane.captionLeft = static_cast<int>(drawn.left) - barOffset - lane.captionWidth;
    }
}

Lane laneOf(const TimeWindow& window, const WindowEvent& event)
{
    const double unitsPerMinute =
        static_cast<double>(TimelineScale::stepWidth) / static_cast<double>(window.step());
    const Moment start = event.start();
    const Moment end = event.end();
    const auto position = [&](Moment moment) {
        const auto minutes = static_cast<double>(moment - window.currentTime());
        return std::clamp(minutes * unitsPerMinute, -farthest, farthest);
    };
    Lane lane;
    lane.eventId = event.eventId;
    lane.isKey = event.keyEvent;
    lane.toolTip = QStringLiteral("(%1) ").arg(dateTimeText(start)) + event.eventName;
    lane.isInstant = start == end;
    if (lane.isInstant) {
        lane.caption = readableLine(event.eventName);
        lane.barLeft = position(start);
        lane.markerLeft = lane.barLeft - markerWidth / 2.0;
        return lane;
    }
    const bool beganBefore = start < window.currentTime();
    const bool endsAfter = end > window.windowEnd();
    lane.caption = (beganBefore ? QStringLiteral("<-- ") : QString()) + readableLine(event.eventName) +
                   (endsAfter ? QStringLiteral(" -->") : QString());
    lane.barLeft = beganBefore ? 0 : position(start);
    lane.barWidth = (endsAfter ? window.width() : position(end)) - lane.barLeft;
    return lane;
}

} // namespace

namespace TimelineLanes {

int laneCount(int pictureHeight)
{
    return std::max(0, pictureHeight / laneHeight);
}

void draw(const TimeWindow& window, const std::vector<WindowEvent>& events, std::size_t first, int laneCount,
          std::optional<qint64> selected, const TextWidth& textWidth, std::vector<Lane>& lanes)
{
    const std::size_t last = std::min(events.size(), first + static_cast<std::size_t>(laneCount));
    for (std::size_t i = first; i < last; ++i) {
        Lane lane = laneOf(window, events[i]);
        lane.isSelected = lane.eventId == selected;
        placeCaption(lane, window.width(), textWidth(lane.caption));
        lanes.push_back(std::move(lane));
    }
}

} // namespace TimelineLanes
