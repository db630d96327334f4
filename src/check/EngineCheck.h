// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/TopicCheck.h"

#include <QStringList>

#include <SQLiteCpp/SQLiteCpp.h>

#include <future>
#include <memory>

class CheckedDatabase;

/// What SQLite itself finds in a database, on a connection of its own and in a thread of its own, since its
/// one statement may take seconds. References of former versions to their records are another topic's.
class EngineCheck final : public TopicCheck
{
public:
    /// `topic` is one of the first two. The database must outlive the check.
    EngineCheck(CheckTopic topic, CheckedDatabase& database);
    ~EngineCheck() override;

    /// Lets SQLite begin. Never fails: `step` begins anew and tells why it cannot.
    void begin();

    bool step() override;

private:
    void open();
    [[nodiscard]] QStringList look();
    [[nodiscard]] QStringList faults();
    [[nodiscard]] QStringList lostReferences();

    CheckedDatabase& m_checked;
    std::unique_ptr<SQLite::Database> m_database;
    std::future<QStringList> m_found;
};
