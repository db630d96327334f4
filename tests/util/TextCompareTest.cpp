// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/TextCompare.h"

#include "support/Testing.h"

namespace {

std::string folded(std::string_view text)
{
    std::string result;
    TextCompare::fold(text, result);
    return result;
}

int sign(int number)
{
    return (number > 0) - (number < 0);
}

TEST(TextCompare, CaseMakesNoDifferenceInAnyScriptAndAllElseDoes)
{
    using Pairs = std::vector<std::pair<const char*, const char*>>;
    const Pairs equal{{"Fire Plan", "fIRE pLAN"},
                      {"ÉCOLE", "école"},
                      {"ΟΔΟΣ", "οδος"},
                      {"ΟΔΟΣ", "οδοσ"},
                      {"ЖУРНАЛ", "журнал"},
                      {"\u212A9", "k9"},
                      {"\u212Bland", "åLAND"},
                      {"ÑANDÚ", "ñandú"},
                      {"ԱՐԱՐԱՏ", "արարատ"},
                      {"𐐀", "𐐨"},
                      {"", ""}};
    const Pairs different{{"e", "é"}, {"école", "ecole"},        {"ñ", "n"},  {"ß", "ss"}, {"i", "ı"},
                          {"ж", "з"}, {"a", "а" /* Cyrillic */}, {"a", "a "}, {"", " "}};
    for (const bool areEqual : {true, false}) {
        for (const auto& [left, right] : areEqual ? equal : different) {
            EXPECT_EQ(TextCompare::compare(left, right) == 0, areEqual) << left << " and " << right;
            EXPECT_EQ(folded(left) == folded(right), areEqual) << left << " and " << right;
        }
    }
}

TEST(TextCompare, LeavesAccentsOutForAFilter)
{
    const std::pair<const char*, const char*> texts[]{{"École", "ecole"},
                                                      {"E\u0301cole", "ecole"},
                                                      {"\u0301", ""},
                                                      {"İZMİR", "izmir"},
                                                      {"ÅNGSTRÖM", "angstrom"},
                                                      {"\u212Bland", "aland"},
                                                      {"Άλφα", "αλφα"},
                                                      {"각", "각"},
                                                      {"ß", "ß"},
                                                      {"a\xFF", "a\xFF"}};
    for (const auto& [text, expected] : texts) {
        std::string result = "what was there before";
        TextCompare::foldWithoutAccents(text, result);
        EXPECT_EQ(result, expected) << text;
    }
}

TEST(TextCompare, SortsByBaseLetterThenByAccent)
{
    const std::vector<std::string> words{
        "",       "1900",   "2",       "are",     "Åre", "ärm",   "coté",   "côte", "Eagle",
        "eclair", "éclair", "Éclairs", "ecology", "Ecz", "étude", "Etudes", "Zoo",  "zoos",
        "αβγ",    "άβδ",    "βήτα",    "жук",     "Яна", "가나",  "각가",
    };
    std::vector<std::string> shuffled = words;
    std::mt19937 random(7);
    std::shuffle(shuffled.begin(), shuffled.end(), random);
    std::sort(shuffled.begin(), shuffled.end(),
              [](const auto& a, const auto& b) { return TextCompare::compare(a, b) < 0; });
    EXPECT_EQ(shuffled, words);
}

/// Texts of few different pieces, so that many begin alike: letters of one to four bytes, both cases,
/// accents, and bytes that are no text at all.
std::vector<std::string> randomTexts()
{
    const std::vector<std::string> pieces{
        "a", "A", "e", "É", "é", "z", "ς", "Σ", "\u212A", "k", "𐐀", "𐐨", " ", std::string(1, '\0'),
        // no texts
        "\x80", "\xC3", "\xE2\x84", "\xC1\x81", "\xED\xA0\x80", "\xF4\x90\x82\x80", "\xF8", "\xFF"};
    std::mt19937 random(20010911);
    std::vector<std::string> texts(700);
    for (std::string& text : texts) {
        for (std::size_t length = random() % 5; length > 0; --length) {
            text += pieces[random() % pieces.size()];
        }
    }
    return texts;
}

TEST(TextCompare, OrdersAnyBytesAsOneConsistentOrder)
{
    std::vector<std::string> texts = randomTexts();
    std::sort(texts.begin(), texts.end(),
              [](const auto& a, const auto& b) { return TextCompare::compare(a, b) < 0; });
    for (std::size_t i = 0; i < texts.size(); ++i) {
        ASSERT_EQ(folded(folded(texts[i])), folded(texts[i])) << testing::PrintToString(texts[i]);
        for (std::size_t k = i; k < texts.size(); ++k) {
            const int forward = TextCompare::compare(texts[i], texts[k]);
            ASSERT_LE(forward, 0) << testing::PrintToString(texts[i]) << testing::PrintToString(texts[k]);
            ASSERT_EQ(sign(forward), -sign(TextCompare::compare(texts[k], texts[i])));
            ASSERT_EQ(forward == 0, folded(texts[i]) == folded(texts[k]))
                << testing::PrintToString(texts[i]) << testing::PrintToString(texts[k]);
        }
    }
}

} // namespace
