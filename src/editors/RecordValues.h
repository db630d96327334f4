#pragma once

#include "data/DatabaseSession.h"
#include "data/ListEntry.h"
#include "data/Value.h"
#include "platform/Clock.h"

#include <QString>

/// How the editors of all kinds read and write single values.
namespace RecordValues {

/// A flag as it is written: 1 or 0.
Value flag(bool set);

/// The present moment, for the history.
Value updateTime(const Clock& clock);

/// A number as somebody types it, `$1,250.50` among others; missing for an empty text. Throws Error where it
/// is no number; `field` names it for the user.
Value number(const QString& field, const QString& text);

/// The same, as the exact text that an amount of money is held as.
Value amount(const QString& field, const QString& text);

/// A key of another table; that of "None" where it is missing.
qint64 key(const RecordTable& rows, QStringView column);

/// Opens the one record that a statement names, for changing it. Throws Error where it is gone.
EditableRecordSet openRecord(DatabaseSession& session, const QString& statement);

/// Whether a statement gives a row. Where it asks for no more than keys, an index may answer it without a
/// look at the records, which are ten times as long.
bool hasRow(DatabaseSession& session, const QString& statement);

/// A title between double quotes, to stand behind `LIKE`. A double quote of its own becomes `%`, so that it
/// cannot end the text.
QString quotedTitle(const QString& title);

} // namespace RecordValues
