// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "util/Logging.h"

#include <QElapsedTimer>
#include <QString>

#include <memory>

/// One statement in the log `orvik.statements`. It lives as long as the statement is read or run, adds up the
/// time spent in translating it and in SQLite, and writes its lines when it goes.
class StatementLog
{
public:
    /// Returns null if the log is off, so that no time is taken. `built` is the statement in the program's
    /// dialect, or empty if the session made it itself.
    static std::unique_ptr<StatementLog> begin(const QString& built)
    {
        if (!statementsLog().isDebugEnabled()) return nullptr;
        return std::make_unique<StatementLog>(built);
    }

    explicit StatementLog(QString built) : m_built(std::move(built)) { m_timer.start(); }
    ~StatementLog();
    StatementLog(const StatementLog&) = delete;
    StatementLog& operator=(const StatementLog&) = delete;

    /// The statement is prepared; `sql` is what SQLite runs, its values filled in.
    void setPrepared(QString sql);

    void beginStep() { m_timer.start(); }
    void endStep(bool hasRow);

private:
    QString m_built;
    QString m_run;
    QElapsedTimer m_timer;
    qint64 m_nanoseconds = 0;
    qint64 m_rows = 0;
};
