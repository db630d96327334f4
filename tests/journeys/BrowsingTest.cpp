// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "browse/list/ListLayout.h"
#include "browse/list/RecordListModel.h"
#include "browse/list/RecordListView.h"
#include "widgets/IconSet.h"
#include "widgets/ReadablePalette.h"

namespace {

/// The program with a few records of each kind, about to be started.
class Browsing : public testing::Test
{
protected:
    Browsing() { journey.database.runFile("journeys/rows/Browsing.sql"); }

    Journey journey;
};

TEST_F(Browsing, GoesThroughTheListsAndBack)
{
    journey.start();

    QTest::mouseClick(&journey.find<QAbstractButton>("Image1(0)"), Qt::LeftButton);
    EXPECT_EQ(journey.column(0), "alpha|Beta");
    EXPECT_EQ(journey.viewPanel(), u"View ALL Documents"_s);
    EXPECT_EQ(journey.statusPanel(), u"Displaying 2 Documents"_s);

    journey.trigger("mnuViewEvents");
    EXPECT_EQ(journey.column(2), "04/01/27 06:00 - 08/31/27 18:00");
    EXPECT_EQ(journey.column(1), "1");
    EXPECT_EQ(journey.statusPanel(), u"Displaying 1 Event"_s);

    QTest::keyClick(journey.program->window(), Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(journey.column(3), "Austin, TX|Boston, MA");

    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(journey.viewPanel(), u"View ALL Events"_s);
    EXPECT_EQ(journey.historyMenu(), "Home Page|View ALL Documents|[View ALL Events]|View ALL Organizations");

    // a new view goes to the end; Forward then only beeps
    journey.trigger("mnuSearchShowAll");
    EXPECT_EQ(journey.historyMenu(),
              "Home Page|View ALL Documents|View ALL Events|View ALL Organizations|[View ALL Events]");
    journey.trigger("mnuNavigateForward");
    EXPECT_EQ(journey.desktop.messages.beeps, 1);
    EXPECT_EQ(journey.program->state().history.count(), 5u);

    journey.find<QAction>("mnuHistoryList(0)").trigger();
    EXPECT_TRUE(journey.find<QWidget>("pnlHome").isVisible());
    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(journey.desktop.messages.beeps, 2);
    journey.trigger("mnuNavigateHome");
    EXPECT_EQ(journey.program->state().history.count(), 6u);
}

TEST_F(Browsing, AKeyRecordHasItsSignInTheMiddleOfItsColumn)
{
    journey.database.run("UPDATE Document SET KeyDocument = DocumentID = 2");
    journey.start();
    journey.trigger("mnuViewDocuments");
    journey.list().setColumnWidth(0, 100);
    journey.list().setColumnWidth(1, 60);
    const QImage list = journey.list().viewport()->grab().toImage();
    const auto marked = [&](int row) {
        const QRect cell = journey.list().visualRect(journey.list().model()->index(row, 1));
        QRegion ink;
        for (int y = cell.top(); y <= cell.bottom(); ++y) {
            for (int x = cell.left(); x <= cell.right(); ++x) {
                if (list.pixelColor(x, y) != list.pixelColor(cell.topLeft())) ink += QRect(x, y, 1, 1);
            }
        }
        return ink.boundingRect().translated(-cell.topLeft());
    };
    const QRect sign = marked(1);
    EXPECT_NEAR(sign.center().x(), 30, 2) << "without the text beside it that it is sorted by";
    EXPECT_GT(sign.width(), 8);
    EXPECT_TRUE(marked(0).isEmpty());
}

void clickHeader(Journey& journey, int column)
{
    QHeaderView& header = *journey.list().header();
    const QPoint at(header.sectionViewportPosition(column) + 4, header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, at);
}

TEST_F(Browsing, TheWindowAndItsStatusLineSayWhatIsShownAndSelected)
{
    journey.start();
    const auto title = [this] { return journey.program->window()->windowTitle().toStdString(); };
    const auto selection = [this] {
        const auto& panel = journey.find<QLabel>("pnlSelection");
        return panel.isVisible() ? panel.text().toStdString() : std::string();
    };
    EXPECT_EQ(title(), "Home Page - test.sqlite");
    journey.trigger("mnuViewOrganizations");
    EXPECT_EQ(title(), "View ALL Organizations - test.sqlite");
    EXPECT_EQ(selection(), "");
    journey.select("Bureau");
    EXPECT_EQ(selection(), "1 row selected");
    journey.list().selectAll();
    EXPECT_EQ(selection(), "2 rows selected");
    EXPECT_EQ(journey.statusPanel(), u"Displaying 2 Organizations"_s);
    EXPECT_TRUE(journey.find<QAction>("mnuRecordDelete").isEnabled());
    journey.trigger("mnuNavigateHome");
    EXPECT_EQ(selection(), "");
    EXPECT_FALSE(journey.find<QAction>("mnuRecordDelete").isEnabled());
}

TEST_F(Browsing, AHeaderSortsAndTheViewRemembersIt)
{
    journey.start();
    journey.trigger("mnuViewDocuments");
    journey.list().setColumnWidth(0, 333);
    clickHeader(journey, 0);
    EXPECT_EQ(journey.column(0), "alpha|Beta");
    clickHeader(journey, 0);
    EXPECT_EQ(journey.column(0), "Beta|alpha");
    clickHeader(journey, 3);
    EXPECT_EQ(journey.column(0), "alpha|Beta") << "1907 comes before 1999";
    clickHeader(journey, 3);

    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(journey.column(0), "Beta|alpha");
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(journey.column(0), "alpha|Beta") << "a new view has its query's order";
    EXPECT_EQ(journey.list().columnWidth(0), 333);
    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(journey.column(0), "Beta|alpha");
}

TEST_F(Browsing, TheKeyboardFindsAndTheSelectionStays)
{
    journey.addDocuments(50);
    journey.start();
    journey.trigger("mnuViewDocuments");
    QTest::keyClicks(&journey.list(), u"document 12"_s);
    EXPECT_EQ(journey.list().currentIndex().data().toString(), u"Document 120"_s);
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(journey.list().currentIndex().data().toString(), u"Document 120"_s);
    clickHeader(journey, 0);
    clickHeader(journey, 0);
    EXPECT_EQ(journey.list().currentIndex().data().toString(), u"Document 120"_s);
    QTest::keyClick(&journey.list(), Qt::Key_End);
    EXPECT_EQ(journey.list().currentIndex().data().toString(), u"alpha"_s);
    QTest::keyClick(&journey.list(), Qt::Key_Home);
    EXPECT_EQ(journey.list().currentIndex().data().toString(), u"Document 149"_s);
}

TEST_F(Browsing, AViewAskedForWhileAListFillsTakesItsPlace)
{
    journey.addDocuments(3000);
    journey.start();
    // runs at the first yield, in the middle of the documents
    QTimer::singleShot(0, [this] { journey.trigger("mnuViewOrganizations"); });
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(journey.column(0), "Agency|Bureau");
    EXPECT_EQ(journey.viewPanel(), u"View ALL Organizations"_s);
    EXPECT_EQ(journey.statusPanel(), u"Displaying 2 Organizations"_s);

    QTimer::singleShot(0, [this] { journey.trigger("mnuNavigateHome"); });
    journey.trigger("mnuViewDocuments");
    EXPECT_TRUE(journey.find<QWidget>("pnlHome").isVisible());
    EXPECT_EQ(journey.viewPanel(), u"Home Page"_s);
    EXPECT_EQ(journey.statusPanel(), QString());

    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(journey.list().model()->rowCount(), 3002);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(History, TellsTheWholeOfALongCaptionInItsEntry)
{
    Journey journey;
    const QString name = u"Fish & <b>Chips</b>"_s.repeated(20);
    const std::string organization =
        "INSERT INTO Organization (OrganizationID, OrganizationName, Status) VALUES (2, '" +
        name.toStdString() + "', 'ACTIVE')";
    journey.database.run(organization.c_str());
    journey.database.run("INSERT INTO Document (DocumentID, DocumentName, OrganizationID, dStatus) VALUES "
                         "(2, 'Menu', 2, 'ACTIVE')");
    journey.start();
    journey.trigger("mnuViewOrganizations");
    journey.select(name.toUtf8().constData());
    journey.trigger("popOrgListViewDocs");
    EXPECT_EQ(journey.column(0), "Menu");

    (void)journey.historyMenu();
    const auto& whole = journey.find<QAction>("mnuHistoryList(2)");
    EXPECT_LT(whole.text().size(), name.size());
    EXPECT_EQ(QTextDocumentFragment::fromHtml(whole.toolTip()).toPlainText(),
              u"View Only Documents for Organization \"%1\""_s.arg(name));
    EXPECT_TRUE(journey.find<QMenu>("mnuHistory").toolTipsVisible());
    EXPECT_EQ(journey.find<QAction>("mnuHistoryList(1)").text(), u"View ALL Organizations"_s);
}

/// Whether any pixel of an icon stands out from a ground.
bool standsOut(const QIcon& icon, QIcon::Mode mode, const QColor& ground)
{
    QImage drawn(16, 16, QImage::Format_ARGB32);
    drawn.fill(ground);
    QPainter painter(&drawn);
    icon.paint(&painter, drawn.rect(), Qt::AlignCenter, mode);
    painter.end();
    for (int i = 0; i < drawn.width() * drawn.height(); ++i) {
        const QColor pixel = drawn.pixelColor(i % drawn.width(), i / drawn.width());
        if (ReadablePalette::canBeRead(pixel, ground)) return true;
    }
    return false;
}

TEST(Icons, OfSelectedRowsCanBeSeen)
{
    const QPalette palette = QApplication::palette();
    IconSet icons;
    for (const char* key :
         {"isKey", "Event", "Organization_wc", "Organization_cd", "d2", "d4", "d6", "d7cd", "d8ng"}) {
        const QIcon icon = icons.icon(QString::fromUtf8(key));
        EXPECT_TRUE(standsOut(icon, QIcon::Selected, palette.color(QPalette::Highlight))) << key;
    }
    EXPECT_TRUE(standsOut(icons.icon(u"isKey"_s), QIcon::Normal, palette.color(QPalette::Base)));
}

TEST_F(Browsing, TheAuthorsAreAsWideAsTheyNeedUnlessTheUserChose)
{
    const QString author = u"An Office of Many Words and Fires"_s;
    journey.database.run(u"UPDATE Document SET Author = '%1' WHERE DocumentID = 2"_s.arg(author));
    journey.start();
    journey.trigger("mnuViewDocuments");
    EXPECT_GT(journey.list().columnWidth(2), journey.list().fontMetrics().horizontalAdvance(author));
    journey.list().setColumnWidth(2, 50);
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(journey.list().columnWidth(2), 50);
}

TEST_F(Browsing, StaysReadableWhenTheDesktopTurnsDark)
{
    journey.start();
    journey.trigger("mnuViewDocuments");
    const QPalette before = QApplication::palette();

    // grounds and texts are named; rows and links stay as they were
    QPalette dark = before;
    dark.setColor(QPalette::Window, QColor(49, 54, 59));
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::Base, QColor(35, 38, 41));
    dark.setColor(QPalette::Text, Qt::white);
    QApplication::setPalette(dark);
    const auto rowsRead = [this] {
        const QPalette rows = journey.list().viewport()->palette();
        return ReadablePalette::canBeRead(rows.color(QPalette::Text), rows.color(QPalette::Base)) &&
               ReadablePalette::canBeRead(rows.color(QPalette::Text), rows.color(QPalette::AlternateBase)) &&
               ReadablePalette::canBeRead(rows.color(QPalette::Link), rows.color(QPalette::Base));
    };
    const auto isDark = [this, &dark] {
        return journey.list().viewport()->palette().color(QPalette::Base) == dark.color(QPalette::Base);
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return isDark() && rowsRead(); }));
    EXPECT_EQ(QIcon::themeName(), u"breeze-dark"_s) << "its icons are light";

    QApplication::setPalette(before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isDark() && rowsRead(); }));
    EXPECT_EQ(QIcon::themeName(), u"breeze"_s);
}

TEST(ListModel, KeepsItsPromisesWhileItFillsSortsAndFilters)
{
    Journey journey;
    journey.addDocuments(2000);
    journey.start();
    auto& model = dynamic_cast<RecordListModel&>(*journey.list().model());
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QSignalSpy batches(&model, &QAbstractItemModel::rowsInserted);
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(model.rowCount(), 2000);
    EXPECT_LE(batches.count(), 4) << "rows are made known in growing batches";
    EXPECT_GE(batches.count(), 2) << "and not only when all are there";

    const QPersistentModelIndex kept = model.index(7, 0);
    const QString name = kept.data().toString();
    model.order(ListSort{0, true});
    EXPECT_EQ(kept.data().toString(), name);
    EXPECT_EQ(kept.row(), 1992);
    model.order(std::nullopt);
    EXPECT_EQ(kept.row(), 7);
    EXPECT_EQ(model.rowOf(model.identifier(1234)), 1234);
    EXPECT_EQ(model.rowOf(5), -1);

    // words that the user types while the list is still being read
    auto& field = journey.find<QLineEdit>("txtFilter");
    int early = -1;
    QTimer::singleShot(0, &model, [&] {
        journey.trigger("mnuSearchFilter");
        QTest::keyClicks(&field, QStringLiteral("99"));
        early = model.rowCount();
    });
    journey.trigger("mnuViewDocuments");
    const std::string all = journey.rows("SELECT COUNT(*) FROM Document WHERE DocumentName LIKE '%99%'");
    EXPECT_EQ(std::to_string(model.rowCount()), all);
    EXPECT_GT(early, 0);
    EXPECT_LT(early, model.rowCount());
    EXPECT_TRUE(field.hasFocus());

    const QPersistentModelIndex second = model.index(1, 0);
    model.order(ListSort{0, true});
    EXPECT_EQ(second.row(), model.rowCount() - 2);
    model.setFilter(FilterWords(QStringLiteral("99 -19")));
    EXPECT_FALSE(second.isValid());
    EXPECT_EQ(model.index(0, 0).data().toString().toStdString(), "Document 999") << "still sorted";
    EXPECT_EQ(model.rowOf(model.identifier(3)), 3);
    EXPECT_EQ(model.rowOf(199), -1);
    journey.trigger("mnuViewEvents");
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_FALSE(kept.isValid());
}

} // namespace
