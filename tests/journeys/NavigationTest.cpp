// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "platform/StdREG.h"

namespace {

QString topRow(Journey& journey)
{
    return journey.list().indexAt({0, 0}).data().toString();
}

TEST(Navigation, AViewComesBackWithItsRowAndWhereItWasScrolled)
{
    Journey journey;
    journey.addDocuments(300);
    journey.start();
    journey.trigger("mnuViewDocuments");
    QTest::keyClicks(&journey.list(), u"document 250"_s);
    const QModelIndex row = journey.list().currentIndex();
    journey.list().scrollTo(journey.list().model()->index(row.row() - 3, 0), QTreeView::PositionAtTop);
    ASSERT_EQ(topRow(journey), u"Document 247"_s);

    const auto expectSamePlace = [&journey] {
        EXPECT_EQ(topRow(journey), u"Document 247"_s);
        ASSERT_EQ(journey.list().selectionModel()->selectedRows().size(), 1);
        EXPECT_EQ(journey.list().currentIndex().data().toString(), u"Document 250"_s);
    };
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(topRow(journey), u"Document 100"_s) << "a new view begins at its top";
    journey.trigger("mnuNavigateBack");
    expectSamePlace();
    journey.trigger("mnuViewRefresh");
    expectSamePlace();
    journey.trigger("mnuNavigateHome");
    journey.trigger("mnuNavigateBack");
    journey.trigger("mnuNavigateBack");
    expectSamePlace();

    // a row that is gone meanwhile costs neither the place nor the selection
    journey.database.run("UPDATE Document SET dStatus = 'DELETED' WHERE DocumentID IN (110, 111)");
    journey.trigger("mnuViewRefresh");
    expectSamePlace();
}

TEST(Navigation, TheMouseHasButtonsForBackAndForward)
{
    Journey journey;
    journey.addDocuments(5);
    journey.start();
    journey.trigger("mnuViewDocuments");
    journey.trigger("mnuViewEvents");
    QWidget* list = journey.list().viewport();
    QTest::mouseClick(list, Qt::BackButton);
    EXPECT_EQ(journey.viewPanel(), u"View ALL Documents"_s);
    EXPECT_TRUE(journey.list().selectionModel()->selection().isEmpty()) << "the press selects nothing";
    QTest::mouseDClick(list, Qt::BackButton); // as the second of two quick presses arrives
    EXPECT_EQ(journey.viewPanel(), u"Home Page"_s);
    QTest::mouseClick(&journey.find<QWidget>("pnlHome"), Qt::BackButton);
    EXPECT_EQ(journey.desktop.messages.beeps, 1);
    QTest::mouseClick(&journey.find<QWidget>("pnlHome"), Qt::ForwardButton);
    EXPECT_EQ(journey.viewPanel(), u"View ALL Documents"_s);
    QMenu& menu = journey.find<QMenu>("mnuView");
    QTest::mouseClick(&menu, Qt::BackButton);
    EXPECT_EQ(journey.viewPanel(), u"View ALL Documents"_s) << "not through another window";
}

/// What a button of the toolbar drops down.
std::string dropDown(Journey& journey, const char* action)
{
    auto* button = qobject_cast<QToolButton*>(
        journey.find<QToolBar>("tbToolBar").widgetForAction(&journey.find<QAction>(action)));
    Q_EMIT button->menu()->aboutToShow();
    QStringList texts;
    for (const QAction* entry : button->menu()->actions())
        texts << (entry->isEnabled() ? entry->text() : u'(' + entry->text() + u')');
    return texts.join(u'|').toStdString();
}

TEST(Navigation, TheToolbarDropsDownWhatLiesBeforeAndAfter)
{
    Journey journey;
    journey.database.run(
        "INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (2, 'A & B', 'ACTIVE')");
    journey.start();
    EXPECT_EQ(dropDown(journey, "mnuNavigateBack"), "(There is no other view.)");
    journey.trigger("mnuViewDocuments");
    journey.program->state().history.addView(
        {ViewKind::Documents, journey.program->state().queries.documents, u"A & B"_s});
    journey.trigger("mnuViewEvents");
    EXPECT_EQ(dropDown(journey, "mnuNavigateBack"), "A && B|View ALL Documents|Home Page");
    journey.find<QMenu>("mnuNavigateBackViews").actions().at(1)->trigger();
    EXPECT_EQ(journey.viewPanel(), u"View ALL Documents"_s);
    EXPECT_EQ(dropDown(journey, "mnuNavigateBack"), "Home Page");
    EXPECT_EQ(dropDown(journey, "mnuNavigateForward"), "A && B|View ALL Events");
    EXPECT_EQ(journey.program->state().history.count(), 4u) << "going there adds nothing";

    for (int i = 0; i < 40; ++i)
        journey.trigger("mnuNavigateHome");
    EXPECT_EQ(dropDown(journey, "mnuNavigateBack").size(), std::string("Home Page|").size() * 20 - 1);
}

TEST(Navigation, LabelsOfTheToolbarGoBeforeItsButtons)
{
    Journey journey;
    journey.start();
    auto& bar = journey.find<QToolBar>("tbToolBar");
    const auto actions = bar.actions();
    EXPECT_EQ(actions.indexOf(&journey.find<QAction>("mnuRecordOpen")),
              actions.indexOf(&journey.find<QAction>("mnuRecordView")) + 1);
    const auto shown = [&](int width) {
        journey.program->window()->resize(width, 500);
        QApplication::processEvents();
        qsizetype hidden = 0;
        qsizetype labels = 0;
        for (QAction* action : actions) {
            const QWidget* button = bar.widgetForAction(action);
            if (action->isSeparator()) continue;
            if (!button->isVisible()) ++hidden;
            if (button->width() > 2 * button->height()) ++labels;
        }
        return std::pair(hidden, labels);
    };
    const auto [hiddenWide, labelsWide] = shown(1400);
    const auto [hiddenNarrow, labelsNarrow] = shown(1000);
    const auto [hiddenNarrowest, labelsNarrowest] = shown(800);
    EXPECT_EQ(hiddenWide + hiddenNarrow + hiddenNarrowest, 0);
    EXPECT_GT(labelsWide, labelsNarrow);
    EXPECT_GT(labelsNarrow, labelsNarrowest);
    EXPECT_EQ(shown(1400).second, labelsWide) << "they come back";
}

TEST(Navigation, TheWindowAndItsColumnsAreAsTheyWere)
{
    MemorySettings kept;
    {
        Journey journey;
        journey.addDocuments(3);
        journey.start();
        journey.trigger("mnuViewDocuments");
        journey.list().setColumnWidth(0, 317);
        journey.trigger("mnuViewEvents");
        journey.list().setColumnWidth(0, 211);
        journey.trigger("mnuViewOrganizations");
        for (const int column : {0, 1, 2, 3})
            journey.list().setColumnWidth(column, 60);
        EXPECT_EQ(journey.list().header()->length(), journey.list().viewport()->width());
        journey.program->window()->setGeometry(3, 70, 790, 520);
        journey.desktop.messages.expectQuestion(u"Are you sure you want to exit?"_s, true, Question::Loss);
        journey.trigger("mnuNavigateExit");
        kept = journey.desktop.settings;
    }
    Journey journey;
    journey.desktop.settings = kept;
    journey.addDocuments(3);
    journey.start();
    EXPECT_EQ(journey.program->window()->geometry(), QRect(3, 70, 790, 520));
    journey.trigger("mnuViewEvents");
    EXPECT_EQ(journey.list().columnWidth(0), 211);
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(journey.list().columnWidth(0), 317);

    // the width that a column took from the room beside it is not kept
    const auto widthOfLast = [&journey] {
        journey.list().setColumnWidth(0, 2000);
        return journey.list().columnWidth(journey.list().model()->columnCount() - 1);
    };
    journey.trigger("mnuViewEvents");
    EXPECT_EQ(widthOfLast(), 430) << "the width that the column has by itself";
    journey.trigger("mnuViewOrganizations");
    EXPECT_EQ(widthOfLast(), 60);
}

TEST(Navigation, TheHistoryMenuScrollsWithinTheScreen)
{
    Journey journey;
    journey.start();
    for (int i = 0; i < 60; ++i) {
        journey.program->state().history.addView(
            {ViewKind::Home, std::make_shared<const SQLObject>(), u"A view of a long name "_s.repeated(9)});
    }
    (void)journey.historyMenu();
    QMenu& menu = journey.find<QMenu>("mnuHistory");
    menu.popup(QPoint());
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_LE(menu.height(), screen.height());
    EXPECT_LT(menu.width(), 500);
    // one below the other, not one beside the other
    EXPECT_EQ(menu.actionGeometry(menu.actions().back()).left(),
              menu.actionGeometry(menu.actions().front()).left());
    menu.close();
}

TEST(Navigation, AWindowOfAnotherScreenComesWholeToThisOne)
{
    constexpr int frame = 4;
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry().adjusted(0, 0, frame, frame);
    struct Case
    {
        const char* saved;
        bool isMaximized;
    };
    for (const Case& each : {Case{"5000 3000 600 500", false}, Case{"-900 -20 600 500", false},
                             Case{"10 10 9000 7000", false}, Case{"2000 10 600 500 maximized", true}}) {
        Journey journey;
        StdREG(journey.desktop.settings)
            .WriteRegString(u"Window"_s, u"Place"_s, QString::fromUtf8(each.saved));
        journey.start();
        const QRect place = journey.program->window()->geometry();
        EXPECT_TRUE(room.contains(place)) << each.saved << ": " << place.x() << ' ' << place.y() << ' '
                                          << place.width() << ' ' << place.height();
        EXPECT_EQ(journey.program->window()->isMaximized(), each.isMaximized) << each.saved;
    }
    for (const char* nonsense : {"", "a b c d", "1 2", "1 2 -3 -4", "99999999999 1 2 3",
                                 "2147483647 2147483647 2147483647 2147483647"}) {
        Journey journey;
        StdREG(journey.desktop.settings).WriteRegString(u"Window"_s, u"Place"_s, QString::fromUtf8(nonsense));
        StdREG(journey.desktop.settings)
            .WriteRegString(u"Window"_s, u"Columns0"_s, QString::fromUtf8(nonsense));
        journey.start();
        EXPECT_GE(journey.program->window()->width(), 200) << nonsense;
        journey.trigger("mnuViewDocuments");
        EXPECT_LT(journey.list().columnWidth(0), 5000) << nonsense;
    }
}

} // namespace
