// SPDX-License-Identifier: GPL-3.0-or-later

#include "JetValues.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace accessimport {

namespace {

void insertPoint(std::string& digits, std::size_t decimals)
{
    if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
    if (decimals > 0) digits.insert(digits.size() - decimals, 1, '.');
}

char folded(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

template <typename Number>
std::string_view shortest(Number value, std::array<char, 64>& buffer)
{
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), result.ptr};
}

} // namespace

std::string currencyText(std::int64_t tenThousandths)
{
    const bool isNegative = tenThousandths < 0;
    const auto bits = static_cast<std::uint64_t>(tenThousandths);
    std::string text = std::to_string(isNegative ? 0 - bits : bits);
    insertPoint(text, 4);
    if (isNegative) text.insert(0, 1, '-');
    return text;
}

std::string decimalText(Bytes stored, int scale)
{
    unsigned __int128 value = 0;
    for (std::size_t part = 0; part < 4; ++part)
        value = (value << 32) | read32(stored, 1 + part * 4);
    const bool isNegative = (stored[0] & 0x80) != 0 && value != 0;
    std::string text;
    do {
        text.insert(0, 1, static_cast<char>('0' + static_cast<int>(value % 10)));
        value /= 10;
    } while (value != 0);
    insertPoint(text, static_cast<std::size_t>(std::clamp(scale, 0, 28)));
    if (isNegative) text.insert(0, 1, '-');
    return text;
}

std::string identifierText(Bytes stored)
{
    constexpr std::array<int, 16> order = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "{";
    for (std::size_t at = 0; at < order.size(); ++at) {
        if (at == 4 || at == 6 || at == 8 || at == 10) text += '-';
        const std::uint8_t byte = stored[static_cast<std::size_t>(order[at])];
        text += digits[byte >> 4];
        text += digits[byte & 0xf];
    }
    return text + '}';
}

double widened(float value)
{
    std::array<char, 64> buffer{};
    const std::string_view text = shortest(value, buffer);
    double result = static_cast<double>(value);
    std::from_chars(text.data(), text.data() + text.size(), result);
    return result;
}

std::string shortestText(double value)
{
    std::array<char, 64> buffer{};
    return std::string(shortest(value, buffer));
}

bool isSameName(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return folded(one) == folded(other); });
}

std::string foldedName(std::string_view name)
{
    std::string text(name);
    std::transform(text.begin(), text.end(), text.begin(), folded);
    return text;
}

} // namespace accessimport
