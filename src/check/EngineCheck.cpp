// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/EngineCheck.h"

#include "check/CheckTexts.h"
#include "data/EngineError.h"

#include <QFile>

#include <chrono>

namespace {

constexpr int mostFindings = 100;
constexpr std::chrono::milliseconds patience(20);

} // namespace

EngineCheck::EngineCheck(CheckTopic topic, QString database) : TopicCheck(topic), m_file(std::move(database))
{
}

EngineCheck::~EngineCheck()
{
    if (!m_found.valid()) return;
    sqlite3_interrupt(m_database->getHandle());
    m_found.wait();
}

bool EngineCheck::step()
{
    return callEngine([this] {
        if (!m_found.valid()) {
            m_database = std::make_unique<SQLite::Database>(QFile::encodeName(m_file).toStdString(),
                                                            SQLite::OPEN_READONLY);
            m_found = std::async(std::launch::async, [this] { return look(); });
        }
        if (m_found.wait_for(patience) != std::future_status::ready) return true;
        result().findings = m_found.get();
        return false;
    });
}

/// Runs in the thread. Throws SQLite::Exception.
std::vector<Finding> EngineCheck::look()
{
    std::vector<Finding> findings;
    if (result().topic == CheckTopic::EngineIntegrity) {
        SQLite::Statement rows(*m_database, "PRAGMA integrity_check(" + std::to_string(mostFindings) + ")");
        while (rows.executeStep()) {
            const std::string text = rows.getColumn(0).getString();
            if (text != "ok") findings.push_back({QString::fromStdString(text)});
        }
        return findings;
    }
    SQLite::Statement rows(*m_database, "PRAGMA foreign_key_check");
    while (rows.executeStep()) {
        findings.push_back({CheckTexts::tr("A row of %1 refers to a row of %2 that is not there.")
                                .arg(QString::fromStdString(rows.getColumn(0).getString()),
                                     QString::fromStdString(rows.getColumn(2).getString()))});
    }
    return findings;
}
