// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/PickerEdit.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

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
