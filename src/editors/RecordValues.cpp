#include "editors/RecordValues.h"

#include "util/Error.h"

#include <QLocale>

#include <sqlite3.h>

#include <algorithm>

namespace {

/// The digits of a number, without signs of grouping or money; empty where the text is empty.
QString digits(const QString& field, const QString& text)
{
    static const QLocale typed(QLocale::English, QLocale::UnitedStates);
    QString number = text.trimmed();
    if (number.startsWith(u'$')) number = number.mid(1).trimmed();
    if (number.isEmpty()) return {};
    bool isNumber = std::all_of(number.cbegin(), number.cend(), [](QChar c) {
        return (c >= u'0' && c <= u'9') || c == u',' || c == u'.' || c == u'-';
    });
    if (isNumber) typed.toDouble(number, &isNumber);
    if (!isNumber) throw Error(SQLITE_MISMATCH, QStringLiteral("%1: %2 is not a number").arg(field, text));
    return number.remove(u',');
}

} // namespace

Value RecordValues::flag(bool set)
{
    return qint64{set ? 1 : 0};
}

Value RecordValues::updateTime(const Clock& clock)
{
    return clock.now().toString(QStringLiteral("MM/dd/yyyy HH:mm:ss"));
}

Value RecordValues::number(const QString& field, const QString& text)
{
    const QString number = digits(field, text);
    if (number.isEmpty()) return {};
    bool isWhole = false;
    const qint64 whole = number.toLongLong(&isWhole);
    if (isWhole) return whole;
    return number.toDouble();
}

Value RecordValues::amount(const QString& field, const QString& text)
{
    const QString number = digits(field, text);
    if (number.isEmpty()) return {};
    return number;
}

qint64 RecordValues::key(const RecordTable& rows, QStringView column)
{
    return isNull(rows.value(0, column)) ? noneKey : rows.integer(0, column);
}

EditableRecordSet RecordValues::openRecord(DatabaseSession& session, const QString& statement)
{
    EditableRecordSet rows = session.edit(statement);
    if (rows.atEnd()) {
        throw Error(SQLITE_NOTFOUND, QStringLiteral("The record is not in the database any more."));
    }
    return rows;
}

bool RecordValues::hasRow(DatabaseSession& session, const QString& statement)
{
    return session.read(statement).next();
}

QString RecordValues::quotedTitle(const QString& title)
{
    return u'"' + QString(title).replace(u'"', u'%') + u'"';
}
