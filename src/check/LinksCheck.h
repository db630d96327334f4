// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/ScanCheck.h"

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

    void begin(DatabaseSession& session) override;
    void addTable(const QString& table, const Key& owner, const std::vector<Key>& keys);
    void found(const HeldRow& row, const Key& owner, const std::vector<Key>& keys);
};
