// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/RecordReader.h"

#include "data/DatabaseSession.h"
#include "data/HeldRows.h"
#include "data/ListEntry.h"
#include "records/StoredState.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString places()
{
    static const QString all =
        QStringList(static_cast<qsizetype>(RecordReader::mostAtOnce), u"?"_s).join(u',');
    return all;
}

/// A file may hold bytes that are no UTF-8.
void takeText(std::string_view bytes, std::string& text)
{
    const bool isAscii =
        std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
    text = isAscii ? std::string(bytes)
                   : QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())).toStdString();
}

void take(const EngineStatement& row, int column, ExportedValue& value)
{
    using Type = ExportedValue::Type;
    value.whole = 0;
    value.real = 0;
    takeText(row.text(column), value.text);
    switch (row.type(column)) {
    case SQLITE_INTEGER:
        value.type = Type::Whole;
        value.whole = row.integer(column);
        value.real = row.real(column);
        return;
    case SQLITE_FLOAT:
        value.type = Type::Real;
        value.real = row.real(column);
        return;
    case SQLITE_TEXT:
        value.type = Type::Text;
        return;
    default: // no user can read bytes
        value.type = Type::Missing;
        value.text.clear();
    }
}

/// The condition that a row is not deleted, in whatever letter case its status is.
QString notDeleted(const QString& table, const QString& statusColumn)
{
    return u" AND %1.%2 <> '%3' COLLATE NOCASE"_s.arg(table, statusColumn, deletedStatus);
}

std::string nameOf(const EngineStatement& row, int column, qint64 key)
{
    std::string name;
    takeText(row.text(column), name);
    return name.empty() ? FieldTexts::withoutName(key).toStdString() : name;
}

void clear(ExportedValue& value)
{
    value.type = ExportedValue::Type::Missing;
    value.whole = 0;
    value.real = 0;
    value.text.clear();
    value.lacksName = false;
    value.links.clear();
}

} // namespace

RecordReader::RecordReader(DatabaseSession& session, RecordKind kind)
    : m_session(session), m_kind(kind), m_fields(exportFields(session, kind))
{
    const RecordNames names = recordNames(kind);
    m_readings.push_back(rowsOf(names.record, names.key));
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const RecordField& field = m_fields[i].field;
        if (m_fields[i].hasLinks()) {
            m_readings.push_back(linksOf(i));
        } else if (field.table != names.record &&
                   std::find(m_readings.back().fields.begin(), m_readings.back().fields.end(), i) ==
                       m_readings.back().fields.end()) {
            m_readings.push_back(rowsOf(field.table, m_fields[i].recordColumn));
        }
    }
}

/// A missing key stands for "None".
RecordReader::Reading RecordReader::rowsOf(const QString& table, const QString& recordColumn) const
{
    Reading reading;
    QString columns = u"held."_s + recordColumn;
    QString joins;
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const ExportField& each = m_fields[i];
        if (each.hasLinks() || each.field.table != table) continue;
        const QString column = u"held.\"%1\""_s.arg(QString(each.field.column).replace(u'"', u"\"\""_s));
        reading.fields.push_back(i);
        columns += u", "_s + column;
        if (each.field.form != FieldForm::Key || !each.named) continue;
        const QString other = u"named%1"_s.arg(i);
        columns += u", %1.%2"_s.arg(other, each.named->nameColumn);
        joins += u" LEFT JOIN %1 AS %2 ON %2.%3 = ifnull(%4, %5)"_s
                     .arg(each.named->table, other, each.named->keyColumn, column)
                     .arg(noneKey);
    }
    const RecordParts& parts = recordParts(m_kind);
    const QString active =
        table == parts.names.record ? notDeleted(u"held"_s, parts.statusColumn) : QString();
    // of two profiles of an organization, the one that was there first is its own
    reading.statement = u"SELECT %1 FROM %2 AS held%3 WHERE held.%4 IN (%5)%6 ORDER BY held.rowid DESC"_s.arg(
        columns, table, joins, recordColumn, places(), active);
    return reading;
}

RecordReader::Reading RecordReader::linksOf(std::size_t field) const
{
    const ExportField& links = m_fields[field];
    QString condition;
    if (links.target) {
        const RecordParts& target = recordParts(*links.target);
        condition = notDeleted(u"named"_s, target.statusColumn);
    }
    if (links.field.form == FieldForm::Settings) condition += u" AND link.Setting = 1"_s;
    return {u"SELECT link.%1, link.%2, named.%3 FROM %4 AS link LEFT JOIN %5 AS named ON named.%6 = link.%2 "
            "WHERE link.%1 IN (%7)%8 ORDER BY link.%1, link.%2"_s.arg(
                links.recordColumn, links.field.column, links.named->nameColumn, links.field.table,
                links.named->table, links.named->keyColumn, places(), condition),
            {field}};
}

std::span<const ExportedRecord> RecordReader::read(std::span<const qint64> identifiers)
{
    begin(identifiers);
    std::vector<Value> values(mostAtOnce);
    std::copy(identifiers.begin(), identifiers.end(), values.begin());
    const HeldRows rows(m_session);
    for (const Reading& reading : m_readings) {
        const bool hasLinks = !reading.fields.empty() && m_fields[reading.fields.front()].hasLinks();
        rows.readEach(reading.statement, values, [&](const EngineStatement& row) {
            hasLinks ? takeLink(reading.fields.front(), row) : takeRow(reading, row);
        });
    }
    std::size_t count = 0;
    for (std::size_t i = 0; i < identifiers.size(); ++i)
        if (m_isThere[i]) std::swap(m_records[count++], m_records[i]);
    return {m_records.data(), count};
}

void RecordReader::begin(std::span<const qint64> identifiers)
{
    m_records.resize(std::max(m_records.size(), identifiers.size()));
    m_isThere.assign(identifiers.size(), false);
    m_place.clear();
    for (std::size_t i = 0; i < identifiers.size(); ++i) {
        m_place.emplace(identifiers[i], i);
        m_records[i].identifier = identifiers[i];
        m_records[i].values.resize(m_fields.size());
        for (ExportedValue& value : m_records[i].values)
            clear(value);
    }
}

void RecordReader::takeRow(const Reading& reading, const EngineStatement& row)
{
    const auto found = m_place.find(row.integer(0));
    if (found == m_place.end()) return;
    if (&reading == &m_readings.front()) m_isThere[found->second] = true;
    int column = 1;
    for (const std::size_t field : reading.fields) {
        ExportedValue& value = m_records[found->second].values[field];
        take(row, column++, value);
        if (m_fields[field].field.form != FieldForm::Key || !m_fields[field].named) continue;
        if (value.type != ExportedValue::Type::Whole) value.whole = noneKey;
        value.lacksName = row.text(column).empty();
        value.text = nameOf(row, column++, value.whole);
    }
}

void RecordReader::takeLink(std::size_t field, const EngineStatement& row)
{
    const auto found = m_place.find(row.integer(0));
    const qint64 key = row.type(1) == SQLITE_NULL ? noneKey : row.integer(1);
    if (found == m_place.end() || (key == noneKey && m_fields[field].field.hasPlaceholder)) return;
    std::vector<ExportedLink>& links = m_records[found->second].values[field].links;
    if (links.empty() || links.back().key != key) links.push_back({key, nameOf(row, 2, key)});
}
