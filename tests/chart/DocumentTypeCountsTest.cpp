// SPDX-License-Identifier: GPL-3.0-or-later

#include "chart/DocumentTypeCounts.h"

#include <gtest/gtest.h>

namespace {

TEST(ReadableTypes, AreThoseOfMostDocumentsInTheirOrder)
{
    std::vector<DocumentTypeCount> counts(30000, {QString(), 1});
    for (std::size_t i = 0; i < counts.size(); ++i)
        counts[i].name = QString::number(i);
    counts[29999].documents = 7;
    counts[100].documents = 2;
    EXPECT_EQ(keepReadable(counts), 29950u);
    ASSERT_EQ(counts.size(), 50u);
    EXPECT_EQ(counts.front().name, u"0");
    EXPECT_EQ(counts[47].name, u"47") << "of those with as many, the first";
    EXPECT_EQ(counts[48].name, u"100");
    EXPECT_EQ(counts[49].name, u"29999");
    EXPECT_EQ(keepReadable(counts), 0u);
    EXPECT_EQ(counts.size(), 50u);
}

} // namespace
