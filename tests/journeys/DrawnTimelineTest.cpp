// SPDX-License-Identifier: GPL-3.0-or-later

// What is painted on the timeline, read from its pixels, and what its ruler says, after each button.

#include "Journey.h"
#include "timeline/EventLabel.h"
#include "timeline/Timeline.h"
#include "timeline/TimelinePanel.h"

namespace {

/// Five events in a picture that is three steps wide; a minute is 77 pixels at first.
class DrawnTimeline : public testing::Test
{
protected:
    DrawnTimeline()
    {
        journey.database.runFile("journeys/rows/DrawnTimeline.sql");
        journey.start();
        journey.trigger("mnuViewEvents");
        journey.widenTimeline(3 * 385);
    }

    QWidget& picture() { return journey.find<QWidget>("picTimeline"); }
    QWidget& strip() { return journey.find<QWidget>("imgTime"); }
    const Timeline& timeline() { return journey.find<TimelinePanel>("pnlTimeline").timeline(); }
    std::string text(const char* label) { return journey.find<QLabel>(label).text().toStdString(); }

    static QImage imageOf(QWidget& widget) { return widget.grab().toImage(); }

    /// Where a lane's colour begins and ends in the row of pixels below the upper edge of its bar, and which
    /// colour it is; the edge itself has a colour of its own.
    std::string bar(int lane)
    {
        const QImage image = imageOf(picture());
        const int y = lane * 17 + 2;
        for (const QColor& colour : {QColor(0, 0, 128), QColor(0, 0, 255)}) {
            std::vector<int> places;
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == colour) places.push_back(x);
            }
            if (places.empty()) continue;
            return std::to_string(places.front()) + "-" + std::to_string(places.back()) + " " +
                   colour.name().toStdString();
        }
        return "none";
    }

    /// The colours in the middle of a marker and between its middle and its edge.
    std::string marker(int middle, int lane)
    {
        const QImage image = imageOf(picture());
        return (image.pixelColor(middle, lane * 17 + 8).name() + u' ' +
                image.pixelColor(middle + 5, lane * 17 + 8).name())
            .toStdString();
    }

    /// Expects marks of another colour than the ground in a row of pixels, as far from the left as said, and
    /// no others. A line between two pixels may take either.
    static void expectMarks(const QImage& image, int y, const QColor& ground,
                            const std::vector<double>& places)
    {
        std::vector<int> marked;
        for (int x = 1; x < image.width() - 1; ++x) {
            if (image.pixelColor(x, y) != ground) marked.push_back(x);
        }
        ASSERT_EQ(marked.size(), places.size());
        for (std::size_t i = 0; i < places.size(); ++i)
            EXPECT_NEAR(marked[i], places[i], 1);
    }

    static bool isOfOneColour(const QImage& image)
    {
        QImage blank = image;
        blank.fill(image.pixelColor(0, 0));
        return image == blank;
    }

    /// Whether a rectangle of a widget has pixels of that colour, as text of it has.
    static bool hasInk(QWidget& widget, const QRect& place, const QColor& colour)
    {
        const QImage image = imageOf(widget).copy(place);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == colour) return true;
            }
        }
        return false;
    }

    EventLabel& label(int lane) { return journey.find<EventLabel>(qPrintable(u"tlLabel(%1)"_s.arg(lane))); }

    /// Expects a row of the ruler to begin with a label at that place; with none if its text is empty.
    void expectFirstLabel(bool isDate, const char* text, double left)
    {
        const TimelineRuler::Label* first = nullptr;
        for (const TimelineRuler::Label& label : timeline().ruler().labels) {
            if (label.isDate == isDate && (first == nullptr || label.left < first->left)) first = &label;
        }
        ASSERT_EQ(first == nullptr ? "" : first->text.toStdString(), text);
        if (first == nullptr) return;
        EXPECT_NEAR(first->left, left, 1);
        const int line = strip().fontMetrics().height();
        const QRect begin(static_cast<int>(left), 2 + line * (isDate ? 1 : 2), 30, line - 2);
        if (first->rank == TimelineRuler::Rank::Part) {
            EXPECT_FALSE(isOfOneColour(imageOf(strip()).copy(begin))) << text;
        } else {
            EXPECT_TRUE(hasInk(strip(), begin, strip().palette().color(QPalette::WindowText))) << text;
        }
    }

    Journey journey;
};

TEST_F(DrawnTimeline, BarsMarkersAndCaptionsStandAtTheirMomentsInTheirColours)
{
    const QColor base = picture().palette().color(QPalette::Base);
    ASSERT_EQ(picture().width(), 3 * 385);
    EXPECT_EQ(bar(0), "1-383 #000080");
    EXPECT_EQ(bar(1), "78-537 #000080");
    EXPECT_EQ(bar(4), "309-1153 #000080") << "it goes on after the window";
    EXPECT_EQ(imageOf(picture()).pixelColor(7, 8), QColor(255, 200, 40)) << "the sign of a key event";
    EXPECT_NE(imageOf(picture()).pixelColor(77 + 7, 17 + 8), QColor(255, 200, 40)) << "and of none";
    EXPECT_EQ(marker(2 * 77, 2), "#ffc828 #000080");
    EXPECT_EQ(marker(3 * 77, 3), "#000080 #000080");

    EXPECT_EQ(label(0).geometry(), QRect(13 + 2, 0, label(0).width(), 17));
    EXPECT_EQ(label(2).geometry(), QRect(154 + 10, 34, label(2).width(), 17));
    EXPECT_EQ(label(4).text(), u"Drought -->"_s);
    EXPECT_TRUE(hasInk(picture(), label(0).geometry(), Qt::white)) << "inside its bar";
    EXPECT_TRUE(hasInk(picture(), label(2).geometry(), picture().palette().color(QPalette::Text)))
        << "beside its marker";
    EXPECT_FALSE(label(5).isVisible());

    // the steps of the ruler go on below the lanes
    expectMarks(imageOf(picture()), 6 * 17, base, {231, 616, 1001});

    // one is selected, its whole lane stands on a band; then another
    const struct
    {
        int lane;
        const char* drawn;
    } selections[] = {{0, "1-383 #0000ff"}, {1, "78-537 #0000ff"}, {4, "309-1153 #0000ff"}};
    for (const auto& [lane, drawn] : selections) {
        QTest::mouseClick(&label(lane), Qt::LeftButton);
        EXPECT_EQ(bar(lane), drawn);
        EXPECT_NE(imageOf(picture()).pixelColor(40, 17 * lane + 15), base) << lane;
        EXPECT_EQ(imageOf(picture()).pixelColor(40, 17 * (lane == 1 ? 2 : 1) + 15), base) << lane;
    }
    EXPECT_EQ(bar(0), "1-383 #000080");
    QTest::mouseClick(&label(2), Qt::LeftButton);
    EXPECT_EQ(marker(2 * 77, 2), "#ffc828 #0000ff");
    QTest::mouseClick(&label(3), Qt::LeftButton);
    EXPECT_EQ(marker(2 * 77, 2), "#ffc828 #000080");
    EXPECT_EQ(marker(3 * 77, 3), "#0000ff #0000ff");

    // what another window shows leaves nothing of this one behind
    journey.find<QToolButton>("NavJumpForward").click();
    EXPECT_EQ(bar(0), "1-1153 #000080");
    EXPECT_EQ(label(0).text(), u"<-- Drought -->"_s);
    EXPECT_EQ(bar(1), "none");
    EXPECT_FALSE(label(1).isVisible());
    expectMarks(imageOf(picture()), 2 * 17 + 8, base, {231, 616, 1001});

    const auto corner = [this] { return imageOf(picture()).pixelColor(0, picture().height() - 1); };
    journey.list().setFocus();
    EXPECT_EQ(corner(), base);
    picture().setFocus();
    EXPECT_EQ(corner(), picture().palette().color(QPalette::Highlight)) << "a frame tells of the focus";
}

TEST_F(DrawnTimeline, TheRulerMovesWithEveryButton)
{
    const struct
    {
        const char* button;
        const char* zoom;
        const char* left;  ///< the caption of the left edge
        const char* third; ///< and that of two steps later
        double step;       ///< where the tick of the first step is
        const char* time;  ///< the first time below the ticks, and where it stands
        double timeLeft;
        const char* date;
        double dateLeft;
    } cases[] = {
        {"", "5 minutes", "04/01/1927 06:02", "04/01/1927 06:12", 231, "06:02", 3, "", 0},
        {"NavStepForward", "5 minutes", "04/01/1927 06:07", "04/01/1927 06:17", 231, "06:07", 3, "", 0},
        {"NavJumpForward", "5 minutes", "04/01/1927 06:37", "04/01/1927 06:47", 231, "06:37", 3, "", 0},
        {"NavJumpBack", "5 minutes", "04/01/1927 06:07", "04/01/1927 06:17", 231, "06:07", 3, "", 0},
        {"NavStepBack", "5 minutes", "04/01/1927 06:02", "04/01/1927 06:12", 231, "06:02", 3, "", 0},
        {"ZoomOut", "10 minutes", "04/01/1927 06:02", "04/01/1927 06:22", 308, "06:02", 3, "", 0},
        {"ZoomOut", "30 minutes", "04/01/1927 06:02", "04/01/1927 07:02", 359.3, "06:05", 41.5, "", 0},
        {"NavEnd", "30 minutes", "05/02/1927 16:37", "05/02/1927 17:37", 295.2, "16:40", 41.5, "", 0},
        {"ZoomOut", "1 hour", "05/02/1927 15:07", "05/02/1927 17:07", 340.1, "15:10", 22.2, "", 0},
        {"ZoomOut", "2 hours", "05/02/1927 12:07", "05/02/1927 16:07", 362.5, "12:30", 76.8, "", 0},
        {"ZoomOut", "4 hours", "05/02/1927 06:07", "05/02/1927 14:07", 181.3, "07:00", 88, "", 0},
        {"ZoomOut", "8 hours", "05/01/1927 18:07", "05/02/1927 10:07", 283.1, "20:00", 93.6, "Mon 05/02/1927",
         286.1},
        {"ZoomOut", "1 day", "04/29/1927 18:07", "05/01/1927 18:07", 94.4, "00:00", 97.4, "Sat 04/30/1927",
         97.4},
        {"ZoomIn", "8 hours", "04/29/1927 18:07", "04/30/1927 10:07", 283.1, "20:00", 93.6, "Sat 04/30/1927",
         286.1},
        {"NavBeginning", "8 hours", "04/01/1927 06:02", "04/01/1927 22:02", 94.6, "08:00", 97.6,
         "Sat 04/02/1927", 867.6},
    };
    const QColor ground = strip().palette().color(QPalette::AlternateBase);
    for (const auto& [button, zoom, left, third, step, time, timeLeft, date, dateLeft] : cases) {
        SCOPED_TRACE(std::string(button) + " " + left);
        if (*button != '\0') QTest::mouseClick(&journey.find<QToolButton>(button), Qt::LeftButton);
        EXPECT_EQ(text("uZoomLabel"), zoom);
        EXPECT_EQ(text("uCurrentTimeLabel(0)"), left);
        EXPECT_EQ(text("uCurrentTimeLabel(2)"), third);
        EXPECT_EQ(journey.find<QLabel>("uCurrentTimeLabel(2)").x(), 2 * 385 + 3);
        const QImage image = imageOf(strip());
        // the ticks of parts are shorter
        expectMarks(image, image.height() - 8, ground, {step, step + 385, step + 2 * 385});
        expectFirstLabel(false, time, timeLeft);
        expectFirstLabel(true, date, dateLeft);
    }
    EXPECT_FALSE(journey.find<QLabel>("uCurrentTimeLabel(3)").isVisible()) << "the picture ends there";
}

} // namespace
