// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class DatabaseCommands;
class HomePage;
class MainCommands;
struct ProgramState;

/// What the home page says of databases: which one is open, what can be done without one, and the recent
/// ones. Does what its links ask for. Lives as long as the window.
class HomeCommands final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the object.
    HomeCommands(HomePage& home, DatabaseCommands& databases, const MainCommands& commands,
                 const ProgramState& state, QObject* parent);

    /// To be called when another database is open.
    void showDatabase();

private:
    void showRecent();

    HomePage& m_home;
    DatabaseCommands& m_databases;
    const ProgramState& m_state;
};
