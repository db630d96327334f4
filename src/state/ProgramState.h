#pragma once

#include "data/DatabaseSession.h"
#include "files/ProgramFolder.h"
#include "records/PickList.h"
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
    QString lastKeywords; ///< what was searched for last, as typed
    DatabaseSession session;

    /// Set by an editor that was left by Cancel; reset by who opened it.
    bool editCancelled = false;

    /// What the pick list is opened with and gives back.
    PickedItems chosen;
};
