// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/Value.h"
#include "export/ExportFields.h"
#include "export/ExportedRecord.h"

#include <QStringList>

#include <span>
#include <unordered_map>
#include <vector>

class EngineStatement;

/// Reads whole records, some hundred at a time: a statement for each table reads all of them, since one for
/// each record would take many times as long.
class RecordReader
{
public:
    /// The session must outlive the reader.
    RecordReader(DatabaseSession& session, RecordKind kind);

    /// The most identifiers that can be asked for at once.
    static constexpr std::size_t mostAtOnce = 256;

    [[nodiscard]] RecordKind kind() const { return m_kind; }
    [[nodiscard]] const std::vector<ExportField>& fields() const { return m_fields; }

    /// The records with these identifiers, in their order, without those that are not there or deleted. They
    /// stay valid until the next call. Throws Error.
    [[nodiscard]] std::span<const ExportedRecord> read(std::span<const qint64> identifiers);

private:
    /// A statement that reads values of several fields; the record's key is its first column.
    struct Reading
    {
        QString statement;
        std::vector<std::size_t> fields; ///< each takes a column, a key its name besides
    };

    [[nodiscard]] Reading rowsOf(const QString& table, const QString& recordColumn) const;
    [[nodiscard]] Reading linksOf(std::size_t field) const;
    void begin(std::span<const qint64> identifiers);
    void takeRow(const Reading& reading, const EngineStatement& row);
    void takeLink(std::size_t field, const EngineStatement& row);

    DatabaseSession& m_session;
    RecordKind m_kind;
    std::vector<ExportField> m_fields;
    std::vector<Reading> m_readings;
    std::vector<ExportedRecord> m_records;
    std::vector<bool> m_isThere;                     ///< the record's own row
    std::unordered_map<qint64, std::size_t> m_place; ///< of each record
};
