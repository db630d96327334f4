#pragma once

#include "data/DatabaseSession.h"
#include "data/ListEntry.h"
#include "data/Value.h"
#include "platform/Clock.h"

#include <QString>

#include <optional>

/// How the editors of all kinds read and write single values.
namespace RecordValues {

/// A flag as it is written: 1 or 0.
Value flag(bool set);

/// The present moment, for the history.
Value updateTime(const Clock& clock);

/// How many there are of something, as somebody types it, `1,250` among others: a whole number from 0 to what
/// a column of numbers can hold. Missing for an empty text; nothing where it is no such number.
std::optional<Value> count(const QString& text);

/// An amount of money, `$1,250.50` among others, as the exact text that it is held as. Missing for an empty
/// text; nothing where it is no number.
std::optional<Value> amount(const QString& text);

/// A key of another table; that of "None" where it is missing.
qint64 key(const RecordTable& rows, QStringView column);

/// Opens the one record that a statement names, for changing it. Throws Error where it is gone.
EditableRecordSet openRecord(DatabaseSession& session, const QString& statement);

/// Whether a statement gives a row.
bool hasRow(DatabaseSession& session, const QString& statement);

/// A title between double quotes, to stand behind `LIKE`. A double quote of its own becomes `%`, so that it
/// cannot end the text.
QString quotedTitle(const QString& title);

/// A condition, to stand at the end of a statement, that leaves a record out; empty for one that was never
/// saved.
QString exceptFor(QStringView idColumn, qint64 id);

} // namespace RecordValues
