// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"

#include <QString>

#include <functional>

class DatabaseCommands;
class QWidget;
class RecordEditors;
struct ProgramState;

/// The command that checks the open collection. Lives as long as the main window.
class CheckCommand final
{
public:
    /// `unwritable` says why the database cannot be changed; empty if it can. All must outlive the command.
    CheckCommand(const Platform& platform, const ProgramState& state, DatabaseCommands& databases,
                 RecordEditors& editors, std::function<QString()> unwritable);

    /// Shows the window of the checks. If they find the database damaged, the user is told at once, and what
    /// they want instead of it is opened once the window is closed.
    void run(QWidget& window);

private:
    Platform m_platform;
    const ProgramState& m_state;
    DatabaseCommands& m_databases;
    RecordEditors& m_editors;
    std::function<QString()> m_unwritable;
};
