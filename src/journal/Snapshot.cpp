// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/Snapshot.h"

#include "data/DatabaseSession.h"
#include "journal/JournalTexts.h"
#include "journal/RecordParts.h"
#include "util/Error.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QStringList>

#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

std::vector<NamedKey> keysOf(const PartTable& part)
{
    if (part.linkedTo) return {*part.linkedTo};
    return {};
}

/// Rows of one table with the names of what their keys stand for.
QString statement(const QString& table, const QString& recordColumn, const std::vector<NamedKey>& keys)
{
    QString columns = u"%1.*"_s.arg(table);
    QString joins;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const NamedKey& key = keys[i];
        const QString other = u"named%1"_s.arg(i);
        columns += u", %1.%2"_s.arg(other, key.nameColumn);
        joins +=
            u" LEFT JOIN %1 AS %2 ON %2.%3 = %4.%5"_s.arg(key.table, other, key.keyColumn, table, key.column);
    }
    return u"SELECT %1 FROM %2%3 WHERE %2.%4 = ? ORDER BY %2.rowid"_s.arg(columns, table, joins,
                                                                          recordColumn);
}

/// The keys whose names can stand beside them: an imported table may have a column of such a name itself.
std::vector<NamedKey> withoutOwnNames(const CatalogTable* table, std::vector<NamedKey> keys)
{
    std::erase_if(keys, [table](const NamedKey& key) {
        return table != nullptr && table->findColumn(key.nameColumn) != nullptr;
    });
    return keys;
}

/// Texts are long, so they are taken over in one piece as far as nothing in them needs to be escaped.
void appendText(QString& json, const QString& text)
{
    json += u'"';
    qsizetype begin = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (unit >= u' ' && unit != u'"' && unit != u'\\') continue;
        json += QStringView(text).mid(begin, i - begin);
        json += unit < u' ' ? u"\\u%1"_s.arg(unit, 4, 16, QChar(u'0')) : QString(u'\\') + text[i];
        begin = i + 1;
    }
    json += QStringView(text).mid(begin);
    json += u'"';
}

void appendValue(QString& json, const Value& value)
{
    if (const auto* text = std::get_if<QString>(&value)) return appendText(json, *text);
    if (const auto* whole = std::get_if<qint64>(&value)) {
        json += QString::number(*whole);
    } else if (const auto* real = std::get_if<double>(&value); real != nullptr && std::isfinite(*real)) {
        json += QString::number(*real, 'g', QLocale::FloatingPointShortest);
    } else {
        json += u"null"_s;
    }
}

void appendRow(QString& json, const HeldRow& row)
{
    json += u'{';
    bool isFirst = true;
    for (const auto& [column, value] : row) {
        if (!std::exchange(isFirst, false)) json += u',';
        appendText(json, column);
        json += u':';
        appendValue(json, value);
    }
    json += u'}';
}

void appendRows(QString& json, const QString& table, const std::vector<HeldRow>& rows)
{
    if (json.size() > 1) json += u',';
    appendText(json, table);
    json += u":["_s;
    for (const HeldRow& row : rows) {
        if (&row != &rows.front()) json += u',';
        appendRow(json, row);
    }
    json += u']';
}

/// A number without a fraction comes back as a whole one; a column of numbers takes either for the same.
Value valueOf(const QJsonValue& json)
{
    if (json.isString()) return json.toString();
    if (!json.isDouble()) return {};
    const QVariant number = json.toVariant();
    if (number.typeId() == QMetaType::LongLong) return number.toLongLong();
    return number.toDouble();
}

[[noreturn]] void refuse()
{
    throw Error(SQLITE_CORRUPT, JournalTexts::tr("The journal holds a step that cannot be read."));
}

/// A number that is whole is compared as such, since JSON does not tell 5.0 from 5.
Value comparable(const Value& value)
{
    const auto* real = std::get_if<double>(&value);
    if (real == nullptr || std::trunc(*real) != *real || std::abs(*real) > 1e15) return value;
    return static_cast<qint64>(*real);
}

/// The values of the table's own columns, in an order that does not depend on where the row comes from.
std::vector<HeldRow> comparable(const std::vector<HeldRow>& rows, const std::vector<NamedKey>& keys)
{
    std::vector<HeldRow> compared;
    compared.reserve(rows.size());
    for (const HeldRow& row : rows) {
        HeldRow& own = compared.emplace_back();
        for (const auto& [column, value] : row) {
            const bool isName = std::any_of(keys.begin(), keys.end(), [&name = column](const NamedKey& key) {
                return key.nameColumn == name;
            });
            // a column that was added later holds nothing in the rows of before
            if (!isName && !isNull(value)) own.emplace_back(column, comparable(value));
        }
        std::sort(own.begin(), own.end());
    }
    std::sort(compared.begin(), compared.end());
    return compared;
}

bool haveEqualRows(const QString& table, const std::vector<NamedKey>& keys, const Snapshot& one,
                   const Snapshot& other)
{
    return comparable(one.rows(table), keys) == comparable(other.rows(table), keys);
}

} // namespace

const std::vector<HeldRow>& Snapshot::rows(const QString& table) const
{
    static const std::vector<HeldRow> none;
    const auto found = tables.find(table);
    return found == tables.end() ? none : found->second;
}

bool Snapshots::isTable(const QString& name)
{
    return name != operationRows && name != fileRows && name != uploadRows;
}

bool Snapshots::areSame(const Value& one, const Value& other)
{
    return comparable(one) == comparable(other);
}

Snapshot Snapshots::ofRecord(DatabaseSession& session, RecordKind kind, qint64 identifier)
{
    const RecordParts& record = recordParts(kind);
    const HeldRows held(session);
    Snapshot snapshot;
    const auto add = [&](const QString& table, const QString& recordColumn,
                         const std::vector<NamedKey>& keys) {
        const auto named = withoutOwnNames(session.catalog().findTable(table), keys);
        std::vector<HeldRow> rows = held.read(statement(table, recordColumn, named), {identifier});
        if (!rows.empty()) snapshot.tables[table] = std::move(rows);
    };
    add(record.names.record, record.names.key, record.keys);
    for (const PartTable& part : record.parts)
        add(part.table, part.recordColumn, keysOf(part));
    return snapshot;
}

QString Snapshots::titleOf(RecordKind kind, const Snapshot& record)
{
    const RecordNames names = recordNames(kind);
    const std::vector<HeldRow>& rows = record.rows(names.record);
    return rows.empty() ? QString() : textOf(rows.front(), names.name);
}

Value Snapshots::toJson(const Snapshot& snapshot)
{
    if (snapshot.isEmpty()) return {};
    QString json(u'{');
    json.reserve(2000);
    const auto isFirst = [](const QString& table) { return table == operationRows || table == uploadRows; };
    for (const bool first : {true, false}) {
        for (const auto& [table, rows] : snapshot.tables)
            if (isFirst(table) == first) appendRows(json, table, rows);
    }
    return json + u'}';
}

Snapshot Snapshots::fromJson(const Value& json)
{
    Snapshot snapshot;
    if (isNull(json)) return snapshot;
    const auto* text = std::get_if<QString>(&json);
    const QJsonDocument document =
        text == nullptr ? QJsonDocument() : QJsonDocument::fromJson(text->toUtf8());
    if (!document.isObject()) refuse();
    const QJsonObject tables = document.object();
    for (auto table = tables.begin(); table != tables.end(); ++table) {
        std::vector<HeldRow>& rows = snapshot.tables[table.key()];
        for (const auto& each : table.value().toArray()) {
            const QJsonObject object = each.toObject();
            HeldRow& row = rows.emplace_back();
            for (auto column = object.begin(); column != object.end(); ++column)
                row.emplace_back(column.key(), valueOf(column.value()));
        }
    }
    return snapshot;
}

bool Snapshots::areEqual(RecordKind kind, const Snapshot& one, const Snapshot& other)
{
    const RecordParts& record = recordParts(kind);
    return haveEqualRows(record.names.record, record.keys, one, other) &&
           std::all_of(record.parts.begin(), record.parts.end(), [&](const PartTable& part) {
               return haveEqualRows(part.table, keysOf(part), one, other);
           });
}
