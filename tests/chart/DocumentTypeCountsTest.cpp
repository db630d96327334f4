// SPDX-License-Identifier: GPL-3.0-or-later

#include "chart/DocumentTypeCounts.h"

#include "support/Testing.h"

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

TEST(ReadableTypes, AreSortedByNumberOrByNameWithoutRegardToCase)
{
    const auto sorted = [](TypeOrder order) {
        std::vector<DocumentTypeCount> counts{{u"plan"_s, 1, 10},       {u"Zoo"_s, 7, 11},
                                              {u"\u00C9tude"_s, 1, 12}, {u"Article"_s, 3, 13},
                                              {u"PLAN"_s, 1, 14},       {u"estate"_s, 3, 15}};
        sortTypes(counts, order);
        std::vector<qint64> types(counts.size());
        std::ranges::transform(counts, types.begin(), &DocumentTypeCount::type);
        return types;
    };
    using Types = std::vector<qint64>;
    EXPECT_EQ(sorted(TypeOrder::AsRead), (Types{10, 11, 12, 13, 14, 15}));
    EXPECT_EQ(sorted(TypeOrder::ByNumber), (Types{11, 13, 15, 12, 10, 14}));
    EXPECT_EQ(sorted(TypeOrder::ByName), (Types{13, 15, 12, 10, 14, 11}));
}

} // namespace
