// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/RecordValues.h"

#include "records/RecordsTexts.h"
#include "util/DateTimeText.h"
#include "util/Error.h"

#include <QLocale>

#include <sqlite3.h>

#include <algorithm>

namespace {

/// In any locale, numbers are typed with a comma between thousands and a decimal point.
const QLocale typed(QLocale::English, QLocale::UnitedStates);

} // namespace

Value RecordValues::flag(bool set)
{
    return qint64{set ? 1 : 0};
}

Value RecordValues::text(const QString& text)
{
    return text;
}

Value RecordValues::date(const QString& text)
{
    if (text.trimmed().isEmpty()) return {};
    const auto date = DateTimeText::readDate(text);
    return date ? DateTimeText::programDate(*date) : text;
}

Value RecordValues::time(const QString& text)
{
    if (text.trimmed().isEmpty()) return {};
    const auto time = DateTimeText::readTime(text);
    return time ? DateTimeText::programTime(*time) : text;
}

Value RecordValues::countOrText(const QString& text)
{
    return count(text).value_or(text);
}

Value RecordValues::amountOrText(const QString& text)
{
    return amount(text).value_or(text);
}

Value RecordValues::stateOrNone(const QString& text)
{
    return text.isEmpty() ? ListEntry::none().display : text;
}

Value RecordValues::updateTime(const Clock& clock)
{
    return clock.now().toString(QStringLiteral("MM/dd/yyyy HH:mm:ss"));
}

std::optional<Value> RecordValues::count(const QString& text)
{
    const QString number = text.trimmed();
    if (number.isEmpty()) return Value();
    bool isWhole = false;
    const qint64 whole = typed.toLongLong(number, &isWhole);
    if (!isWhole || whole < 0) return std::nullopt;
    return whole;
}

std::optional<Value> RecordValues::amount(const QString& text)
{
    QString number = text.trimmed();
    if (number.startsWith(u'$')) number = number.mid(1).trimmed();
    if (number.isEmpty()) return Value();
    bool isNumber = std::all_of(number.cbegin(), number.cend(), [](QChar c) {
        return (c >= u'0' && c <= u'9') || c == u',' || c == u'.' || c == u'-';
    });
    if (isNumber) typed.toDouble(number, &isNumber);
    if (!isNumber) return std::nullopt;
    return number.remove(u',');
}

void RecordValues::read(const RecordTable& rows, QStringView column, QString& text)
{
    text = rows.text(0, column);
}

void RecordValues::read(const RecordTable& rows, QStringView column, bool& flag)
{
    flag = rows.integer(0, column) != 0;
}

void RecordValues::read(const RecordTable& rows, QStringView column, qint64& key)
{
    key = isNull(rows.value(0, column)) ? noneKey : rows.integer(0, column);
}

EditableRecordSet RecordValues::openRecord(DatabaseSession& session, const QString& statement)
{
    EditableRecordSet rows = session.edit(statement);
    if (rows.atEnd()) {
        throw Error(SQLITE_NOTFOUND, RecordsTexts::tr("The record is not in the database any more."));
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

QString RecordValues::exceptFor(QStringView idColumn, qint64 id)
{
    return id < 0 ? QString() : QStringLiteral(" AND %1 <> %2").arg(idColumn, QString::number(id));
}
