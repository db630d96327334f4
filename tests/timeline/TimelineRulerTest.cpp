// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimelineRuler.h"

#include "support/Testing.h"
#include "timeline/Moments.h"

namespace {

int labelWidth(const QString& text, bool isDate)
{
    return static_cast<int>(text.size()) * (isDate ? 8 : 7);
}

TimeWindow windowAt(std::string_view start, int zoomFactor, int width)
{
    TimeWindow window;
    window.setWidth(width);
    window.begin({at(start), at("9999-12-31")});
    while (window.zoomFactor() < zoomFactor)
        window.ZoomOut();
    return window;
}

TimelineRuler rulerOf(const TimeWindow& window, const LabelWidth& width = labelWidth)
{
    const auto strip = TimelineScale::positionScale(window.zoomFactor(), window.limits().timelineStart,
                                                    window.currentTime());
    return rulerOf(window, strip.value(), width);
}

std::string labelsOf(const TimelineRuler& ruler, bool dates)
{
    std::vector<TimelineRuler::Label> row;
    std::copy_if(ruler.labels.begin(), ruler.labels.end(), std::back_inserter(row),
                 [dates](const auto& label) { return label.isDate == dates; });
    std::sort(row.begin(), row.end(), [](const auto& a, const auto& b) { return a.left < b.left; });
    std::string text;
    for (const auto& label : row)
        text += (text.empty() ? "" : "|") + label.text.toStdString();
    return text;
}

TEST(TimelineRuler, EveryTickStandsAtItsMomentAndNoLabelOverAnother)
{
    for (int zoomFactor = 0; zoomFactor <= 7; ++zoomFactor) {
        // the second is wider than a whole strip
        for (const int width : {1540, 6000}) {
            const TimeWindow window = windowAt("1999-12-30 21:13", zoomFactor, width);
            const TimelineRuler ruler = rulerOf(window);
            const double unitsPerMinute = 385.0 / static_cast<double>(window.step());
            ASSERT_FALSE(ruler.ticks.empty());
            double gap = 0;
            for (std::size_t i = 0; i < ruler.ticks.size(); ++i) {
                const auto& tick = ruler.ticks[i];
                const auto minutes = static_cast<double>(tick.moment - window.currentTime());
                ASSERT_NEAR(tick.left, minutes * unitsPerMinute, 1e-3) << zoomFactor;
                ASSERT_EQ(tick.rank >= TimelineRuler::Rank::Day, minuteOfDay(tick.moment) == 0);
                if (i > 0) gap = std::max(gap, tick.left - ruler.ticks[i - 1].left);
            }
            EXPECT_LT(gap, 80) << zoomFactor;
            EXPECT_LT(ruler.ticks.front().left, 80);
            EXPECT_GT(ruler.ticks.back().left, width - 80);
            for (const auto& a : ruler.labels) {
                ASSERT_GE(a.left, 0);
                ASSERT_LE(a.left + labelWidth(a.text, a.isDate), width);
                for (const auto& b : ruler.labels) {
                    if (&a == &b || a.isDate != b.isDate || a.left > b.left) continue;
                    ASSERT_LT(a.left + labelWidth(a.text, a.isDate), b.left) << a.text.toStdString();
                }
            }
        }
    }
}

TEST(TimelineRuler, SaysTheTimeAtEachStepAndTheDateWhereADayBegins)
{
    const TimelineRuler minutes = rulerOf(windowAt("2001-09-11 23:53", 0, 1155));
    EXPECT_EQ(labelsOf(minutes, false),
              "23:53|23:54|23:55|23:56|23:57|23:58|23:59|00:00|00:01|00:02|00:03|00:04|00:05|00:06|00:07");
    EXPECT_EQ(labelsOf(minutes, true), "Wed 09/12/2001");

    const TimelineRuler days = rulerOf(windowAt("1999-12-31 18:00", 7, 1155));
    EXPECT_EQ(labelsOf(days, true), "Sat 01/01/2000|Sun 01/02/2000|Mon 01/03/2000");
    EXPECT_EQ(labelsOf(days, false),
              "18:00|00:00|06:00|12:00|18:00|00:00|06:00|12:00|18:00|00:00|06:00|12:00");
    const auto year = std::find_if(days.ticks.begin(), days.ticks.end(),
                                   [](const auto& tick) { return tick.rank == TimelineRuler::Rank::Year; });
    ASSERT_NE(year, days.ticks.end());
    EXPECT_EQ(year->moment, at("2000-01-01"));
}

/// With a font so large that not all times fit, those of the steps stay.
TEST(TimelineRuler, TheStepsComeFirstWhereRoomIsShort)
{
    const auto large = [](const QString& text, bool /*isDate*/) {
        return static_cast<int>(text.size()) * 40;
    };
    const TimelineRuler ruler = rulerOf(windowAt("2001-09-11 10:00", 3, 1155), large);
    EXPECT_EQ(labelsOf(ruler, false), "10:00|11:00|12:00");
}

TEST(TimelineRuler, ADayThatBeginsAtTheRightEdgeIsNamed)
{
    const TimelineRuler ruler = rulerOf(windowAt("1999-12-31 23:52", 0, 8 * 77 + 20));
    ASSERT_EQ(labelsOf(ruler, true), "Sat 01/01/2000");
    EXPECT_EQ(ruler.labels.front().left, 8 * 77 + 20 - 14 * 8) << "it stands across its tick";
    EXPECT_EQ(labelsOf(ruler, false), "23:52|23:53|23:54|23:55|23:56|23:57|23:58|23:59");
}

} // namespace
