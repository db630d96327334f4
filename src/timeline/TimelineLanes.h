// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "timeline/TimeWindow.h"
#include "timeline/WindowEvents.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

/// The width of a text in the font of the captions, in units.
using TextWidth = std::function<int(const QString&)>;

/// One lane of the timeline: an event, drawn as a bar or, if it takes no time, as a marker. Positions are
/// units from the left edge of the picture.
struct Lane
{
    /// Where the caption stands.
    enum class CaptionPlace
    {
        Inside, ///< in the bar
        After,  ///< to the right of the bar or of the marker
        Before  ///< to the left of them
    };

    qint64 eventId = 0;
    QString caption;
    QString toolTip;
    bool isKey = false;
    bool isInstant = false;
    bool isSelected = false;
    double barLeft = 0;
    double barWidth = 0;   ///< 0 for an instant
    double markerLeft = 0; ///< of an instant
    int captionLeft = 0;
    int captionWidth = 0; ///< less than the width of the text if that does not fit
    CaptionPlace place = CaptionPlace::Inside;
};

namespace TimelineLanes {

inline constexpr int laneHeight = 17;
inline constexpr int markerWidth = 18;

/// The width of the mark of a key event at the start of its bar.
inline constexpr int keyMarkWidth = 13;

/// The number of lanes in a picture of a height in units.
[[nodiscard]] int laneCount(int pictureHeight);

/// Draws events into lanes, one each, from the event at `first` on. Lanes are added to `lanes` one by one:
/// those drawn before an error stay. Throws Error for an event without a valid start or end.
void draw(const TimeWindow& window, const std::vector<WindowEvent>& events, std::size_t first, int laneCount,
          std::optional<qint64> selected, const TextWidth& textWidth, std::vector<Lane>& lanes);

} // namespace TimelineLanes
