// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/Finding.h"
#include "data/Value.h"

#include <QString>

#include <optional>

class DatabaseSession;

/// What the sentences of a check call the rows that keys lead to: records, and entries of lists.
namespace NamedRows {

/// The column with the keys of a table; empty if no key leads there.
[[nodiscard]] QString keyColumn(const QString& table);

/// A row with its title at the beginning of a sentence, such as `Document "Levees" (57)`; std::nullopt if
/// there is none. Throws Error.
[[nodiscard]] std::optional<QString> existing(DatabaseSession& session, const QString& table,
                                              const Value& key);

/// A row that is not there in the middle of a sentence, such as `event 812`.
[[nodiscard]] QString missing(const QString& table, const Value& key);

/// The record that a key leads to; std::nullopt if the table is not one of records.
[[nodiscard]] std::optional<Finding::Record> record(const QString& table, const Value& key);

/// The table of a kind of record, with its key; such as `Document "Levees" (57)`, or `Document 57` if that is
/// not there.
[[nodiscard]] QString recordText(DatabaseSession& session, RecordKind kind, qint64 identifier);

} // namespace NamedRows
