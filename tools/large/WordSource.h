// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

/// Random choices and plausible English, the same for the same seed on every machine.
class WordSource
{
public:
    explicit WordSource(std::uint64_t seed) : m_random(seed) {}

    /// A whole number from 0 to `bound` - 1.
    std::uint64_t below(std::uint64_t bound) { return m_random() % bound; }
    bool chance(int percent) { return below(100) < static_cast<std::uint64_t>(percent); }
    std::string_view oneOf(const std::vector<std::string_view>& words) { return words[below(words.size())]; }

    std::string place();
    std::string hazard();
    std::string agency();

    /// Sentences of about that many characters together.
    std::string sentences(std::size_t length);

    /// A day from 1900 to 2020, `YYYY-MM-DD`.
    std::string date(int& daysSinceStart);
    static std::string dateAfter(int daysSinceStart);
    std::string time();

private:
    std::mt19937_64 m_random;
};
