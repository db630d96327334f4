// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "timeline/EventLabel.h"
#include "timeline/EventMarker.h"

namespace {

class Timelines : public testing::Test
{
protected:
    Timelines()
    {
        journey.database.runFile("journeys/rows/Timeline.sql");
        journey.start();
        journey.program->window()->resize(1200, 800);
        journey.trigger("mnuViewEvents");
        QTest::qWait(0);
    }

    QWidget& picture() { return journey.find<QWidget>("picTimeline"); }
    EventLabel& label(int i) { return journey.find<EventLabel>(qPrintable(u"tlLabel(%1)"_s.arg(i))); }
    EventMarker& marker(int i)
    {
        return journey.find<EventMarker>(qPrintable(u"imgInstantEvent(%1)"_s.arg(i)));
    }
    void click(const char* button) { journey.find<QToolButton>(button).click(); }
    std::string now() { return journey.find<QLabel>("uCurrentTimeLabel(0)").text().toStdString(); }
    std::string zoom() { return journey.find<QLabel>("uZoomLabel").text().toStdString(); }
    std::string chosen()
    {
        return journey.list().currentIndex().siblingAtColumn(0).data().toString().toStdString();
    }

    /// The captions of the labels that are shown, from the first lane to the last.
    std::string shown()
    {
        QStringList texts;
        for (int i = 0; i < picture().findChildren<EventLabel*>().size(); ++i) {
            if (label(i).isVisible()) texts << label(i).text();
        }
        return texts.join(u'|').toStdString();
    }

    void turnWheel(int angle, Qt::KeyboardModifiers modifiers) { turnWheel(QPoint(0, angle), modifiers); }
    void turnWheelSideways(int angle) { turnWheel(QPoint(angle, 0), {}); }
    void turnWheel(QPoint angle, Qt::KeyboardModifiers modifiers)
    {
        QWheelEvent event({50, 10}, label(0).mapToGlobal(QPointF(50, 10)), {}, angle, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        // of others, Qt does not pass on what the label has no use for
        QSpontaneKeyEvent::setSpontaneous(&event);
        QCoreApplication::instance()->notify(&label(0), &event);
    }

    /// Sends what the middle button of the mouse does, `x` pixels right of the left edge of the strip.
    void dragTo(QEvent::Type type, int x, QWidget& receiver, Qt::MouseButtons held = Qt::MiddleButton)
    {
        const QPointF place = picture().mapToGlobal(QPointF(x, 10));
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::MiddleButton;
        QMouseEvent event(type, receiver.mapFromGlobal(place), place, button, held, {});
        QCoreApplication::sendEvent(&receiver, &event);
    }

    Journey journey;
};

TEST_F(Timelines, ShowsTheEventsOfTheViewBesideTheList)
{
    EXPECT_TRUE(picture().isVisible());
    EXPECT_EQ(shown(), "Flood & <b>Fire</b> -->|Quake|Levee breaks");

    // an instant at the edge is drawn whole, its upper corner beside the edge and not on it
    journey.database.run(
        "UPDATE Event SET EndDate = StartDate, EndTime = StartTime, KeyEvent = 0 WHERE EventID = 2");
    journey.trigger("mnuViewRefresh");
    ASSERT_EQ(marker(0).geometry(), QRect(-9, 0, 18, 17));
    const QImage lane = picture().grab().toImage();
    const auto isDrawn = [&lane](int x, int y) { return lane.pixelColor(x, y).lightness() < 100; };
    EXPECT_TRUE(isDrawn(4, 8) && isDrawn(4, 4));
    EXPECT_FALSE(isDrawn(0, 4));

    journey.trigger("mnuViewDocuments");
    EXPECT_FALSE(picture().isVisible());
    journey.trigger("mnuNavigateBack");
    EXPECT_TRUE(picture().isVisible());
}

TEST_F(Timelines, WhatIsChosenInOneIsChosenInTheOther)
{
    QTest::mouseClick(&label(1), Qt::LeftButton);
    EXPECT_EQ(chosen(), "Quake");
    QTest::mouseClick(&picture(), Qt::LeftButton, {}, marker(2).geometry().center());
    EXPECT_EQ(chosen(), "Levee breaks");
    EXPECT_EQ(now(), "04/01/1927 06:00") << "a selection that the program makes moves nothing";

    const QModelIndex storm = journey.list().model()->index(3, 0);
    QTest::mouseClick(journey.list().viewport(), Qt::LeftButton, {},
                      journey.list().visualRect(storm).center());
    EXPECT_EQ(now(), "01/01/1930 00:00");
    EXPECT_EQ(shown(), "Storm -->");
    QTest::keyClick(&journey.list(), Qt::Key_Up);
    EXPECT_EQ(now(), "04/01/1927 06:03");
    EXPECT_EQ(shown(), "<-- Flood & <b>Fire</b> -->|Levee breaks");
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(now(), "04/01/1927 06:03");
    EXPECT_EQ(marker(1).picture(), EventMarker::Picture::imgSelected);
}

TEST_F(Timelines, ButtonsKeysAndWheelRunTheSameHandlers)
{
    click("NavStepForward");
    EXPECT_EQ(now(), "04/01/1927 06:05");
    click("NavJumpForward");
    EXPECT_EQ(now(), "04/01/1927 06:35");
    QTest::keyClick(&picture(), Qt::Key_Left, Qt::ControlModifier);
    QTest::keyClick(&picture(), Qt::Key_Right);
    EXPECT_EQ(now(), "04/01/1927 06:10");
    turnWheel(120, {});
    turnWheel(60, {});
    turnWheel(60, {});
    EXPECT_EQ(now(), "04/01/1927 06:00");
    turnWheelSideways(-120);
    EXPECT_EQ(now(), "04/01/1927 06:05");
    turnWheelSideways(120);

    EXPECT_FALSE(journey.find<QToolButton>("ZoomIn").isEnabled());
    QTest::keyClick(&picture(), Qt::Key_Plus);
    turnWheel(-120, Qt::ControlModifier);
    QTest::keyClick(&picture(), Qt::Key_Minus);
    EXPECT_EQ(zoom(), "30 minutes");
    for (int i = 0; i < 9; ++i)
        click("ZoomOut");
    EXPECT_EQ(zoom(), "1 day");
    EXPECT_FALSE(journey.find<QToolButton>("ZoomOut").isEnabled());
    QTest::keyClick(&picture(), Qt::Key_End);
    EXPECT_EQ(shown(), "Storm");
    QTest::keyClick(&picture(), Qt::Key_Home);
    EXPECT_EQ(now(), "04/01/1927 06:00");
    EXPECT_TRUE(journey.find<QToolButton>("ZoomIn").toolTip().endsWith(u"(+)"_s));
}

TEST_F(Timelines, TheScrollBarMovesTheLanes)
{
    journey.find<QSplitter>("splitter").setSizes({2000, 10});
    QTest::qWait(0);
    journey.database.run(
        "INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, EndTime, Status) "
        "SELECT EventID + 100, EventName || ' again', StartDate, StartTime, EndDate, EndTime, "
        "'ACTIVE' FROM Event WHERE EventID < 5");
    journey.trigger("mnuViewRefresh");
    auto& scrollBar = journey.find<QScrollBar>("VScroll1");
    const int lanes = picture().height() / 17;
    ASSERT_LT(lanes, 6);
    EXPECT_TRUE(scrollBar.isVisible());
    EXPECT_EQ(scrollBar.maximum(), 6 - lanes);
    auto& below = journey.find<QToolButton>("cmdMoreBelow");
    EXPECT_EQ(below.text(), u"%1 more below"_s.arg(6 - lanes));
    turnWheel(-120, Qt::ShiftModifier);
    EXPECT_EQ(scrollBar.value(), std::min(3, 6 - lanes));
    EXPECT_EQ(label(lanes - 1).text(), u"Levee breaks again"_s);
    EXPECT_FALSE(below.isVisible());
    click("NavStepForward");
    EXPECT_EQ(scrollBar.value(), 0);
    click("NavStepBack");
    below.click();
    EXPECT_EQ(scrollBar.value(), std::min(lanes, 6 - lanes));
    click("NavStepForward");
    journey.select("Levee breaks again");
    EXPECT_GT(scrollBar.value(), 0);
    EXPECT_EQ(scrollBar.value(), scrollBar.maximum()) << "down to the lane of an event that is chosen";
}

TEST_F(Timelines, UpAndDownGoFromLaneToLaneAndAreHeard)
{
    picture().setFocus();
    QTest::keyClick(&picture(), Qt::Key_Down);
    EXPECT_EQ(chosen(), "Flood & <b>Fire</b>");
    QTest::keyClick(&picture(), Qt::Key_Down);
    EXPECT_EQ(chosen(), "Quake");
    EXPECT_EQ(marker(1).picture(), EventMarker::Picture::imgSelectedKey);
    EXPECT_TRUE(picture().hasFocus());

    QAccessibleInterface* strip = QAccessible::queryAccessibleInterface(&picture());
    EXPECT_EQ(strip->text(QAccessible::Description), u"04/01/1927 06:00 to 04/01/1927 06:15: 3 events"_s);
    ASSERT_EQ(strip->childCount(), 3);
    EXPECT_EQ(strip->focusChild()->text(QAccessible::Name), u"(04/01/1927 06:02) Quake"_s);
    EXPECT_EQ(strip->focusChild()->rect().size(), QSize(picture().width(), 17));
    QTest::keyClick(&picture(), Qt::Key_End);
    const auto* link = &journey.find<QToolButton>("lnkBefore");
    QAccessibleInterface* before = QAccessible::queryAccessibleInterface(const_cast<QToolButton*>(link));
    EXPECT_GE(strip->indexOfChild(before->parent()), 0) << "the links of an empty window are found";
}

TEST_F(Timelines, TheMiddleButtonDragsTheStripWhereverItIsReleased)
{
    auto& panel = journey.find<QWidget>("pnlTimeline");
    const auto begin = [this](QWidget& at) { dragTo(QEvent::MouseButtonPress, 500, at); };
    dragTo(QEvent::MouseButtonDblClick, 500, label(0));
    ASSERT_EQ(QWidget::mouseGrabber(), &panel) << "labels may be hidden meanwhile";
    dragTo(QEvent::MouseMove, 500 - 5 * 77, panel);
    EXPECT_EQ(now(), "04/01/1927 06:05");
    dragTo(QEvent::MouseMove, 500 - 3 * 77, panel);
    EXPECT_EQ(now(), "04/01/1927 06:03");
    EXPECT_EQ(chosen(), "") << "it selects nothing";
    dragTo(QEvent::MouseMove, 5000, panel);
    EXPECT_EQ(now(), "04/01/1927 06:00") << "the beginning of the timeline";
    dragTo(QEvent::MouseButtonRelease, -4000, panel, Qt::NoButton);
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    dragTo(QEvent::MouseMove, 0, panel);
    EXPECT_EQ(now(), "04/01/1927 06:00");

    begin(journey.find<QWidget>("imgTime"));
    dragTo(QEvent::MouseMove, 500 - 77, panel, Qt::NoButton);
    EXPECT_EQ(now(), "04/01/1927 06:00") << "it was released where nobody saw it";
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    begin(picture());
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr) << "the panel is hidden";
    begin(journey.find<QWidget>("NavStepBack"));
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr) << "a button is not of the strip";
}

TEST_F(Timelines, GoToDateSaysWhatItCannotDo)
{
    auto& command = journey.find<QAction>("mnuNavigateGoToDate");
    click("ZoomOut");
    journey.inDialog("frmGoToDate", "mnuNavigateGoToDate", [](OpenDialog& open) {
        EXPECT_EQ(open.text("txtDate"), "04/01/1927");
        open.type("txtDate", u"1926"_s);
        open.click("cmdOK");
        EXPECT_EQ(open.find<QLabel>("lblProblem").text(),
                  u"1926 is before the timeline, which runs from 04/01/1927 to 01/03/1930."_s);
        EXPECT_EQ(open.focus(), "txtDate");
        open.type("txtDate", u"05/1927"_s);
        open.press(Qt::Key_Return);
    });
    EXPECT_EQ(now() + " by " + zoom(), "05/01/1927 00:00 by 10 minutes");
    EXPECT_EQ(shown(), "<-- Flood & <b>Fire</b> -->");

    journey.trigger("mnuViewHideGraphic");
    EXPECT_TRUE(command.toolTip().endsWith(u"\nThe graphic is hidden."_s));
    journey.trigger("mnuViewDocuments");
    EXPECT_FALSE(command.isEnabled());
    EXPECT_TRUE(command.toolTip().endsWith(u"\nThe timeline is shown with events only."_s));
    journey.trigger("mnuNavigateHome");
    EXPECT_TRUE(command.toolTip().endsWith(u"\nThis page has no list of records."_s));
}

TEST_F(Timelines, AnEmptyWindowLeadsToTheNearestEvents)
{
    QTest::keyClick(&picture(), Qt::Key_End);
    EXPECT_EQ(shown(), "");
    EXPECT_FALSE(journey.find<QToolButton>("lnkAfter").isVisible());
    EXPECT_EQ(journey.find<QLabel>("lblEmptyWindow").text(), u"No events in this window."_s);
    EXPECT_EQ(journey.find<QToolButton>("lnkBefore").accessibleName(), u"Before: 01/01/1930 00:00  Storm"_s);
    click("lnkBefore");
    EXPECT_EQ(now(), "01/01/1930 00:00");
    EXPECT_EQ(shown(), "Storm -->");
    EXPECT_EQ(chosen(), "Storm");

    QTest::keyClick(&picture(), Qt::Key_End);
    auto& link = journey.find<QToolButton>("lnkBefore");
    link.setFocus();
    QTest::keyClick(&link, Qt::Key_Space);
    EXPECT_EQ(shown(), "Storm -->");
    EXPECT_TRUE(picture().hasFocus()) << "the keys go on moving the timeline";
}

TEST_F(Timelines, ThePoolGrowsWithThePictureAndNeverWhileDrawing)
{
    const auto pool = [this] { return picture().findChildren<QWidget*>().size(); };
    const auto before = pool();
    for (const char* button :
         {"ZoomOut", "NavEnd", "NavBeginning", "NavJumpForward", "ZoomIn", "NavBeginning"})
        click(button);
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(pool(), before);

    journey.program->window()->resize(2600, 1900);
    journey.find<QSplitter>("splitter").setSizes({10, 4000});
    QTest::qWait(0);
    const int lanes = picture().height() / 17;
    ASSERT_GT(lanes, 26) << "more than the pool holds at first";
    EXPECT_NO_THROW(label(lanes - 1));
    EXPECT_EQ(shown(), "Flood & <b>Fire</b> -->|Quake|Levee breaks");
}

TEST_F(Timelines, LanesHoldTheirCaptionsInALargeFont)
{
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPixelSize(40);
    QApplication::setFont(large);
    QTest::qWait(0);
    EXPECT_LT(picture().fontMetrics().height(), 17);
    EXPECT_GT(picture().fontMetrics().height(), 12) << "as large as a lane allows";
    EXPECT_EQ(label(1).width(), picture().fontMetrics().horizontalAdvance(label(1).text()) + 1);
    EXPECT_GT(journey.find<QLabel>("uZoomLabel").fontMetrics().height(), 30);
    QApplication::setFont(before);
    QTest::qWait(0);
    EXPECT_EQ(picture().font(), journey.program->window()->font());
}

TEST_F(Timelines, AnotherDatabaseBeginsATimelineOfItsOwn)
{
    TestDatabase other;
    other.run("INSERT INTO Event (EventID, EventName, StartDate, StartTime, EndDate, EndTime, Status) VALUES "
              "(2, 'Elsewhere', '1650-05-05', '05:05', '1650-05-05', '05:06', 'ACTIVE')");
    click("ZoomOut");
    const QString file = other.folder() + u"/data/elsewhere.sqlite"_s;
    ASSERT_TRUE(QDir(other.folder()).mkdir(u"data"_s));
    ASSERT_TRUE(QFile::rename(other.fileName(), file));
    journey.desktop.fileDialogs.files = {file};
    journey.trigger("mnuOpenDatabase");
    EXPECT_EQ(zoom(), "5 minutes");
    journey.trigger("mnuViewEvents");
    EXPECT_EQ(now(), "05/05/1650 05:05");
    EXPECT_EQ(shown(), "Elsewhere");
}

} // namespace
