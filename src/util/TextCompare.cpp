// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/TextCompare.h"

#include <QChar>
#include <QString>

#include <algorithm>
#include <array>

namespace {

constexpr unsigned char firstNonAscii = 0x80;

/// Damaged bytes are numbered from here on, above the last character.
constexpr char32_t firstDamaged = 0x110000;

constexpr unsigned char lowerAscii(unsigned char c)
{
    return static_cast<unsigned char>(c + ((c >= 'A' && c <= 'Z') ? 'a' - 'A' : 0));
}

constexpr auto lowerTable = [] {
    std::array<unsigned char, 256> table{};
    for (unsigned i = 0; i < table.size(); ++i)
        table[i] = lowerAscii(static_cast<unsigned char>(i));
    return table;
}();

unsigned char byteAt(std::string_view text, std::size_t i)
{
    return static_cast<unsigned char>(text[i]);
}

/// Whether UTF-8 may write this character with that many bytes after the first.
bool isWellFormed(char32_t character, std::size_t following)
{
    constexpr std::array<char32_t, 4> smallest{0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    return character >= smallest[following] && character < firstDamaged && !surrogate;
}

/// The character that begins at `i`, and `i` moved past it. A byte that begins none stands for itself,
/// above every character, so that damaged text still has one place in the order.
char32_t nextCharacter(std::string_view text, std::size_t& i)
{
    const unsigned char lead = byteAt(text, i++);
    if (lead < firstNonAscii) return lead;
    const std::size_t following = lead >= 0xF8   ? 0
                                  : lead >= 0xF0 ? 3
                                  : lead >= 0xE0 ? 2
                                  : lead >= 0xC0 ? 1
                                                 : 0;
    if (following == 0 || i + following > text.size()) return firstDamaged + lead;
    char32_t character = lead & (0x3Fu >> following);
    for (std::size_t k = 0; k < following; ++k) {
        const unsigned char next = byteAt(text, i + k);
        if ((next & 0xC0u) != 0x80u) return firstDamaged + lead;
        character = (character << 6) | (next & 0x3Fu);
    }
    if (!isWellFormed(character, following)) return firstDamaged + lead;
    i += following;
    return character;
}

char32_t foldCharacter(char32_t character)
{
    if (character < firstNonAscii) return lowerTable[character];
    return character < firstDamaged ? QChar::toCaseFolded(character) : character;
}

/// The letter without its accents: e for é, itself if it has none. A Korean syllable is made of letters
/// too, but none of them is an accent.
char32_t baseLetter(char32_t folded)
{
    const bool syllable = folded >= 0xAC00 && folded <= 0xD7A3;
    if (folded < 0xC0 || folded >= firstDamaged || syllable) return folded;
    char32_t base = folded;
    for (;;) {
        if (QChar::decompositionTag(base) != QChar::Canonical) return base;
        const QString parts = QChar::decomposition(base);
        if (parts.isEmpty() || parts.at(0).isSurrogate()) return base;
        base = parts.at(0).unicode();
    }
}

void appendCharacter(std::string& text, char32_t character)
{
    if (character >= firstDamaged) {
        text.push_back(static_cast<char>(character - firstDamaged));
    } else if (character < 0x80) {
        text.push_back(static_cast<char>(character));
    } else if (character < 0x800) {
        text.push_back(static_cast<char>(0xC0u | (character >> 6)));
        text.push_back(static_cast<char>(0x80u | (character & 0x3Fu)));
    } else if (character < 0x10000) {
        text.push_back(static_cast<char>(0xE0u | (character >> 12)));
        text.push_back(static_cast<char>(0x80u | ((character >> 6) & 0x3Fu)));
        text.push_back(static_cast<char>(0x80u | (character & 0x3Fu)));
    } else {
        text.push_back(static_cast<char>(0xF0u | (character >> 18)));
        text.push_back(static_cast<char>(0x80u | ((character >> 12) & 0x3Fu)));
        text.push_back(static_cast<char>(0x80u | ((character >> 6) & 0x3Fu)));
        text.push_back(static_cast<char>(0x80u | (character & 0x3Fu)));
    }
}

/// Whether the character adds an accent to the letter before it.
bool isAccent(char32_t character)
{
    return character >= 0x300 && character <= 0x36F;
}

/// Folds a text of ASCII characters; returns false for any other text, of which `folded` is no use then.
bool foldAscii(std::string_view text, std::string& folded)
{
    folded.resize(text.size());
    unsigned char seen = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        seen |= c;
        folded[i] = static_cast<char>(lowerAscii(c));
    }
    return seen < firstNonAscii;
}

/// Compares from `i` on; both texts agree before it.
int compareCharacters(std::string_view left, std::string_view right, std::size_t i)
{
    std::size_t l = i;
    std::size_t r = i;
    int accents = 0;
    while (l < left.size() && r < right.size()) {
        const char32_t a = foldCharacter(nextCharacter(left, l));
        const char32_t b = foldCharacter(nextCharacter(right, r));
        if (a == b) continue;
        const char32_t baseA = baseLetter(a);
        const char32_t baseB = baseLetter(b);
        if (baseA != baseB) return baseA < baseB ? -1 : 1;
        if (accents == 0) accents = a < b ? -1 : 1;
    }
    if (l < left.size()) return 1;
    if (r < right.size()) return -1;
    return accents;
}

} // namespace

namespace TextCompare {

int compare(std::string_view left, std::string_view right)
{
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        const unsigned char a = byteAt(left, i);
        const unsigned char b = byteAt(right, i);
        if (a >= firstNonAscii || b >= firstNonAscii) {
            // everything before is ASCII and equal, so both are at the start of a character
            return compareCharacters(left, right, i);
        }
        const unsigned char lowerA = lowerTable[a];
        const unsigned char lowerB = lowerTable[b];
        if (lowerA != lowerB) return lowerA < lowerB ? -1 : 1;
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

void fold(std::string_view text, std::string& folded)
{
    if (foldAscii(text, folded)) return;
    folded.clear();
    for (std::size_t i = 0; i < text.size();)
        appendCharacter(folded, foldCharacter(nextCharacter(text, i)));
}

void foldWithoutAccents(std::string_view text, std::string& folded)
{
    if (foldAscii(text, folded)) return;
    folded.clear();
    for (std::size_t i = 0; i < text.size();) {
        const char32_t character = nextCharacter(text, i);
        // a base letter may be a capital again: that of İ is I
        if (!isAccent(character))
            appendCharacter(folded, foldCharacter(baseLetter(foldCharacter(character))));
    }
}

} // namespace TextCompare
