// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/EngineCheck.h"

#include "check/CheckTexts.h"
#include "check/CheckedDatabase.h"
#include "data/EngineError.h"

#include <QFile>

#include <chrono>
#include <exception>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostFindings = 100;
constexpr int lockPatienceMilliseconds = 1000;
constexpr std::chrono::milliseconds patience(20);

} // namespace

EngineCheck::EngineCheck(CheckTopic topic, CheckedDatabase& database) : TopicCheck(topic), m_checked(database)
{
}

EngineCheck::~EngineCheck()
{
    if (!m_found.valid()) return;
    sqlite3_interrupt(m_database->getHandle());
    m_found.wait();
}

void EngineCheck::open()
{
    m_database = std::make_unique<SQLite::Database>(QFile::encodeName(m_checked.path()).toStdString(),
                                                    SQLite::OPEN_READONLY);
    m_found = std::async(std::launch::async, [this] { return look(); });
}

void EngineCheck::begin()
{
    try {
        open();
    } catch (const std::exception&) {
        m_database.reset();
    }
}

bool EngineCheck::step()
{
    return callEngine([this] {
        if (!m_found.valid()) open();
        if (m_found.wait_for(patience) != std::future_status::ready) return true;
        for (const QString& text : m_found.get())
            add({text});
        if (result().topic == CheckTopic::EngineIntegrity && result().count() >= mostFindings)
            setRemark(CheckTexts::tr("There may be more findings than these."));
        return false;
    });
}

/// Runs in the thread. Throws SQLite::Exception.
QStringList EngineCheck::look()
{
    sqlite3_busy_timeout(m_database->getHandle(), lockPatienceMilliseconds);
    if (result().topic == CheckTopic::ForeignKeys) return lostReferences();
    try {
        return faults();
    } catch (const SQLite::Exception& exception) {
        // of some damage, SQLite says no more than that it is there
        const int code = exception.getErrorCode();
        if (code != SQLITE_CORRUPT && code != SQLITE_NOTADB) throw;
        return {QString::fromUtf8(exception.what())};
    }
}

QStringList EngineCheck::faults()
{
    QStringList texts;
    SQLite::Statement rows(*m_database, "PRAGMA integrity_check(" + std::to_string(mostFindings) + ")");
    while (rows.executeStep()) {
        const std::string text = rows.getColumn(0).getString();
        if (text != "ok") texts << QString::fromStdString(text);
    }
    return texts;
}

QStringList EngineCheck::lostReferences()
{
    QStringList tables;
    SQLite::Statement names(*m_database, "SELECT name FROM sqlite_master WHERE type = 'table'");
    while (names.executeStep())
        tables << QString::fromStdString(names.getColumn(0).getString());
    QStringList texts;
    for (QString& table : tables) {
        if (table.endsWith(u"_HIST", Qt::CaseInsensitive)) continue;
        table = u'"' + table.replace(u'"', u"\"\""_s) + u'"';
        SQLite::Statement rows(*m_database, "PRAGMA foreign_key_check(" + table.toStdString() + ")");
        while (rows.executeStep()) {
            texts << CheckTexts::tr("Row %1 of %2 refers to a row of %3 that is not there.")
                         .arg(QString::number(rows.getColumn(1).getInt64()),
                              QString::fromStdString(rows.getColumn(0).getString()),
                              QString::fromStdString(rows.getColumn(2).getString()));
        }
    }
    return texts;
}
