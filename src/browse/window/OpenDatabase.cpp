// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/OpenDatabase.h"

#include "data/DatabaseSession.h"
#include "util/Error.h"

#include <QFileInfo>

#include <utility>

/// Whether it is not in its place any more. What it holds can be read all the same.
bool OpenDatabase::isGone() const
{
    return m_session.isOpen() && !QFileInfo::exists(m_session.fileName());
}

QString OpenDatabase::unwritable() const
{
    if (!m_session.isOpen()) return tr("No database is open.");
    if (isGone()) return tr("The database was moved or deleted while it was open.");
    return m_session.isReadOnly() ? tr("The database can be read, but not changed.") : QString();
}

QString OpenDatabase::titleOf(const QString& view) const
{
    QString title = view;
    const QString file = QFileInfo(m_session.fileName()).fileName();
    if (!file.isEmpty()) title += QStringLiteral(" - ") + file;
    return m_session.isReadOnly() ? tr("%1 [read-only]").arg(title) : title;
}

bool OpenDatabase::wasChanged()
{
    if (!m_session.isOpen()) return false;
    try {
        if (!m_session.wasChangedOutside()) return false;
    } catch (const Error&) {
        // reading the view fails in the same way and says so
        return false;
    }
    m_isChangeUntold = true;
    return true;
}

QString OpenDatabase::takeNotice()
{
    const bool isUntold = std::exchange(m_isChangeUntold, false);
    if (isGone()) return unwritable();
    return isUntold ? tr("The database was changed by another program.") : QString();
}
