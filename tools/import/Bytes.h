// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace accessimport {

using Bytes = std::span<const std::uint8_t>;

/// Little-endian numbers of an Access file. The caller has checked that the bytes are there.
inline std::uint16_t read16(Bytes bytes, std::size_t at)
{
    return static_cast<std::uint16_t>(bytes[at] | (bytes[at + 1] << 8));
}

inline std::uint32_t read32(Bytes bytes, std::size_t at)
{
    return static_cast<std::uint32_t>(read16(bytes, at)) |
           (static_cast<std::uint32_t>(read16(bytes, at + 2)) << 16);
}

inline std::uint64_t read64(Bytes bytes, std::size_t at)
{
    return static_cast<std::uint64_t>(read32(bytes, at)) |
           (static_cast<std::uint64_t>(read32(bytes, at + 4)) << 32);
}

} // namespace accessimport
