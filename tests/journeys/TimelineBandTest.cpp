// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimelineBand.h"

#include "Journey.h"
#include "timeline/TimelinePanel.h"

namespace {

class Bands : public testing::Test
{
protected:
    Bands()
    {
        journey.database.runFile("journeys/rows/Timeline.sql");
        journey.start();
        journey.program->window()->resize(1200, 800);
        journey.trigger("mnuViewEvents");
        QTest::qWait(0);
    }

    TimelineBand& band() { return journey.find<TimelineBand>("picBand"); }
    const TimeWindow& window() { return journey.find<TimelinePanel>("pnlTimeline").timeline().window(); }
    BandBox box() { return band().scale().boxOf(window()); }
    std::string now() { return dateTimeText(window().currentTime()).toStdString(); }

    /// The point of the band at a position.
    QPoint at(double position) { return {static_cast<int>(std::lround(position)), band().height() / 2}; }

    /// The parts with events, as a screen reader tells them, joined by `|`.
    std::string parts()
    {
        QStringList texts;
        for (int item = 0; item < band().accessibleItemCount(); ++item)
            texts << band().accessibleItemName(item);
        return texts.join(u'|').toStdString();
    }

    void drag(double from, double to)
    {
        QTest::mousePress(&band(), Qt::LeftButton, {}, at(from));
        QTest::mouseMove(&band(), at((from + to) / 2));
        QTest::mouseMove(&band(), at(to));
        QTest::mouseRelease(&band(), Qt::LeftButton, {}, at(to));
    }

    Journey journey;
};

TEST_F(Bands, AClickGoesToWhatIsSeenThere)
{
    EXPECT_EQ(band().width(), journey.find<QWidget>("picTimeline").width());
    EXPECT_EQ(parts(), "04/01/1927 to 04/04/1927: 3 events, 2 of them key events|"
                       "12/30/1929 to 01/02/1930: 1 event");
    const double storm = band().scale().positionOf(momentOf(QDate(1930, 1, 2), QTime(12, 0)));
    QTest::mouseClick(&band(), Qt::LeftButton, {}, at(storm));
    const auto& lanes = journey.find<TimelinePanel>("pnlTimeline").timeline().lanes();
    ASSERT_EQ(lanes.size(), 1u) << "though the window is the hundredth part of a pixel";
    EXPECT_EQ(lanes.front().caption, u"Storm -->"_s);
    const Moment middle = band().scale().momentAt(300);
    QTest::mouseClick(&band(), Qt::LeftButton, {}, at(300));
    EXPECT_EQ((window().currentTime() + window().windowEnd()) / 2, middle);

    QHelpEvent help(QEvent::ToolTip, at(2), band().mapToGlobal(at(2)));
    QApplication::sendEvent(&band(), &help);
    EXPECT_EQ(QToolTip::text(), u"04/01/1927 to 04/04/1927: 3 events, 2 of them key events"_s);
}

TEST_F(Bands, TheBoxIsDraggedAndItsEdgesChooseTheLevel)
{
    QTest::mouseClick(&band(), Qt::LeftButton, {}, at(300));
    const Moment before = window().currentTime();
    drag(at((box().left + box().right) / 2).x(), 400);
    EXPECT_NEAR(box().windowLeft, 400, 1);
    EXPECT_GT(window().currentTime(), before);
    drag(at((box().left + box().right) / 2).x(), 5000);
    EXPECT_EQ(window().windowEnd(), window().limits().timelineEnd) << "no further than the end";

    QTest::mouseClick(&band(), Qt::LeftButton, {}, at(300));
    const Moment left = window().currentTime();
    drag(box().right, 900);
    EXPECT_EQ(window().zoomFactor(), TimelineScale::dayLevel);
    EXPECT_EQ(window().currentTime(), left);
    const Moment end = window().windowEnd();
    QTest::mousePress(&band(), Qt::LeftButton, {}, at(600));
    QTest::mouseMove(&band(), at(700));
    EXPECT_NE(window().windowEnd(), end);
    QTest::keyClick(&band(), Qt::Key_Escape);
    QTest::mouseMove(&band(), at(800));
    QTest::mouseRelease(&band(), Qt::LeftButton, {}, at(800));
    EXPECT_EQ(window().windowEnd(), end) << "Escape takes it back";
    drag(box().left, at((box().left + box().right) / 2).x());
    EXPECT_LT(window().zoomFactor(), TimelineScale::dayLevel);
    EXPECT_EQ(window().windowEnd(), end);
}

TEST_F(Bands, ADragEndsWithAMessageOrALostRelease)
{
    const auto press = [this](double position) {
        QTest::mousePress(&band(), Qt::LeftButton, {}, at(position));
        return window().currentTime();
    };
    Moment before = press(300);
    QMessageBox message(journey.program->window());
    message.open();
    message.reject();
    QTest::mouseMove(&band(), at(500));
    EXPECT_EQ(window().currentTime(), before) << "which the message would come up again for";
    before = press(400);
    QMouseEvent move(QEvent::MouseMove, at(500), band().mapToGlobal(at(500)), Qt::NoButton, {}, {});
    QApplication::sendEvent(&band(), &move);
    EXPECT_EQ(window().currentTime(), before);
    QTest::mouseMove(&band(), at(600));
    EXPECT_EQ(window().currentTime(), before);
}

TEST_F(Bands, ItsKeysGoFromOnePartWithEventsToTheNext)
{
    const struct
    {
        Qt::Key key;
        const char* leftEdge;
    } steps[]{
        {Qt::Key_PageDown, "07/01/1927 00:00"}, {Qt::Key_Left, "04/01/1927 06:00"},
        {Qt::Key_Right, "01/01/1930 00:00"},    {Qt::Key_Right, "01/01/1930 00:00"},
        {Qt::Key_PageUp, "10/01/1929 00:00"},   {Qt::Key_Home, "04/01/1927 06:00"},
        {Qt::Key_End, "01/02/1930 23:45"},
    };
    for (const auto& [key, leftEdge] : steps) {
        QTest::keyClick(&band(), key);
        EXPECT_EQ(now(), leftEdge) << QKeySequence(key).toString().toStdString();
    }
    Q_EMIT band().periodChosen(momentOf(QDate(1929, 12, 30)), 0);
    QTest::keyClick(&band(), Qt::Key_Right);
    EXPECT_EQ(now(), "01/01/1930 00:00") << "the window stood in the part, before its event";
    EXPECT_EQ(band().accessibleItemName(band().accessibleCurrentItem()),
              u"12/30/1929 to 01/02/1930: 1 event"_s);
    QTest::keyClick(&band(), Qt::Key_Minus);
    EXPECT_EQ(window().zoomFactor(), 1) << "the other keys are those of the timeline";
}

TEST_F(Bands, ShowsWhatTheListShows)
{
    const auto type = [this](const char* words) {
        auto& field = journey.find<QLineEdit>("txtFilter");
        field.selectAll();
        QTest::keyClicks(&field, QString::fromUtf8(words));
    };
    type("quake");
    EXPECT_TRUE(QTest::qWaitFor([this] { return parts() == "04/01/1927 to 04/04/1927: 1 key event"; }))
        << parts();
    const QImage narrowed = band().grab().toImage();
    journey.find<QLineEdit>("txtFilter").clear();
    EXPECT_TRUE(QTest::qWaitFor([this] { return band().parts().events() == 4; }));
    EXPECT_NE(band().grab().toImage(), narrowed);

    journey.database.run("UPDATE Event SET Status = 'DELETED' WHERE EventID = 5");
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(band().parts().events(), 3);
}

} // namespace
