// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QString>

class DatabaseSession;

/// What the main window tells of the open database: its name, whether it can be changed, and what became of
/// it while it was open. Lives as long as the window.
class OpenDatabase final
{
    Q_DECLARE_TR_FUNCTIONS(OpenDatabase)

public:
    /// The session must outlive the object.
    explicit OpenDatabase(DatabaseSession& session) : m_session(session) {}

    /// Why it cannot be changed; empty if it can.
    [[nodiscard]] QString unwritable() const;

    /// The title of a window that shows something of it.
    [[nodiscard]] QString titleOf(const QString& view) const;

    /// Whether another program has changed it since this was asked last; false, too, if that cannot be read.
    [[nodiscard]] bool wasChanged();

    /// What the user has to know beside the view that is shown now; empty for nothing. A change is told of
    /// once.
    [[nodiscard]] QString takeNotice();

    /// To be called if another database is open.
    void forget() { m_isChangeUntold = false; }

private:
    [[nodiscard]] bool isGone() const;

    DatabaseSession& m_session;
    bool m_isChangeUntold = false;
};
