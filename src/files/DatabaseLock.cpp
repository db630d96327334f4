// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/DatabaseLock.h"

#include "data/EngineError.h"
#include "data/RollbackJournal.h"
#include "util/Error.h"

#include <QFile>

namespace {

constexpr int patienceMilliseconds = 1000;

} // namespace

DatabaseLock::DatabaseLock(const QString& file)
{
    try {
        refuseForeignJournal(file);
        callEngine([&] {
            m_database = std::make_unique<SQLite::Database>(QFile::encodeName(file).toStdString(),
                                                            SQLite::OPEN_READWRITE, patienceMilliseconds);
            // a file in write-ahead mode cannot be moved; it stays in it while another program has it open
            sqlite3_exec(m_database->getHandle(), "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
            m_transaction =
                std::make_unique<SQLite::Transaction>(*m_database, SQLite::TransactionBehavior::IMMEDIATE);
        });
    } catch (const Error& error) {
        throw Error(error.number(), QStringLiteral("%1 (%2)").arg(error.description(), file));
    }
}

DatabaseLock::~DatabaseLock() = default;

void DatabaseLock::commit()
{
    try {
        m_transaction->commit();
    } catch (const SQLite::Exception& exception) {
        if (!isCommitted(exception.getExtendedErrorCode())) throw;
    }
}
