// SPDX-License-Identifier: GPL-3.0-or-later

#include "JetValues.h"

#include "Cell.h"
#include "JetDate.h"
#include "JetText.h"
#include "SchemaScript.h"
#include "support/Testing.h"

#include <cmath>
#include <limits>

using namespace accessimport;

namespace {

std::string serialText(double serial)
{
    const std::optional<DateTime> date = dateFromSerial(serial);
    return date ? dateTimeText(*date) : "none";
}

std::string decoded(const std::vector<std::uint8_t>& stored)
{
    std::string text;
    decodeText(stored, text);
    return text;
}

} // namespace

TEST(JetDate, countsTheFractionForwardsAlsoBeforeDayZero)
{
    const double second = 1.0 / 86400;
    const std::vector<std::pair<double, std::string>> cases = {
        {0.0, "1899-12-30 00:00:00"},
        {-1.0, "1899-12-29 00:00:00"},
        {-1.75, "1899-12-29 18:00:00"},
        {-2.25, "1899-12-28 06:00:00"},
        {-0.5, "1899-12-30 12:00:00"},
        {2.0, "1900-01-01 00:00:00"},
        {60.0, "1900-02-28 00:00:00"},
        {61.0, "1900-03-01 00:00:00"},
        {36526.0, "2000-01-01 00:00:00"},
        {-36522.0 - 1.0 / 3, "1800-01-01 08:00:00"},
        // To the nearest second, with all that this carries over.
        {36525.0 + 86399.4 * second, "1999-12-31 23:59:59"},
        {36525.0 + 86399.6 * second, "2000-01-01 00:00:00"},
        {-1.0 - 86399.6 * second, "1899-12-30 00:00:00"},
        // The first and the last day there are.
        {-657434.0, "0100-01-01 00:00:00"},
        {-657435.0, "none"},
        {2958465.0 + 86399 * second, "9999-12-31 23:59:59"},
        {2958466.0, "none"},
        {1e300, "none"},
        {-std::numeric_limits<double>::infinity(), "none"},
        {std::nan(""), "none"},
    };
    for (const auto& [serial, expected] : cases)
        EXPECT_EQ(serialText(serial), expected) << serial;
}

TEST(JetDate, isReadFromText)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"2004-03-22", "2004-03-22 00:00:00"},
        {"3/2/2004", "2004-03-02 00:00:00"},
        {"03/22/1804 4:05 PM", "1804-03-22 16:05:00"},
        {"2004-03-22T16:45:09", "2004-03-22 16:45:09"},
        {"16:45", "1899-12-30 16:45:00"},
        {"12:00 am", "1899-12-30 00:00:00"},
        {"12:30PM", "1899-12-30 12:30:00"},
        {"2/29/2000", "2000-02-29 00:00:00"},
        {"2/29/1900", "none"},
        {"13/1/2000", "none"},
        {"24:00", "none"},
        {"13:00 PM", "none"},
        {"circa 1906", "none"},
        {"3/22/04", "none"},
        {"", "none"},
        {" ", "none"},
        {std::string(100000, ' '), "none"},
    };
    for (const auto& [text, expected] : cases) {
        const std::optional<DateTime> date = dateFromText(text);
        EXPECT_EQ(date ? dateTimeText(*date) : "none", expected) << text;
    }
}

TEST(JetText, isDecodedPlainAndCompressed)
{
    const std::vector<std::pair<std::vector<std::uint8_t>, std::string>> cases = {
        {{}, ""},
        {{0xff, 0xfe}, ""},
        {{'A', 0, 0xe9, 0}, "Aé"},
        {{0xff, 0xfe, 'A', 0xe9, 'b'}, "Aéb"},
        {{0xff, 0xfe, 'A', 0, 0x1c, 0x20, 0, 'b'}, "A\u201cb"},
        {{0x3d, 0xd8, 0x00, 0xde}, "\U0001f600"},
        {{0xff, 0xfe, 0, 0x3d, 0xd8, 0x01, 0xde, 0, '!'}, "\U0001f601!"},
        // Halves of a pair, alone, before other text and at the end.
        {{0x3d, 0xd8, 'A', 0}, "\ufffdA"},
        {{0x01, 0xde}, "\ufffd"},
        {{'A', 0, 0x3d, 0xd8}, "A\ufffd"},
    };
    for (const auto& [stored, expected] : cases)
        EXPECT_EQ(decoded(stored), expected);
}

TEST(JetValues, areExact)
{
    EXPECT_EQ(currencyText(std::numeric_limits<std::int64_t>::min()), "-922337203685477.5808");
    EXPECT_EQ(currencyText(-1), "-0.0001");
    EXPECT_EQ(currencyText(12345678900), "1234567.8900");
    EXPECT_EQ(widened(0.1F), 0.1);
    EXPECT_EQ(static_cast<float>(widened(3.4028235E38F)), 3.4028235E38F);

    std::vector<std::uint8_t> decimal(17);
    decimal[13] = 0x39;
    decimal[14] = 0x30;
    EXPECT_EQ(decimalText(decimal, 0), "12345");
    EXPECT_EQ(decimalText(decimal, 7), "0.0012345");
    decimal[0] = 0x80;
    decimal[9] = 1; // 2 to the power of 32
    EXPECT_EQ(decimalText(decimal, 2), "-42949796.41");

    const std::vector<std::uint8_t> identifier = {4, 3, 2, 1, 6, 5, 8, 7, 9, 10, 11, 12, 13, 14, 15, 0xab};
    EXPECT_EQ(identifierText(identifier), "{01020304-0506-0708-090A-0B0C0D0E0FAB}");
}

TEST(HeldForms, loseNothingSilently)
{
    struct Case
    {
        HeldForm form;
        Cell::Kind kind;
        std::string text;
        double number;
        std::string held;  ///< "null" for none
        std::string unfit; ///< what is left over
    };
    const std::vector<Case> cases = {
        {HeldForm::Date, Cell::Kind::Text, "3/22/2004", 0, "2004-03-22", ""},
        {HeldForm::Date, Cell::Kind::Text, "3/22/2004 16:45", 0, "2004-03-22", "3/22/2004 16:45"},
        {HeldForm::Date, Cell::Kind::Text, "circa 1906", 0, "null", "circa 1906"},
        {HeldForm::Date, Cell::Kind::Date, "", 38068.5, "2004-03-22", "2004-03-22 12:00:00"},
        {HeldForm::Date, Cell::Kind::Real, "", 0.1, "null", "0.1"},
        {HeldForm::Time, Cell::Kind::Date, "", 0.5, "12:00", ""},
        {HeldForm::Time, Cell::Kind::Date, "", 38068.5, "12:00", "2004-03-22 12:00:00"},
        {HeldForm::Time, Cell::Kind::Date, "", 86399.0 / 86400, "23:59:59", ""},
        {HeldForm::DateTime, Cell::Kind::Date, "", 38068.5, "2004-03-22 12:00:00", ""},
        {HeldForm::MonthDayYear, Cell::Kind::Date, "", -36522.0, "01/01/1800", ""},
        {HeldForm::MonthDayYear, Cell::Kind::Date, "", 38068.5, "03/22/2004 12:00:00", ""},
        {HeldForm::MonthDayYear, Cell::Kind::Text, "Spring 1906", 0, "Spring 1906", ""},
        {HeldForm::Plain, Cell::Kind::Date, "", 38068.5, "2004-03-22 12:00:00", ""},
        {HeldForm::Text, Cell::Kind::Real, "", 0.1 + 0.2, "0.30000000000000004", ""},
        {HeldForm::Boolean, Cell::Kind::Text, "Yes", 0, "1", ""},
        {HeldForm::Boolean, Cell::Kind::Text, "perhaps", 0, "null", "perhaps"},
        {HeldForm::Boolean, Cell::Kind::Integer, "", -1, "1", ""},
        {HeldForm::Boolean, Cell::Kind::Integer, "", 7, "null", "7"},
    };
    for (const Case& one : cases) {
        Cell cell;
        cell.kind = one.kind;
        cell.text = one.text;
        cell.real = one.number;
        cell.integer = static_cast<std::int64_t>(one.number);
        if (one.kind == Cell::Kind::Date) cell.date = *dateFromSerial(one.number);
        bringIntoForm(one.form, cell);
        std::string held = cell.text;
        if (cell.kind == Cell::Kind::Null) held = "null";
        if (cell.kind == Cell::Kind::Integer) held = std::to_string(cell.integer);
        EXPECT_EQ(held, one.held) << one.text << one.number;
        EXPECT_EQ(cell.unfit.value_or(""), one.unfit) << one.text << one.number;
    }
}

TEST(SchemaScript, isDividedBeforeIndexesAndStoredQueries)
{
    const SchemaScript script = divideScript("-- a; b\nPRAGMA user_version = 1;\nBEGIN;\nCREATE TABLE T (\n"
                                             "    A TEXT -- x;y\n);\nCREATE INDEX I ON T (A);\n"
                                             "CREATE VIEW V AS\nSELECT ';' FROM T;\nCOMMIT;\n");
    ASSERT_EQ(script.tables.size(), 2U);
    EXPECT_EQ(script.tables[0], "PRAGMA user_version = 1;\n");
    ASSERT_EQ(script.rest.size(), 2U);
    EXPECT_EQ(script.rest[1], "CREATE VIEW V AS\nSELECT ';' FROM T;\n");
    EXPECT_EQ(script.names, (std::vector<std::string>{"T", "I", "V"}));
}
