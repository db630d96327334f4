// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/TestDatabase.h"
#include "timeline/BandLabels.h"
#include "timeline/BandParts.h"
#include "timeline/Moments.h"
#include "views/StandardQueries.h"

namespace {

/// A day, a month, some years, a century, and all that the data can hold.
const std::vector<TimelineLimits>& spans()
{
    static const std::vector<TimelineLimits> limits{
        {at("2001-09-11 08:46"), at("2001-09-12 12:03")}, {at("2005-08-15"), at("2005-09-15 07:00")},
        {at("2003-02-10 23:00"), at("2006-01-02")},       {at("1900-09-08 20:00"), at("2025-02-01")},
        {at("0100-01-01"), at("9999-12-31 23:59")},
    };
    return limits;
}

constexpr int widths[]{200, 777, 1267, 2500};

int textWidth(const QString& text)
{
    return static_cast<int>(text.size()) * 7;
}

/// A window of a picture as wide as the band.
TimeWindow windowOf(const BandScale& scale, int level, double share)
{
    TimeWindow window;
    window.setWidth(scale.width());
    window.begin(scale.limits());
    window.setLevel(level);
    window.moveWithin(scale.momentAt(share * scale.width()));
    return window;
}

template <typename Check>
void forEachBand(Check&& check)
{
    for (const TimelineLimits& limits : spans()) {
        for (const int width : widths) {
            SCOPED_TRACE(dateText(limits.timelineStart).toStdString() + " over " + std::to_string(width));
            check(BandScale(limits, width));
        }
    }
}

TEST(Band, TheBoxAndTheWindowAgreeAtEveryLevel)
{
    forEachBand([](const BandScale& scale) {
        for (const double share : {0.0, 0.3, 0.5, 1.0}) {
            double narrower = 0;
            for (int level = 0; level <= TimelineScale::dayLevel; ++level) {
                const TimeWindow window = windowOf(scale, level, share);
                // the whole timeline can be in view before the coarsest level
                if (window.zoomFactor() < level) break;
                const BandBox box = scale.boxOf(window);
                EXPECT_GE(box.left, 0);
                EXPECT_LE(box.left, box.windowLeft + 1e-6);
                EXPECT_GE(box.right, box.windowRight - 1e-6);
                EXPECT_LE(box.right, scale.width() + 1e-6);
                EXPECT_TRUE(box.right - box.left > narrower || narrower > scale.width() - 1e-6) << level;
                narrower = box.right - box.left;
                for (const auto& [edge, at] :
                     {std::pair(BandEdge::Left, box.left), std::pair(BandEdge::Right, box.right)}) {
                    const TimeWindow same = scale.withEdgeAt(window, edge, at);
                    EXPECT_EQ(same.zoomFactor(), level) << "its own edge changes nothing";
                    EXPECT_EQ(same.currentTime(), window.currentTime());
                }
            }
        }
    });
}

TEST(Band, ItsEdgesChooseTheLevelWhoseBoxComesNearest)
{
    const BandScale scale(spans()[3], 1267);
    const TimeWindow window = windowOf(scale, 3, 0.5);
    for (int level = 0; level <= TimelineScale::dayLevel; ++level) {
        TimeWindow right = window;
        right.setLevel(level);
        const TimeWindow byRight = scale.withEdgeAt(window, BandEdge::Right, scale.boxOf(right).right + 0.5);
        EXPECT_EQ(byRight.zoomFactor(), level);
        EXPECT_EQ(byRight.currentTime(), window.currentTime());
        TimeWindow left = right;
        left.moveWithin(window.windowEnd() - (right.windowEnd() - right.currentTime()));
        const TimeWindow byLeft = scale.withEdgeAt(window, BandEdge::Left, scale.boxOf(left).left - 0.5);
        EXPECT_EQ(byLeft.zoomFactor(), level);
        EXPECT_EQ(byLeft.windowEnd(), window.windowEnd());
    }
    EXPECT_EQ(scale.withEdgeAt(window, BandEdge::Right, 0).zoomFactor(), 0);
    EXPECT_EQ(scale.withEdgeAt(window, BandEdge::Right, 5000).zoomFactor(), TimelineScale::dayLevel);
}

TEST(Band, ItsPartsAreTheWholeSpanAndHoldEveryEvent)
{
    TestDatabase database;
    database.run(
        "WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < 3000) "
        "INSERT INTO Event (EventID, EventName, KeyEvent, StartDate, Status) SELECT i, 'E', i % 3 = 0, "
        "date('1900-09-08', (i * i % 45000) || ' days'), 'ACTIVE' FROM n");
    const EventDensity density = EventDensity::read(database.session(), *StandardQueries().events);
    forEachBand([&](const BandScale& scale) {
        const BandParts parts(scale, density);
        const auto& all = parts.all();
        const auto [begin, end] = scale.limits();
        ASSERT_FALSE(all.empty());
        EXPECT_EQ(all.front().left, 0);
        EXPECT_NEAR(all.back().right, scale.width(), 1e-6);
        EXPECT_LE(all.front().from, begin);
        EXPECT_GE(all.back().to, end);
        qint64 events = 0;
        qint64 expected = 0;
        for (const EventDensity::Day& day : density.days())
            if (day.midnight >= all.front().from && day.midnight < all.back().to) expected += day.events;
        for (std::size_t i = 0; i < all.size(); ++i) {
            events += all[i].events;
            EXPECT_EQ(parts.partOf(all[i].from), &all[i]);
            EXPECT_EQ(parts.partOf(all[i].to - 1), &all[i]);
            if (i > 0) {
                EXPECT_EQ(all[i].from, all[i - 1].to);
                EXPECT_EQ(all[i].left, all[i - 1].right);
            }
        }
        EXPECT_EQ(events, expected);
        EXPECT_EQ(parts.events(), expected);
    });
    EXPECT_EQ(BandParts(BandScale(spans()[3], 1267), density).events(), 2999) << "all of the view";
    EXPECT_EQ(BandParts(BandScale(spans()[3], 0), density).partOf(at("2001-01-01")), nullptr);
    EXPECT_EQ(BandParts(BandScale({at("2001-01-02"), at("2001-01-01")}, 500), density).events(), 0);
}

TEST(Band, ItsPartsAreToldInWords)
{
    const struct
    {
        qint64 events;
        qint64 keyEvents;
        const char* text;
    } cases[]{
        {0, 0, "08/15/1969 to 09/20/1969: no events"},
        {1, 0, "08/15/1969 to 09/20/1969: 1 event"},
        {1, 1, "08/15/1969 to 09/20/1969: 1 key event"},
        {34, 1, "08/15/1969 to 09/20/1969: 34 events, 1 of them a key event"},
        {34, 2, "08/15/1969 to 09/20/1969: 34 events, 2 of them key events"},
    };
    for (const auto& [events, keyEvents, text] : cases) {
        const BandPart part{0, 1, at("1969-08-15"), at("1969-09-21"), events, keyEvents};
        EXPECT_EQ(part.text().toStdString(), text);
    }
    EXPECT_EQ((BandPart{0, 1, at("1969-08-15"), at("1969-08-16"), 1, 0}.text()), u"08/15/1969: 1 event"_s);
}

TEST(Band, ItsLabelsAreAsManyAsHaveRoom)
{
    const auto texts = [](const BandScale& scale) {
        QStringList labels;
        for (const auto& label : bandLabelsOf(scale, textWidth).labels)
            labels << label.text + (label.isStrong ? u"!"_s : u""_s);
        return labels.join(u' ');
    };
    EXPECT_EQ(texts(BandScale(spans()[0], 777)),
              u"09:00 12:00 15:00 18:00 21:00 09/12/2001! 03:00 06:00 09:00"_s);
    EXPECT_EQ(texts(BandScale(spans()[1], 777)),
              u"08/16/2005 08/21/2005 09/01/2005! 09/06/2005 09/11/2005"_s);
    EXPECT_EQ(texts(BandScale(spans()[2], 1267)),
              u"04/2003 07/2003 10/2003 2004! 04/2004 07/2004 10/2004 2005! 04/2005 07/2005 10/2005 2006!"_s);
    EXPECT_EQ(texts(BandScale(spans()[2], 1750)), texts(BandScale(spans()[2], 1267)))
        << "the label of January is shorter than the others";
    EXPECT_EQ(texts(BandScale(spans()[3], 777)),
              u"1910 1920 1930 1940 1950 1960 1970 1980 1990 2000! 2010 2020"_s);
    EXPECT_TRUE(texts(BandScale(spans()[4], 2500)).startsWith(u"0200 0400 "_s)) << "always four digits";
    EXPECT_EQ(texts(BandScale(spans()[4], 777)), u"1000! 2000! 3000! 4000! 5000! 6000! 7000! 8000! 9000!"_s);
    forEachBand([](const BandScale& scale) {
        const BandLabels labels = bandLabelsOf(scale, textWidth);
        EXPECT_FALSE(labels.labels.empty());
        double room = 0;
        for (const auto& label : labels.labels) {
            EXPECT_GE(label.left, room) << "over another";
            room = label.left + textWidth(label.text);
            EXPECT_NEAR(label.tick, scale.positionOf(label.moment), 1e-6);
            EXPECT_TRUE(std::ranges::find(labels.ticks, label.tick) != labels.ticks.end());
        }
        EXPECT_LE(room, scale.width()) << "cut at the edge";
    });
}

} // namespace
