// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <string_view>

/// A text of the file as formats take it that know neither other line ends than LF nor control characters but
/// the tab. Bytes that are no UTF-8 become replacement characters.
[[nodiscard]] QString plainText(std::string_view utf8);
