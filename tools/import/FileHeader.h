// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Bytes.h"

#include <cstddef>
#include <string>

namespace accessimport {

/// Judges the first page of a file by its content, whatever the file is called.
///
/// Returns the words for the kind of database ("Access 2000-2003 (Jet 4)").
/// Throws ImportError: SourceUnreadable for anything but an Access database, Unsupported for a version
/// that is not read here, Encrypted for an encoded file or one with a database password.
std::string judgeFileHeader(Bytes firstPage);

/// The part of the first page that every Access file scrambles with one fixed key.
inline constexpr std::size_t scrambledHeaderStart = 0x18;
inline constexpr std::size_t scrambledHeaderLength = 128;

/// Turns that part of the page readable, or scrambles it again: the operation is its own inverse.
void unscrambleHeader(std::span<std::uint8_t> firstPage);

} // namespace accessimport
