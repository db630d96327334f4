// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/RecordValues.h"
#include "records/StoredState.h"

#include <QStringView>

#include <span>
#include <type_traits>
#include <variant>

/// Whether the history table has a column of the same name, which every save copies the value to.
enum class History
{
    Copied,
    NotCopied
};

/// A column of a record's table and the member of the record that holds it. What is read, written, compared
/// and copied to the history is what the columns of the kind say, in their order.
template <typename Record>
struct RecordColumn
{
    QStringView column;
    std::variant<QString Record::*, bool Record::*, qint64 Record::*> member; ///< text, flag or key
    History history;
    const char* caption; ///< what the user calls it, to be translated by RecordsTexts
    Value (*written)(const QString& text) = &RecordValues::text; ///< the value that a text stands for

    /// Written only by a save that takes the record's file, and not compared with what was read.
    bool isOfFile = false;
};

template <typename Record>
using ColumnTable = std::span<const RecordColumn<Record>>;

namespace RecordColumns {

/// Fills the members from the first of `rows`. Throws Error if a column is missing there.
template <typename Record>
void read(std::type_identity_t<ColumnTable<Record>> columns, const RecordTable& rows, Record& record)
{
    for (const RecordColumn<Record>& each : columns) {
        std::visit([&](auto member) { RecordValues::read(rows, each.column, record.*member); }, each.member);
    }
}

/// The value that a save writes to a column.
template <typename Record>
Value value(const RecordColumn<Record>& column, const Record& record)
{
    if (const auto* text = std::get_if<QString Record::*>(&column.member))
        return column.written(record.**text);
    if (const auto* flag = std::get_if<bool Record::*>(&column.member))
        return RecordValues::flag(record.**flag);
    return record.*std::get<qint64 Record::*>(column.member);
}

/// The values of the columns for which `isTaken` returns true.
template <typename Record, typename IsTaken>
FieldValues fields(std::type_identity_t<ColumnTable<Record>> columns, const Record& record, IsTaken isTaken)
{
    FieldValues fields;
    fields.reserve(columns.size());
    for (const RecordColumn<Record>& each : columns) {
        if (isTaken(each)) fields.push_back({each.column, each.caption, value(each, record)});
    }
    return fields;
}

} // namespace RecordColumns
