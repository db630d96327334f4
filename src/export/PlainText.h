// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <string_view>

/// A text of the file for formats that know no line end but LF and no control character but the tab. Bytes
/// that are not UTF-8 become replacement characters.
[[nodiscard]] QString plainText(std::string_view utf8);
