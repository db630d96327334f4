// SPDX-License-Identifier: GPL-3.0-or-later

#include "FileHeader.h"

#include "ImportError.h"

#include <algorithm>
#include <array>
#include <bit>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>

namespace accessimport {

namespace {

constexpr const char* jetKind = "Access 2000-2003 (Jet 4)";
constexpr std::size_t signatureOffset = 4;
constexpr std::size_t versionOffset = 0x14;
constexpr std::size_t keyOffset = 0x3e;
constexpr std::size_t passwordOffset = 0x42;
constexpr std::size_t passwordLength = 40;
constexpr std::size_t creationDateOffset = 0x72;
constexpr std::size_t judgedLength = scrambledHeaderStart + scrambledHeaderLength;

bool hasSignature(Bytes page, std::string_view signature)
{
    const Bytes found = page.subspan(signatureOffset, signature.size() + 1);
    return std::equal(signature.begin(), signature.end(), found.begin()) && found.back() == 0;
}

std::string kindOf(Bytes page)
{
    const int version = page[versionOffset];
    if (hasSignature(page, "Standard Jet DB")) {
        if (version == 0)
            throw ImportError(ExitStatus::Unsupported,
                              "The file is an Access 97 database or older. Convert it to the Access 2000 or "
                              "2002-2003 format first.");
        if (version == 1) return jetKind;
    } else if (hasSignature(page, "Standard ACE DB")) {
        if (version >= 2 && version <= 6) return "Access 2007 or later (ACE)";
    } else {
        throw ImportError(ExitStatus::SourceUnreadable, "The file is not an Access database.");
    }
    throw ImportError(ExitStatus::Unsupported, "The file is an Access database of an unknown version (" +
                                                   std::to_string(version) + ").");
}

/// The password is masked with the whole days of the creation date.
bool hasPassword(Bytes page)
{
    const double created = std::bit_cast<double>(read64(page, creationDateOffset));
    const bool isDate = created > -1e6 && created < 1e7;
    const auto mask = static_cast<std::uint32_t>(static_cast<std::int32_t>(isDate ? created : 0.0));
    for (std::size_t at = 0; at < passwordLength; at += 4)
        if (read32(page, passwordOffset + at) != mask) return true;
    return false;
}

} // namespace

void unscrambleHeader(std::span<std::uint8_t> firstPage)
{
    constexpr std::array<std::uint8_t, 4> key = {0xc7, 0xda, 0x39, 0x6b};
    std::array<std::uint8_t, 256> state{};
    std::iota(state.begin(), state.end(), std::uint8_t{0});
    std::uint8_t second = 0;
    for (std::size_t first = 0; first < state.size(); ++first) {
        second = static_cast<std::uint8_t>(second + state[first] + key[first % key.size()]);
        std::swap(state[first], state[second]);
    }
    std::uint8_t first = 0;
    second = 0;
    for (std::uint8_t& byte : firstPage.subspan(scrambledHeaderStart, scrambledHeaderLength)) {
        second = static_cast<std::uint8_t>(second + state[++first]);
        std::swap(state[first], state[second]);
        byte ^= state[static_cast<std::uint8_t>(state[first] + state[second])];
    }
}

std::string judgeFileHeader(Bytes firstPage)
{
    if (firstPage.empty()) throw ImportError(ExitStatus::SourceUnreadable, "The file is empty.");
    constexpr std::array<std::uint8_t, signatureOffset> start = {0, 1, 0, 0};
    if (firstPage.size() <= versionOffset || !std::equal(start.begin(), start.end(), firstPage.begin()))
        throw ImportError(ExitStatus::SourceUnreadable, "The file is not an Access database.");
    std::string kind = kindOf(firstPage);
    if (firstPage.size() < judgedLength)
        throw ImportError(ExitStatus::Damaged, "The file is cut short: it ends within its first page.");

    std::vector<std::uint8_t> page(firstPage.begin(), firstPage.end());
    unscrambleHeader(page);
    if (read32(page, keyOffset) != 0)
        throw ImportError(ExitStatus::Encrypted,
                          "The file is encrypted. Save a copy without encryption first.");
    // In the newer kind a password always comes with encryption.
    if (kind == jetKind && hasPassword(page))
        throw ImportError(
            ExitStatus::Encrypted,
            "The file is protected by a database password. Save a copy without a password first.");
    return kind;
}

} // namespace accessimport
