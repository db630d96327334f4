// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/LikePattern.h"

#include "util/TextCompare.h"

#include <algorithm>
#include <cstring>

namespace {

/// The blank and the letters of English, from the most frequent to the rarest; all else is rarer.
constexpr std::string_view frequentFirst = " etaoinshrdlcumwfgypbvkjxqz";

bool isAscii(std::string_view text)
{
    unsigned char seen = 0;
    for (const char c : text)
        seen = static_cast<unsigned char>(seen | static_cast<unsigned char>(c));
    return seen < 0x80;
}

/// The length of the character that begins at `i`; a byte that begins none is one by itself.
std::size_t characterLength(std::string_view folded, std::size_t i)
{
    const auto lead = static_cast<unsigned char>(folded[i]);
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
    std::size_t found = 1;
    while (found < length && i + found < folded.size() &&
           (static_cast<unsigned char>(folded[i + found]) & 0xC0U) == 0x80U) {
        ++found;
    }
    return found == length ? length : 1;
}

/// Whether the piece, which may hold `_`, matches at `at`; if so, `end` is set to the end of the match.
bool pieceMatchesAt(std::string_view piece, std::string_view text, std::size_t at, std::size_t& end)
{
    std::size_t t = at;
    for (std::size_t p = 0; p < piece.size(); ++p) {
        if (t >= text.size()) return false;
        if (piece[p] == '_') {
            t += characterLength(text, t);
        } else if (piece[p] == text[t]) {
            ++t;
        } else {
            return false;
        }
    }
    end = t;
    return true;
}

/// The first match of the piece at or after `from`; `end` is set to its end.
bool findPiece(std::string_view piece, std::string_view text, std::size_t from, std::size_t& end)
{
    if (piece.find('_') == std::string_view::npos) {
        const auto found = text.find(piece, from);
        if (found == std::string_view::npos) return false;
        end = found + piece.size();
        return true;
    }
    for (std::size_t at = from; at < text.size(); at += characterLength(text, at)) {
        if (pieceMatchesAt(piece, text, at, end)) return true;
    }
    return false;
}

/// Whether the piece matches the very end of the text and begins at or after `from`.
bool pieceEndsText(std::string_view piece, std::string_view text, std::size_t from)
{
    if (piece.find('_') == std::string_view::npos) {
        return text.size() - from >= piece.size() && text.ends_with(piece);
    }
    std::size_t end = 0;
    for (std::size_t at = from; at < text.size(); at += characterLength(text, at)) {
        if (pieceMatchesAt(piece, text, at, end) && end == text.size()) return true;
    }
    return false;
}

} // namespace

LikePattern::LikePattern(std::string_view pattern)
{
    TextCompare::fold(pattern, m_folded);
    if (!m_folded.empty() && isAscii(m_folded.substr(0, 1)) && m_folded[0] != '%' && m_folded[0] != '_') {
        m_first = m_folded[0];
    }
    readWords();
}

/// Takes the pattern apart if it is of the form that the keyword search makes.
void LikePattern::readWords()
{
    const std::string_view pattern = m_folded;
    const bool simple = pattern.size() > 1 && pattern.front() == '%' && pattern.back() == '%' &&
                        isAscii(pattern) && pattern.find('_') == std::string_view::npos;
    if (!simple) return;
    m_onlyWords = true;
    // the long s and the Kelvin sign are the letters beyond ASCII that fold into it
    m_meetsOthers = pattern.find_first_of("ks") != std::string_view::npos;
    for (std::size_t begin = 1; begin < pattern.size();) {
        const std::size_t end = pattern.find('%', begin);
        if (end > begin) m_words.emplace_back(pattern.substr(begin, end - begin));
        begin = end + 1;
    }
}

LikePattern::Word::Word(std::string_view text) : folded(text)
{
    const auto rarity = [this](std::size_t i) {
        const std::size_t place = frequentFirst.find(folded[i]);
        return place == std::string_view::npos ? frequentFirst.size() : place;
    };
    for (std::size_t i = 1; i < folded.size(); ++i) {
        if (rarity(i) > rarity(rarest)) rarest = i;
    }
    lower = folded[rarest];
    upper = lower >= 'a' && lower <= 'z' ? static_cast<char>(lower - 'a' + 'A') : lower;
}

bool LikePattern::Word::standsAt(const char* text) const
{
    return std::equal(folded.begin(), folded.end(), text, [](char letter, char c) {
        return letter == (c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c);
    });
}

std::size_t LikePattern::Word::find(std::string_view text, std::size_t from) const
{
    if (text.size() < from + folded.size()) return std::string_view::npos;
    const char* const end = text.data() + text.size() - (folded.size() - 1 - rarest);
    const auto next = [end](const char* at, char c) {
        const void* found = at < end ? std::memchr(at, c, static_cast<std::size_t>(end - at)) : nullptr;
        return found == nullptr ? end : static_cast<const char*>(found);
    };
    const char* nextLower = next(text.data() + from + rarest, lower);
    const char* nextUpper = upper == lower ? end : next(text.data() + from + rarest, upper);
    while (nextLower != end || nextUpper != end) {
        const bool isLower = nextLower < nextUpper;
        const char* candidate = (isLower ? nextLower : nextUpper) - rarest;
        if (standsAt(candidate)) return static_cast<std::size_t>(candidate - text.data());
        (isLower ? nextLower : nextUpper) =
            next((isLower ? nextLower : nextUpper) + 1, isLower ? lower : upper);
    }
    return std::string_view::npos;
}

bool LikePattern::matchesWords(std::string_view text) const
{
    std::size_t at = 0;
    for (const Word& word : m_words) {
        at = word.find(text, at);
        if (at == std::string_view::npos) return false;
        at += word.folded.size();
    }
    return true;
}

/// Whether the first letter alone rules a match out, as it does for most titles. A letter beyond ASCII may
/// fold into one of ASCII, so it rules out nothing.
bool LikePattern::beginsOtherwise(std::string_view text) const
{
    if (m_first == 0 || text.empty() || !isAscii(text.substr(0, 1))) return false;
    const char first = text[0];
    return m_first != (first >= 'A' && first <= 'Z' ? static_cast<char>(first - 'A' + 'a') : first);
}

bool LikePattern::matches(std::string_view text) const
{
    if (beginsOtherwise(text)) return false;
    if (m_onlyWords && (!m_meetsOthers || isAscii(text))) return matchesWords(text);
    TextCompare::fold(text, m_scratch);
    return matchesFolded(m_scratch);
}

bool LikePattern::matchesFolded(std::string_view text) const
{
    const std::string_view pattern = m_folded;
    const auto firstPercent = pattern.find('%');
    std::size_t at = 0;
    if (firstPercent == std::string_view::npos) {
        return pieceMatchesAt(pattern, text, 0, at) && at == text.size();
    }
    if (!pieceMatchesAt(pattern.substr(0, firstPercent), text, 0, at)) return false;

    // the earliest match of each piece leaves the most room for those after it
    std::size_t begin = firstPercent + 1;
    for (;;) {
        const auto percent = pattern.find('%', begin);
        if (percent == std::string_view::npos) return pieceEndsText(pattern.substr(begin), text, at);
        const auto piece = pattern.substr(begin, percent - begin);
        if (!piece.empty() && !findPiece(piece, text, at, at)) return false;
        begin = percent + 1;
    }
}
