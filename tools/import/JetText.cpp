// SPDX-License-Identifier: GPL-3.0-or-later

#include "JetText.h"

namespace accessimport {

namespace {

constexpr std::uint32_t replacement = 0xfffd;

bool isHighSurrogate(std::uint32_t unit)
{
    return unit >= 0xd800 && unit <= 0xdbff;
}
bool isAscii(std::uint8_t byte)
{
    return byte > 0 && byte < 0x80;
}
bool isLowSurrogate(std::uint32_t unit)
{
    return unit >= 0xdc00 && unit <= 0xdfff;
}

void append(std::uint32_t character, std::string& into)
{
    const auto byte = [&into](std::uint32_t value) { into.push_back(static_cast<char>(value)); };
    const auto following = [&byte](std::uint32_t bits) { byte(0x80 | (bits & 0x3f)); };
    if (character < 0x80) {
        byte(character);
    } else if (character < 0x800) {
        byte(0xc0 | character >> 6);
        following(character);
    } else if (character < 0x10000) {
        byte(0xe0 | character >> 12);
        following(character >> 6);
        following(character);
    } else {
        byte(0xf0 | character >> 18);
        following(character >> 12);
        following(character >> 6);
        following(character);
    }
}

/// Puts UTF-16 units together; a pair may be divided over two stretches of a compressed text.
class UnitJoiner
{
public:
    explicit UnitJoiner(std::string& into) : m_into(into) {}

    void add(std::uint32_t unit)
    {
        if (m_high != 0 && isLowSurrogate(unit)) {
            append(0x10000 + ((m_high - 0xd800) << 10) + (unit - 0xdc00), m_into);
            m_high = 0;
            return;
        }
        finish();
        if (isHighSurrogate(unit))
            m_high = unit;
        else
            append(isLowSurrogate(unit) ? replacement : unit, m_into);
    }

    void finish()
    {
        if (m_high != 0) append(replacement, m_into);
        m_high = 0;
    }

private:
    std::string& m_into;
    std::uint32_t m_high = 0;
};

} // namespace

void decodeText(Bytes stored, std::string& into)
{
    into.clear();
    UnitJoiner joiner(into);
    const bool isCompressed = stored.size() >= 2 && stored[0] == 0xff && stored[1] == 0xfe;
    bool oneByteEach = isCompressed;
    std::size_t at = isCompressed ? 2 : 0;
    while (at < stored.size()) {
        if (isCompressed && stored[at] == 0) {
            oneByteEach = !oneByteEach;
            ++at;
        } else if (oneByteEach && isAscii(stored[at])) {
            const std::size_t start = at;
            while (at < stored.size() && isAscii(stored[at]))
                ++at;
            joiner.finish();
            into.append(stored.begin() + static_cast<std::ptrdiff_t>(start),
                        stored.begin() + static_cast<std::ptrdiff_t>(at));
        } else if (oneByteEach) {
            joiner.add(stored[at++]);
        } else if (at + 1 < stored.size()) {
            joiner.add(read16(stored, at));
            at += 2;
        } else {
            break;
        }
    }
    joiner.finish();
}

} // namespace accessimport
