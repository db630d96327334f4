// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/DateTimeText.h"

#include "support/Testing.h"
#include "util/Error.h"

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// The held form of a literal, or `Error` with its number.
std::string heldOf(const QString& literal)
{
    try {
        return DateTimeText::heldFromLiteral(literal).toStdString();
    } catch (const Error& error) {
        return "Error " + std::to_string(error.number());
    }
}

int daysOf(int year, int month)
{
    if (month == 2) return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0 ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

QString programDate(int year, int month, int day)
{
    return QString::asprintf("%02d/%02d/%04d", month, day, year);
}

TEST(DateTimeText, EveryMonthEndFrom1600To9999)
{
    std::string previous;
    for (int year = 1600; year <= 9999; ++year) {
        for (int month = 1; month <= 12; ++month) {
            const int last = daysOf(year, month);
            const auto date = DateTimeText::readDate(programDate(year, month, last));
            ASSERT_TRUE(date) << year << '/' << month;
            ASSERT_FALSE(DateTimeText::readDate(programDate(year, month, last + 1))) << year << '/' << month;
            const std::string held = DateTimeText::heldDate(*date).toStdString();
            ASSERT_LT(previous, held); // the held form sorts as the days do
            previous = held;
            ASSERT_EQ(DateTimeText::programFromHeldDate(held), programDate(year, month, last));
        }
    }
}

TEST(DateTimeText, EveryMinuteOfTheDay)
{
    std::string previous;
    for (int minute = 0; minute < 24 * 60; ++minute) {
        const QString program = QString::asprintf("%02d:%02d", minute / 60, minute % 60);
        const auto time = DateTimeText::readTime(program);
        ASSERT_TRUE(time) << program.toStdString();
        const std::string held = DateTimeText::heldTime(*time).toStdString();
        ASSERT_LT(previous, held);
        previous = held;
        ASSERT_EQ(DateTimeText::programFromHeldTime(held), program);
    }
}

TEST(DateTimeText, LiteralsAreReadInEveryFormThatIsWritten)
{
    const std::pair<const char*, const char*> cases[]{{"2001-09-11", "9/11/2001|09/11/2001| 9/11/2001 "},
                                                      {"1600-01-01", "1/1/1600"},
                                                      {"0100-01-02", "1/2/0100"},
                                                      {"00:00", "00:00|12:00:00 AM"},
                                                      {"09:05", "9:05"},
                                                      {"12:00", "12:00:00 PM"},
                                                      {"13:05", "1:05:00 pm"},
                                                      {"11:59", "11:59 AM"},
                                                      {"23:59:58", "23:59:58"},
                                                      {"2001-09-11 00:00:00", "9/11/2001 00:00"},
                                                      {"2001-09-11 08:46:00", "9/11/2001 8:46"},
                                                      {"2001-09-11 20:46:40", "9/11/2001 8:46:40 PM"}};
    for (const auto& [held, literals] : cases) {
        for (const QString& literal : text(literals).split(u'|'))
            EXPECT_EQ(heldOf(literal), held) << literal.toStdString();
    }
}

TEST(DateTimeText, WhatIsNoDayOrTimeIsAnError)
{
    const QStringList literals =
        text("| |2/29/1900|2/29/2001|2/30/2000|4/31/2001|13/1/2001|0/1/2001|1/0/2001|1/32/2001|1/1/01|1/1/99|"
             "1/1/10000|1/1/0000|2001-09-11|9-11-2001|9/11|9/11/2001/1|9/ 1/2001|+9/11/2001|9/11/2001x|"
             "٩/١١/٢٠٠١|24:00|12:60|12:00:60|-1:00|12|12:|:30|13:00 PM|0:30 AM|12:00:00:00|9/11/2001 24:00|"
             "9/11/2001 noon|noon 9/11/2001|NULL|Sept 11, 2001")
            .split(u'|');
    for (const QString& literal : literals)
        EXPECT_EQ(heldOf(literal), "Error 20") << literal.toStdString();
}

TEST(DateTimeText, WhatTheFileHoldsIsShownInProgramFormAndAllElseAsItIs)
{
    EXPECT_EQ(DateTimeText::programFromHeldDate("2001-09-11"), text("09/11/2001"));
    EXPECT_EQ(DateTimeText::programFromHeldTime("08:46:40"), text("08:46"));
    EXPECT_EQ(DateTimeText::programFromHeldDateTime("2001-09-11 08:46:40"), text("09/11/2001 08:46:40"));
    for (const char* odd : {"", "n/a", "2001", "September 1900", "1900-09", "été", "8.46 Uhr"}) {
        EXPECT_EQ(DateTimeText::programFromHeldDate(odd), text(odd));
        EXPECT_EQ(DateTimeText::programFromHeldTime(odd), text(odd));
        EXPECT_EQ(DateTimeText::programFromHeldDateTime(odd), text(odd));
    }
}

} // namespace
