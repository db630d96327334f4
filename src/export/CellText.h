// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Texts as the cells of a workbook hold them.
namespace CellText {

/// The most that a cell has room for, in units of UTF-16.
constexpr std::size_t most = 32767;

/// The parts that a text takes, at least one, each of at most so many units. Line ends become LF, as a cell
/// has them. A character that XML cannot hold is written `_xHHHH_`, which spreadsheet programs read back; a
/// text that happens to look like that is escaped in the same way.
[[nodiscard]] std::vector<std::string> parts(std::string_view utf8, std::size_t units = most);

} // namespace CellText
