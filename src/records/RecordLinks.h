// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/DatabaseSession.h"
#include "data/ListEntry.h"
#include "records/StoredState.h"

#include <QString>

#include <vector>

/// A table that links a record to others or to the rows of a lookup table.
struct LinkTable
{
    QString table;
    QString recordColumn; ///< the record's own key
    QString linkColumn;   ///< the key of what it is linked to
};

/// How the links of a record are read and written. Every failure is an Error.
namespace RecordLinks {

/// The linked records that a statement returns, each once, in its order.
std::vector<ListEntry> read(DatabaseSession& session, const QString& statement, const QString& displayColumn,
                            const QString& keyColumn);

/// Checks the entries that have a row in the link table; if it has a setting, a row whose setting is 1.
void readChecks(DatabaseSession& session, const LinkTable& links, qint64 record, bool hasSetting,
                std::vector<CheckEntry>& entries);

/// Puts the placeholder into a list that has no entries.
void addPlaceholder(std::vector<ListEntry>& entries);

/// Replaces a record's links; a list without entries is written as its placeholder.
void rewrite(DatabaseSession& session, const LinkTable& links, qint64 record, std::vector<ListEntry> entries);

/// Replaces a record's links by the checked entries.
void rewriteChecked(DatabaseSession& session, const LinkTable& links, qint64 record,
                    const std::vector<CheckEntry>& entries);

/// Replaces a record's settings: a row for every entry, with 1 if it is checked, else 0.
void rewriteSettings(DatabaseSession& session, const LinkTable& links, qint64 record,
                     const std::vector<CheckEntry>& entries);

/// The keys that a record is linked to, as one text that does not depend on their order; of a list with check
/// boxes, the checked ones.
[[nodiscard]] FieldValue field(const LinkTable& links, const char* caption,
                               const std::vector<ListEntry>& entries);
[[nodiscard]] FieldValue field(const LinkTable& links, const char* caption,
                               const std::vector<CheckEntry>& entries);

/// Throws Error 6 if an identifier that `rewrite` or `rewriteSettings` would write does not fit into 16 bits.
void requireIdentifiers(const std::vector<ListEntry>& entries);
void requireIdentifiers(const std::vector<CheckEntry>& entries);

/// The same for `rewriteChecked`, which writes the checked entries only.
void requireChecked(const std::vector<CheckEntry>& entries);

} // namespace RecordLinks
