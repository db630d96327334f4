// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/TypedDate.h"

#include "support/Testing.h"

TEST(TypedDate, ReadsTheFormsThatPeopleType)
{
    const std::pair<const char*, std::optional<int>> cases[] = {
        {"9/11/2001", 20010911},
        {"09/11/2001", 20010911},
        {"2001-09-11", 20010911},
        {"September 2001", 20010900},
        {"Sept. 11, 2001", 20010911},
        {"11 September 2001", 20010911},
        {"9/2001", 20010900},
        {"2001", 20010000},
        {" 1907 ", 19070000},
        {"02/29/2000", 20000229},
        {"02/29/1900", std::nullopt},
        {"spring 2001", std::nullopt},
        {"n.d.", std::nullopt},
        {"", std::nullopt},
        {"9/11/01", std::nullopt},
        {"2001-2003", std::nullopt},
        {"May June 2001", std::nullopt},
        {"1 2 3 4", std::nullopt},
    };
    for (const auto& [text, order] : cases) {
        EXPECT_EQ(typedDateOrder(QString::fromUtf8(text)), order) << text;
    }
}
