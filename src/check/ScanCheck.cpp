// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/ScanCheck.h"

#include "check/CheckedDatabase.h"
#include "util/Error.h"

#include <QStringList>

#include <algorithm>

bool ScanCheck::step()
{
    DatabaseSession& session = m_database.session();
    if (!std::exchange(m_isBegun, true)) begin(session);
    if (!m_isPrepared) {
        m_isPrepared = !prepare(session);
        return true;
    }
    if (m_current >= m_scans.size()) return false;
    Scan& scan = m_scans[m_current];
    try {
        for (const HeldRow& row : scan.rows.next(session))
            scan.found(row);
        if (scan.rows.isDone()) ++m_current;
    } catch (const Error& error) {
        hinder(error);
        ++m_current;
    }
    return m_current < m_scans.size();
}

std::optional<int> ScanCheck::percent() const
{
    return m_scans.empty() ? 0 : static_cast<int>(m_current * 100 / m_scans.size());
}

bool ScanCheck::hasColumns(const QString& table, const QStringList& columns) const
{
    const CatalogTable* found = m_database.session().catalog().findTable(table);
    return found != nullptr && std::all_of(columns.begin(), columns.end(), [found](const QString& column) {
               return found->findColumn(column) != nullptr;
           });
}
