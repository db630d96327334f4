// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/TopicCheck.h"
#include "data/TableScan.h"

#include <functional>
#include <vector>

class CheckedDatabase;

/// The check of a topic that is looked for table by table. A table that cannot be read to its end does not
/// keep the next ones from being looked through.
class ScanCheck : public TopicCheck
{
public:
    /// The database must outlive the check.
    ScanCheck(CheckTopic topic, CheckedDatabase& database) : TopicCheck(topic), m_database(database) {}

    bool step() final;
    [[nodiscard]] std::optional<int> percent() const final;

protected:
    using Handler = std::function<void(const HeldRow&)>;

    /// Adds the scans of the open database. Throws Error.
    virtual void begin(DatabaseSession& session) = 0;

    /// Does the next step of what has to be done before the scans, which it may add. Returns false once
    /// nothing is left to do. Throws Error.
    virtual bool prepare(DatabaseSession& /*session*/) { return false; }

    /// `found` is called with each row found.
    void addScan(TableScan scan, Handler found) { m_scans.push_back({std::move(scan), std::move(found)}); }

    /// Whether the open database has a table with these columns: a file that other programs made or that an
    /// import brought may lack some.
    [[nodiscard]] bool hasColumns(const QString& table, const QStringList& columns) const;

    [[nodiscard]] CheckedDatabase& database() const { return m_database; }

private:
    struct Scan
    {
        TableScan rows;
        Handler found;
    };

    CheckedDatabase& m_database;
    bool m_isBegun = false;
    bool m_isPrepared = false;
    std::vector<Scan> m_scans;
    std::size_t m_current = 0;
};
