// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/TopicCheck.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <future>
#include <memory>
#include <vector>

/// What SQLite itself finds in a database, on a connection of its own and in a thread of its own, since its
/// one statement may take seconds.
class EngineCheck final : public TopicCheck
{
public:
    /// `topic` is one of the first two.
    EngineCheck(CheckTopic topic, QString database);
    ~EngineCheck() override;

    bool step() override;

private:
    [[nodiscard]] std::vector<Finding> look();

    QString m_file;
    std::unique_ptr<SQLite::Database> m_database;
    std::future<std::vector<Finding>> m_found;
};
