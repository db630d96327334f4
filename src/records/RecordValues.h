// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/DatabaseSession.h"
#include "data/ListEntry.h"
#include "data/Value.h"
#include "platform/Clock.h"

#include <QString>

#include <optional>

/// How single values of a record are read and written.
namespace RecordValues {

/// A flag as it is written: 1 or 0.
Value flag(bool set);

/// Texts as they are written. One that cannot be read is returned as it is: a check finds it before a save.
Value text(const QString& text);
Value date(const QString& text); ///< `mm/dd/yyyy`, missing if blank
Value time(const QString& text); ///< `hh:mm`, missing if blank
Value countOrText(const QString& text);
Value amountOrText(const QString& text);
Value stateOrNone(const QString& text); ///< "None" if empty

/// The present moment, for the history.
Value updateTime(const Clock& clock);

/// A whole number from 0 to 2^63 - 1 as the user types it, such as `1,250`; missing for an empty text.
/// Returns std::nullopt if the text is no such number.
std::optional<Value> count(const QString& text);

/// An amount of money as the user types it, such as `$1,250.50`, as the exact text that is stored; missing
/// for an empty text. Returns std::nullopt if the text is no number.
std::optional<Value> amount(const QString& text);

/// Reads a column of the first row: a text, empty if it is missing; a flag; a key of another table, that of
/// "None" if it is missing. Throws Error if there is no such column.
void read(const RecordTable& rows, QStringView column, QString& text);
void read(const RecordTable& rows, QStringView column, bool& flag);
void read(const RecordTable& rows, QStringView column, qint64& key);

/// Opens the one record that a statement selects, to change it. Throws Error if it is gone.
EditableRecordSet openRecord(DatabaseSession& session, const QString& statement);

/// Whether a statement returns a row.
bool hasRow(DatabaseSession& session, const QString& statement);

/// A title in double quotes, to follow `LIKE`. A double quote in it becomes `%`, so that it cannot end the
/// text.
QString quotedTitle(const QString& title);

/// A condition, to stand at the end of a statement, that leaves a record out; empty for one that was never
/// saved.
QString exceptFor(QStringView idColumn, qint64 id);

} // namespace RecordValues
