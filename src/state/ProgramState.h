#pragma once

#include "data/DatabaseSession.h"
#include "files/ProgramFolder.h"
#include "views/StandardQueries.h"
#include "views/ViewHistory.h"

#include <QString>

/// What the whole program shares, from its start to its end. Start-up makes it and passes it on by reference.
struct ProgramState
{
    explicit ProgramState(ProgramFolder programFolder) : folder(std::move(programFolder)) {}

    ViewHistory history;
    StandardQueries queries;
    ProgramFolder folder;
    QString databasePath;
    QString lastKeywords; ///< what was searched for last, as typed
    DatabaseSession session;
};
