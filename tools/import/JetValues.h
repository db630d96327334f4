// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Bytes.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace accessimport {

/// A currency value, counted in ten-thousandths, as an exact number with four decimals.
std::string currencyText(std::int64_t tenThousandths);

/// A Decimal of 17 bytes (a sign and 128 bits) as an exact number with `scale` decimals.
std::string decimalText(Bytes stored, int scale);

/// A replication identifier of 16 bytes as {XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}.
std::string identifierText(Bytes stored);

/// The double that a reader of the single's shortest decimal number gets: 0.1 stays 0.1.
double widened(float value);

/// The shortest decimal number that reads back as the value.
std::string shortestText(double value);

/// Whether two names are the same without regard to the case of the letters A to Z.
bool isSameName(std::string_view left, std::string_view right);

/// The name with the letters A to Z in lower case.
std::string foldedName(std::string_view name);

} // namespace accessimport
