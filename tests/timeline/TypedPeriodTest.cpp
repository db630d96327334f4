// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TypedPeriod.h"

#include "support/Testing.h"
#include "timeline/Moments.h"

namespace {

/// What came of a text on a timeline of some decades, at noon of 06/15/2005.
std::string outcomeOf(const char* text)
{
    const QDateTime now(QDate(2005, 6, 15), QTime(12, 0));
    const TypedPeriod period =
        readTypedPeriod(QString::fromUtf8(text), now, {at("1927-04-01 06:00"), at("2005-09-21 18:00")});
    return (period.problem.isEmpty() ? dateTimeText(period.start) : period.problem).toStdString();
}

TEST(TypedPeriod, IsAYearAMonthADayOrNow)
{
    const std::pair<const char*, const char*> cases[]{
        {"2004", "01/01/2004 00:00"},          {"08/2004", "08/01/2004 00:00"},
        {"08/29/2004", "08/29/2004 00:00"},    {" 8/9/2004 ", "08/09/2004 00:00"},
        {"8 / 29 / 2004", "08/29/2004 00:00"}, {"2004-08", "08/01/2004 00:00"},
        {"2004-02-29", "02/29/2004 00:00"},    {"8.29.2004", "08/29/2004 00:00"},
        {"NOW", "06/15/2005 12:00"},           {"1927", "01/01/1927 00:00"},
        {"04/1927", "04/01/1927 00:00"},       {"04/01/1927", "04/01/1927 00:00"},
        {"09/21/2005", "09/21/2005 00:00"}};
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(outcomeOf(text), expected) << text;
}

TEST(TypedPeriod, SaysWhatIsWrong)
{
    for (const char* text : {"", "soon", "08/29/04", "8/2004/29", "20040", "2004/", "2004 08", "-2004",
                             "1/2/3/2004", "08/029/2004"})
        EXPECT_EQ(outcomeOf(text),
                  "This is not a date. Type a year, a month or a day, such as 2005, 08/2005 or 08/29/2005.")
            << text;
    for (const std::string text : {"02/30/2004", "29/08/2004", "13/2004", "0/2004", "2004-08-00", "0000"})
        EXPECT_EQ(outcomeOf(text.c_str()), "There is no date " + text + ". The month stands before the day.");
    const std::string span = " the timeline, which runs from 04/01/1927 to 09/21/2005.";
    for (const std::string text : {"1926", "03/1927", "03/31/1927", "0099"})
        EXPECT_EQ(outcomeOf(text.c_str()), text + " is before" + span);
    for (const std::string text : {"2006", "10/2005", "09/22/2005", "9999"})
        EXPECT_EQ(outcomeOf(text.c_str()), text + " is after" + span);
}

} // namespace
