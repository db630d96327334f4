// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Bytes.h"

#include <string>

namespace accessimport {

/// Turns a text as Access stores it into UTF-8, into `into`.
///
/// A stored text is UTF-16, or compressed: marked at its start, one byte for each character up to U+00FF,
/// with stretches of UTF-16 between zero bytes. Half of a surrogate pair becomes U+FFFD, since UTF-8 cannot
/// hold it.
void decodeText(Bytes stored, std::string& into);

} // namespace accessimport
