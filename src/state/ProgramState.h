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
    explicit ProgramState(ProgramFolder programFolder) : folder(std::move(programFolder)) {}

    ViewHistory history;
    StandardQueries queries;
    ProgramFolder folder;
    DatabaseSession session;
};
