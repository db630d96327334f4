// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "chart/ChartView.h"
#include "editors/LinkList.h"
#include "editors/PickListModel.h"
#include "map/MapView.h"
#include "widgets/ElidedLabel.h"
#include "widgets/LinkButton.h"

namespace {

const QString names[] = {u"Fish & Chips"_s, u"Fish <b>and</b> Chips"_s, u"Fish &lt;and&gt; Chips"_s};

/// What the user reads in a tool-tip of that text.
std::string read(const QString& tip)
{
    return (Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip)
        .toStdString();
}

/// The same of the one that comes when the mouse rests on a point of a widget.
std::string readAt(QWidget& widget, const QPoint& position)
{
    QHelpEvent help(QEvent::ToolTip, position, widget.mapToGlobal(position));
    QApplication::sendEvent(&widget, &help);
    return read(QToolTip::text());
}

class ToolTips : public testing::TestWithParam<QString>
{
protected:
    ToolTips()
    {
        journey.database.runFile("journeys/rows/ToolTip.sql", GetParam());
        journey.start();
    }

    /// The list's tip for a cell of its first row.
    std::string cell(int column)
    {
        return read(journey.list().model()->index(0, column).data(Qt::ToolTipRole).toString());
    }

    Journey journey;
    const std::string name = GetParam().toStdString();
};

TEST_P(ToolTips, ShowNamesAsTheyAreInTheViews)
{
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(cell(0), name);
    EXPECT_EQ(cell(2), name);
    QApplication::processEvents();
    auto& chart = journey.find<ChartView>("MSChart1");
    EXPECT_EQ(readAt(*chart.viewport(), chart.barRect(0).center()), name + ": 1 document");
    QToolTip::hideText();
    QTest::keyClick(&chart, Qt::Key_Right);
    EXPECT_EQ(read(QToolTip::text()), name + ": 1 document") << "by the keyboard";

    journey.trigger("mnuViewOrganizations");
    EXPECT_EQ(cell(0), name);
    EXPECT_EQ(read(journey.find<QListWidget>("MapLegend").item(0)->toolTip()), name + " (1)");
    auto& map = journey.find<MapView>("Map1");
    QApplication::processEvents();
    EXPECT_EQ(readAt(map, map.positionOf(0).toPoint()), name + ", TX\n" + name);
    QTest::keyClick(&map, Qt::Key_PageDown);
    EXPECT_EQ(read(QToolTip::text()), name + ", TX: " + name) << "by the keyboard";

    journey.trigger("mnuViewEvents");
    EXPECT_EQ(cell(0), name);
    QApplication::processEvents();
    EXPECT_EQ(readAt(journey.find<QWidget>("tlLabel(0)"), QPoint(1, 1)), "(09/11/2001 08:00) " + name);
}

TEST_P(ToolTips, ShowNamesAsTheyAreInDialogsAndPages)
{
    PickListModel picked;
    picked.setRows({{2, GetParam(), {}}}, PickListKind::Documents, {});
    EXPECT_EQ(read(picked.index(0, 0).data(Qt::ToolTipRole).toString()), name);
    LinkList links({"lvOrganizations", "cmdAdd", "cmdClear", u"organizations"_s}, PickListKind::Organizations,
                   nullptr);
    links.setEntries({{GetParam(), 2}});
    EXPECT_EQ(read(links.findChild<QListWidget*>()->item(0)->toolTip()), name);
    LinkButton result(nullptr);
    result.setLink(GetParam());
    EXPECT_EQ(read(result.toolTip()), name);
    ElidedLabel criteria(nullptr);
    criteria.setLine(GetParam());
    EXPECT_EQ(read(criteria.toolTip()), name);
}

INSTANTIATE_TEST_SUITE_P(Names, ToolTips, testing::ValuesIn(names));

} // namespace
