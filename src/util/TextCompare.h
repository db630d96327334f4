// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

/// Comparing and matching UTF-8 text without regard to case, in every script: É equals é, and é does not
/// equal e. The lists, the statements and the searches all share these rules; only a list's filter also
/// disregards accents.
namespace TextCompare {

/// Less than, equal to or greater than zero. Letters sort by their base letter first and by their accent
/// only if the rest is equal, so that "Éclair" stands among the words with e.
int compare(std::string_view left, std::string_view right);

/// The text with every letter folded, so that two texts are equal without regard to case exactly when
/// their folded forms are equal byte for byte. `folded` is overwritten.
void fold(std::string_view text, std::string& folded);

/// The same with letters without their accents, so that é equals e; for what the user types in a hurry.
void foldWithoutAccents(std::string_view text, std::string& folded);

} // namespace TextCompare
