// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "export/ExportFields.h"
#include "export/ExportedRecord.h"

#include <functional>
#include <string>

/// Returns the address that the name of a linked record leads to.
using RecordAddress = std::function<std::string(RecordKind kind, qint64 identifier)>;

/// A record as a piece of HTML, for a page and for paper: its name as `h2`, then a `table` of the class
/// `fields` with those of its fields that hold something, as their user reads them, and the names of what it
/// is linked to; with addresses, the names of records are links, of which a field has the first 200, and a
/// text ends after 20,000 bytes. It is well-formed XML, has no more than QTextDocument understands, and
/// leaves its looks to a style sheet.
void appendRecordSheet(RecordKind kind, const std::vector<ExportField>& fields, const ExportedRecord& record,
                       std::string& html, const RecordAddress& addressOf = {});
