// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "editors/PickListModel.h"
#include "editors/PickerEdit.h"
#include "editors/frmPicList.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QTest>

namespace {

std::string texts(const QAbstractItemModel& model)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row, 0);
        const bool ticked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        texts << (ticked ? u'*' : u' ') + index.data().toString();
    }
    return texts.join(u'|').toStdString();
}

std::string names(const PickedItems& items)
{
    QStringList names;
    for (const clsPickListItem& item : items)
        names << QString::number(item.itemID) + u' ' + item.itemName;
    return names.join(u'|').toStdString();
}

TEST(PickListModel, FiltersAndSortsAroundItsTicks)
{
    PickListModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setRows({{2, u"Portland"_s, u"OR"_s}, {3, u"Éclair"_s, u"WA"_s}, {4, u"eagle"_s, u"OR"_s}},
                  PickListKind::CityLocations, {{3, QString()}, {99, QString()}});
    EXPECT_EQ(texts(model), " Portland|*Éclair| eagle");
    model.setFilter(u"or la"_s);
    EXPECT_EQ(texts(model), " Portland");
    model.toggle({model.index(0, 0)});
    model.setFilter(u"nothing"_s);
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.tickedCount(), 2u) << "what the filter hides counts";
    model.sort(0, Qt::DescendingOrder);
    EXPECT_EQ(names(model.ticked()), "2 Portland, OR|3 Éclair, WA");

    model.setFilter(QString());
    const QPersistentModelIndex eagle = model.index(2, 0);
    EXPECT_EQ(eagle.data().toString(), u"eagle"_s);
    model.sort(0, Qt::AscendingOrder);
    EXPECT_EQ(texts(model), " eagle|*Éclair|*Portland");
    EXPECT_EQ(eagle.row(), 0);
    model.sort(1, Qt::AscendingOrder);
    EXPECT_EQ(texts(model), " eagle|*Portland|*Éclair") << "equal texts keep their order";
    EXPECT_TRUE(model.setData(model.index(0, 0), Qt::Checked, Qt::CheckStateRole));
    EXPECT_FALSE(model.setData(model.index(0, 1), Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(names(model.ticked()), "4 eagle, OR|2 Portland, OR|3 Éclair, WA");
}

TEST(PickListModel, HandsBackEachRecordOnceAndNoneBeyondSixteenBits)
{
    PickListModel model;
    model.setRows({{7, u"a"_s, {}}, {7, u"b"_s, {}}, {32768, u"c"_s, {}}}, PickListKind::Documents,
                  {{7, QString()}});
    EXPECT_EQ(names(model.ticked()), "7 a");
    model.toggle({model.index(2, 0)});
    EXPECT_EQ(errorNumberOf([&] { (void)model.ticked(); }), 6);
}

class PickListDialog : public ::testing::Test
{
protected:
    PickListDialog()
    {
        journey.database.run(
            "INSERT INTO Function VALUES (1, 'None'), (2, 'beta'), (3, 'Alpha'), (4, 'gamma')");
        journey.start();
    }

    bool show(PickListKind kind)
    {
        frmPicList dialog(journey.desktop.platform(), journey.program->state().session, nullptr);
        return dialog.showList(kind, chosen);
    }

    Journey journey;
    PickedItems chosen{{1, u"None"_s}, {4, u"gamma"_s}};
};

TEST_F(PickListDialog, TicksWithTheSpaceBarAndSortsByItsHeader)
{
    inDialog(
        "frmPicList", [&] { EXPECT_TRUE(show(PickListKind::Functions)); },
        [](OpenDialog& dialog) {
            auto& list = dialog.find<QTreeView>("lvPicList");
            EXPECT_EQ(texts(*list.model()), " Alpha| beta|*gamma");
            EXPECT_EQ(list.model()->headerData(0, Qt::Horizontal).toString(), u"Function Name"_s);
            EXPECT_EQ(list.columnWidth(0), list.width() - 50);
            EXPECT_EQ(dialog.find<QLabel>("lblCount").text(), u"1 of 3 ticked"_s);
            const QPoint header(5, list.header()->height() / 2);
            QTest::mouseClick(list.header()->viewport(), Qt::LeftButton, {}, header);
            QTest::mouseClick(list.header()->viewport(), Qt::LeftButton, {}, header);
            EXPECT_EQ(texts(*list.model()), "*gamma| beta| Alpha");
            list.selectAll();
            QTest::keyClick(&list, Qt::Key_Space);
            EXPECT_EQ(texts(*list.model()), " gamma|*beta|*Alpha");
            dialog.type("txtFilter", u"AL"_s);
            EXPECT_EQ(dialog.find<QLabel>("lblCount").text(), u"2 of 3 ticked, 1 shown"_s);
            QTest::keyClick(&dialog.find<QLineEdit>("txtFilter"), Qt::Key_Return, Qt::ControlModifier);
        });
    EXPECT_EQ(names(chosen), "2 beta|3 Alpha");
}

TEST_F(PickListDialog, TicksWithEnterUnderAFilter)
{
    inDialog(
        "frmPicList", [&] { EXPECT_TRUE(show(PickListKind::Functions)); },
        [](OpenDialog& dialog) {
            auto& list = dialog.find<QTreeView>("lvPicList");
            dialog.type("txtFilter", u"a"_s);
            dialog.press(Qt::Key_Return);
            EXPECT_EQ(texts(*list.model()), "*Alpha| beta|*gamma");
            dialog.press(Qt::Key_Down);
            EXPECT_EQ(dialog.focus(), "lvPicList");
            EXPECT_EQ(list.currentIndex().row(), 0);
            dialog.press(Qt::Key_Down);
            dialog.press(Qt::Key_Enter);
            EXPECT_EQ(texts(*list.model()), "*Alpha|*beta|*gamma");
            dialog.type("txtFilter", u"nothing like it"_s);
            dialog.press(Qt::Key_Return);
            EXPECT_EQ(dialog.find<QLabel>("lblCount").text(), u"3 of 3 ticked, 0 shown"_s);
            dialog.find<QLineEdit>("txtFilter").clear();
            dialog.press(Qt::Key_Return);
        });
    EXPECT_EQ(names(chosen), "3 Alpha|2 beta|4 gamma") << "without a filter, Enter is OK";
}

TEST_F(PickListDialog, LeavesTheChoiceAloneOnCancelAndForEmptyKinds)
{
    inDialog(
        "frmPicList", [&] { EXPECT_FALSE(show(PickListKind::Functions)); },
        [](OpenDialog& dialog) {
            QTest::keyClick(&dialog.find<QTreeView>("lvPicList"), Qt::Key_Space);
            dialog.click("cmdCancel");
        });
    EXPECT_EQ(names(chosen), "1 None|4 gamma");
    journey.desktop.messages.expectMessage(u"No ACTIVE DocumentTypes"_s);
    EXPECT_FALSE(show(PickListKind::DocumentTypes));
    EXPECT_EQ(names(chosen), "1 None|4 gamma");
    journey.desktop.messages.finish();
}

TEST_F(PickListDialog, HandsBackNothingWhereNothingIsTicked)
{
    inDialog(
        "frmPicList", [&] { EXPECT_TRUE(show(PickListKind::Functions)); },
        [](OpenDialog& dialog) {
            auto& list = dialog.find<QTreeView>("lvPicList");
            list.setCurrentIndex(list.model()->index(2, 0));
            QTest::keyClick(&list, Qt::Key_Space);
            dialog.click("cmdOK");
        });
    EXPECT_TRUE(chosen.empty());
}

/// What a picker makes of a text once it is left.
template <typename Picker>
std::string typed(const char* text)
{
    Picker picker(nullptr);
    QTest::keyClicks(&picker, QString::fromLatin1(text));
    QTest::keyClick(&picker, Qt::Key_Return);
    return picker.text().toStdString() + (picker.isAcceptable() ? "" : " refused");
}

TEST(PickerEdit, TakesWhatCanBeReadAndMarksTheRest)
{
    EXPECT_EQ(typed<OptionalDateEdit>(""), "");
    EXPECT_EQ(typed<OptionalDateEdit>("1/2/1600"), "01/02/1600");
    EXPECT_EQ(typed<OptionalDateEdit>("12/31/9999"), "12/31/9999");
    EXPECT_EQ(typed<OptionalDateEdit>("2/29/1900"), "2/29/1900 refused");
    EXPECT_EQ(typed<OptionalDateEdit>("3/5/02"), "3/5/02 refused");
    EXPECT_EQ(typed<OptionalTimeEdit>("9:5 PM"), "21:05");
    EXPECT_EQ(typed<OptionalTimeEdit>("24:00"), "24:00 refused");
}

TEST(PickerEdit, StepsThePartAtTheCursor)
{
    OptionalDateEdit date(nullptr);
    QTest::keyClick(&date, Qt::Key_Up);
    EXPECT_FALSE(date.date().has_value()) << "an empty picker stays empty";
    date.setDate(QDate(2004, 1, 31));
    date.setCursorPosition(1);
    QTest::keyClick(&date, Qt::Key_Up);
    EXPECT_EQ(date.text(), u"02/29/2004"_s);
    date.setCursorPosition(4);
    QTest::keyClick(&date, Qt::Key_Up);
    EXPECT_EQ(date.text(), u"03/01/2004"_s);
    date.setDate(QDate(9999, 12, 31));
    date.setCursorPosition(9);
    QTest::keyClick(&date, Qt::Key_Up);
    EXPECT_EQ(date.text(), u"12/31/9999"_s);
    date.setReadOnly(true);
    QTest::keyClick(&date, Qt::Key_Down);
    EXPECT_EQ(date.text(), u"12/31/9999"_s);

    OptionalTimeEdit time(nullptr);
    time.showText(u"23:59"_s);
    time.setCursorPosition(4);
    QTest::keyClick(&time, Qt::Key_Up);
    EXPECT_EQ(time.text(), u"00:00"_s);
}

TEST(PickerEdit, ChoosesFromACalendar)
{
    OptionalDateEdit date(nullptr);
    date.show();
    date.setDate(QDate(1927, 4, 21));
    QTest::keyClick(&date, Qt::Key_Down, Qt::AltModifier);
    auto* calendar = date.findChild<QCalendarWidget*>(u"calendar"_s);
    ASSERT_NE(calendar, nullptr);
    EXPECT_EQ(calendar->selectedDate(), QDate(1927, 4, 21));
    EXPECT_LE(calendar->minimumDate(), QDate(1600, 1, 1));
    Q_EMIT calendar->clicked(QDate(1927, 5, 1));
    EXPECT_EQ(date.text(), u"05/01/1927"_s);
    EXPECT_FALSE(calendar->isVisible());
}

} // namespace
