// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/ScanCheck.h"

#include <limits>
#include <vector>

/// Looks for keys that lead to no record, or to no entry of a list. NULL and the reserved row 1 are no
/// faults, and a deleted record is a record.
class LinksCheck final : public ScanCheck
{
public:
    explicit LinksCheck(CheckedDatabase& database) : ScanCheck(CheckTopic::LinksWithoutRecord, database) {}

private:
    /// A column with keys of a table.
    struct Key
    {
        QString column;
        QString target;
    };

    /// A table, and how far its keys were compared.
    struct Table
    {
        QString name;
        Key owner;
        std::vector<Key> keys;
        std::size_t next = 0; ///< of the keys
        Value last = firstKey;
    };

    static constexpr qint64 firstKey = std::numeric_limits<qint64>::min();

    void begin(DatabaseSession& session) override;
    bool prepare(DatabaseSession& session) override;
    [[nodiscard]] bool hasLostKeys(DatabaseSession& session, Table& table) const;
    void addScanOf(const Table& table);
    void addTable(const QString& table, const Key& owner, const std::vector<Key>& keys);
    void found(const HeldRow& row, const Key& owner, const std::vector<Key>& keys);

    std::vector<Table> m_tables; ///< that are to be compared, the next one last
};
