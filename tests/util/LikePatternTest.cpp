// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/LikePattern.h"

#include "support/Testing.h"

namespace {

TEST(LikePattern, MatchesAsWritten)
{
    using Texts = std::vector<const char*>;
    // a pattern, what it matches, and what it does not
    const std::tuple<const char*, Texts, Texts> cases[]{{"%", {"", "anything é"}, {}},
                                                        {"_", {"é", "日", "𐐀"}, {"", "ab"}},
                                                        {"fire", {"Fire"}, {"fires", "a fire"}},
                                                        {"%fire", {"Great Fire"}, {"firefighter"}},
                                                        {"fire%", {"FIREFIGHTER"}, {"Great Fire"}},
                                                        {"%fire%", {"a FiRe plan"}, {"a fir e"}},
                                                        {"%é%", {"CAFÉ"}, {"cafe"}},
                                                        {"%σ", {"ΟΔΟΣ"}, {}},
                                                        {"ж%", {"Журнал"}, {}},
                                                        {"\u212A%", {"kelvin"}, {}},
                                                        {"%a_b%", {"xxaab"}, {}},
                                                        {"a%b%c", {"a-b-b-c"}, {"a-c-b"}},
                                                        {"50\\%", {"50\\ per cent"}, {}},
                                                        {"it's", {"IT'S"}, {}},
                                                        {"[a]", {}, {"a"}},
                                                        {"*", {}, {"anything"}},
                                                        {"?", {}, {"a"}}};
    for (const auto& [pattern, matches, others] : cases) {
        for (const char* text : matches)
            EXPECT_TRUE(LikePattern(pattern).matches(text)) << pattern << " on " << text;
        for (const char* text : others)
            EXPECT_FALSE(LikePattern(pattern).matches(text)) << pattern << " on " << text;
    }
}

/// LIKE as its definition reads, with no care for speed.
bool matchesByDefinition(std::u32string_view pattern, std::u32string_view text)
{
    if (pattern.empty()) return text.empty();
    if (pattern.front() == U'%') {
        for (std::size_t skipped = 0; skipped <= text.size(); ++skipped) {
            if (matchesByDefinition(pattern.substr(1), text.substr(skipped))) return true;
        }
        return false;
    }
    if (text.empty()) return false;
    const bool same =
        pattern.front() == U'_' || QChar::toCaseFolded(pattern.front()) == QChar::toCaseFolded(text.front());
    return same && matchesByDefinition(pattern.substr(1), text.substr(1));
}

std::u32string randomCharacters(std::mt19937& random, std::u32string_view from, std::size_t longest)
{
    std::u32string characters;
    for (std::size_t length = random() % (longest + 1); length > 0; --length) {
        characters += from[random() % from.size()];
    }
    return characters;
}

std::string utf8(const std::u32string& characters)
{
    return QString::fromUcs4(characters.data(), static_cast<qsizetype>(characters.size())).toStdString();
}

TEST(LikePattern, AgreesWithItsDefinition)
{
    std::mt19937 random(42);
    int matched = 0;
    for (int round = 0; round < 30000; ++round) {
        const std::u32string pattern = randomCharacters(random, U"aAbé%%_", 7);
        const std::u32string text = randomCharacters(random, U"aAbBÉé日", 8);
        const bool expected = matchesByDefinition(pattern, text);
        matched += expected ? 1 : 0;
        ASSERT_EQ(LikePattern(utf8(pattern)).matches(utf8(text)), expected)
            << utf8(pattern) << " on " << utf8(text);
    }
    EXPECT_GT(matched, 1000); // the texts are such that both answers occur
}

TEST(LikePattern, TakesDamagedText)
{
    std::mt19937 random(5);
    for (int round = 0; round < 5000; ++round) {
        std::string text;
        for (std::size_t length = random() % 12; length > 0; --length)
            text += static_cast<char>(random() % 256);
        std::erase(text, '%');
        std::erase(text, '_');
        EXPECT_TRUE(LikePattern(text).matches(text)) << testing::PrintToString(text);
        EXPECT_TRUE(LikePattern("%" + text + "%").matches("before " + text + " after"))
            << testing::PrintToString(text);
        EXPECT_FALSE(LikePattern(text + "x").matches(text)) << testing::PrintToString(text);
    }
}

TEST(LikePattern, ManyWildcardsOnALongTextComeToAnEnd)
{
    const std::string text(1'000'000, 'a');
    std::string pattern = "%";
    for (int i = 0; i < 1000; ++i)
        pattern += "a%";
    EXPECT_TRUE(LikePattern(pattern).matches(text));
    EXPECT_FALSE(LikePattern(pattern + "b").matches(text));
    EXPECT_FALSE(LikePattern("%a_a_b%").matches(text));
}

} // namespace
