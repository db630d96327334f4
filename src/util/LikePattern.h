// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A pattern of LIKE, read once and matched often: `%` stands for any run of characters, `_` for one
/// character, everything else for itself without regard to case, in every script. Matching
/// takes linear time for patterns without `_`; a piece with `_` is tried once at every character.
class LikePattern
{
public:
    explicit LikePattern(std::string_view pattern);

    [[nodiscard]] bool matches(std::string_view text) const;

private:
    /// A part between two `%` of a pattern that is looked for byte by byte: ASCII without `_`. The search
    /// goes from one place of its rarest letter to the next.
    struct Word
    {
        std::string folded;
        std::size_t rarest = 0;
        char lower = 0;
        char upper = 0;

        explicit Word(std::string_view text);
        [[nodiscard]] std::size_t find(std::string_view text, std::size_t from) const;
        [[nodiscard]] bool standsAt(const char* text) const;
    };

    void readWords();
    [[nodiscard]] bool beginsOtherwise(std::string_view text) const;
    [[nodiscard]] bool matchesWords(std::string_view text) const;
    [[nodiscard]] bool matchesFolded(std::string_view text) const;

    std::string m_folded;
    char m_first = 0;           ///< the ASCII letter that a match begins with; 0 if it is none
    bool m_onlyWords = false;   ///< `%word%`, `%word%word%` and so on
    bool m_meetsOthers = false; ///< holds a letter that a letter beyond ASCII folds to
    std::vector<Word> m_words;
    mutable std::string m_scratch;
};
