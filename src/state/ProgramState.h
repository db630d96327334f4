// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/DatabaseSession.h"
#include "files/ProgramFolder.h"
#include "views/StandardQueries.h"
#include "views/ViewHistory.h"

#include <QString>

/// What the program shares from its start to its end. Start-up owns it and hands each class the parts that it
/// needs, by reference; another database is opened in the same session.
struct ProgramState
{
    explicit ProgramState(ProgramFolder programFolder) : home(std::move(programFolder)), folder(home) {}

    ViewHistory history;
    StandardQueries queries;
    ProgramFolder home;   ///< of the program: the guide, and the places of databases that settings name
    ProgramFolder folder; ///< of the open database; another one once another database is open
    DatabaseSession session;
};
