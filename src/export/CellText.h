// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Texts as the cells of a workbook hold them.
namespace CellText {

/// As much has room in a cell, in units of UTF-16.
constexpr std::size_t most = 32767;

/// The parts that a text takes, at least one, each of at most so many units. Line ends become LF, as a cell
/// has them; characters that no XML can hold are written `_xHHHH_`, by which programs that calculate know
/// them, and a text that happens to look like that is told apart.
[[nodiscard]] std::vector<std::string> parts(std::string_view utf8, std::size_t units = most);

} // namespace CellText
