// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backup/Manifest.h"

class JsonWriter;
class Output;

namespace console {

/// Prints how many files a backup holds and how large they are.
void writeAmount(const Manifest& manifest, Output& output);

/// Writes the same, and the rows of each table, as members of an object that was begun.
void writeAmount(const Manifest& manifest, JsonWriter& json);

} // namespace console
