// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/HomeCommands.h"

#include "browse/commands/MainCommands.h"
#include "browse/home/HomePage.h"
#include "browse/window/DatabaseCommands.h"
#include "opening/SampleCollection.h"
#include "state/ProgramState.h"

#include <QDir>
#include <QFileInfo>

HomeCommands::HomeCommands(HomePage& home, DatabaseCommands& databases, const MainCommands& commands,
                           const ProgramState& state, QObject* parent)
    : QObject(parent), m_home(home), m_databases(databases), m_state(state)
{
    connect(&home, &HomePage::newChosen, commands.mnuNewDatabase, &QAction::trigger);
    connect(&home, &HomePage::openChosen, commands.mnuOpenDatabase, &QAction::trigger);
    connect(&home, &HomePage::sampleChosen, &databases, &DatabaseCommands::lookAtSample);
    connect(&home, &HomePage::recentChosen, &databases, &DatabaseCommands::openRecent);
    connect(&databases, &DatabaseCommands::recentChanged, this, &HomeCommands::showRecent);
}

void HomeCommands::showDatabase()
{
    const QString file = m_state.session.fileName();
    m_home.setSubtitle(file.isEmpty() ? tr("No database is open.")
                                      : tr("Database: %1").arg(QFileInfo(file).completeBaseName()));
    m_home.setBeginning(file.isEmpty(), SampleCollection::hindrance(m_state.home));
    showRecent();
}

void HomeCommands::showRecent()
{
    m_databases.listRecent();
    std::vector<HomePage::Link> links;
    for (const DatabaseCommands::Recent& database : m_databases.recent()) {
        if (m_databases.isOpen(database)) continue;
        links.push_back({database.name, database.caption, QDir::toNativeSeparators(database.file)});
    }
    m_home.setRecent(links);
}
