// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/StatementLog.h"

#include <utility>

StatementLog::~StatementLog()
{
    const QString time = QString::number(static_cast<double>(m_nanoseconds) / 1e6, 'f', 3);
    QString lines = QStringLiteral("%1 ms, rows read: %2").arg(time, QString::number(m_rows));
    if (!m_built.isEmpty()) lines += QStringLiteral("\n  built: ") + m_built;
    lines += QStringLiteral("\n  run:   ") + (m_run.isEmpty() ? QStringLiteral("(refused)") : m_run);
    qCDebug(statementsLog).noquote() << lines;
}

void StatementLog::setPrepared(QString sql)
{
    m_nanoseconds += m_timer.nsecsElapsed();
    m_run = std::move(sql);
}

void StatementLog::endStep(bool hasRow)
{
    m_nanoseconds += m_timer.nsecsElapsed();
    if (hasRow) ++m_rows;
}
