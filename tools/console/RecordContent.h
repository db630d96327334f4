// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "history/ComparedFields.h"

class JsonWriter;
class Output;

namespace console {

/// Prints what a version of a record holds of a field for people: its caption, then its text or its links.
/// Nothing if it holds nothing.
void writeField(const RecordField& field, const FieldContent& content, Output& output);

/// The name of a field in JSON: that of its column, or of the table of its links.
[[nodiscard]] QString memberOf(const RecordField& field, const VersionContent& version);

/// Writes the value of a field that holds no links: dates and times in held form, a key with its name.
void writeValue(const RecordField& field, const FieldContent& content, const VersionContent& version,
                JsonWriter& json);

/// Writes links as an array of keys with their names.
void writeLinks(const std::vector<NamedLink>& links, JsonWriter& json);

} // namespace console
