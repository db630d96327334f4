#pragma once

#include "browse/ViewHistory.h"
#include "data/DatabaseSession.h"
#include "data/StandardQueries.h"
#include "editors/PickList.h"
#include "files/ProgramFolder.h"

#include <QString>

#include <array>
#include <cstdint>

/// A colour of the palette, in parts of 255.
struct PaletteColour
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
};

/// The sixteen colours by which functions are told apart; black first, white last.
inline constexpr std::array<PaletteColour, 16> colourPalette{{{0, 0, 0},
                                                              {0, 0, 255},
                                                              {0, 128, 0},
                                                              {255, 0, 0},
                                                              {0, 0, 128},
                                                              {128, 0, 128},
                                                              {0, 128, 128},
                                                              {192, 192, 192},
                                                              {128, 128, 128},
                                                              {128, 128, 0},
                                                              {0, 255, 0},
                                                              {255, 255, 0},
                                                              {128, 0, 0},
                                                              {255, 0, 255},
                                                              {0, 255, 255},
                                                              {255, 255, 255}}};

/// The folders of the program, each below its base folder.
struct ProgramFolders
{
    QString documents = QStringLiteral("\\data\\documents\\");
    QString organizationCharts = QStringLiteral("\\data\\orgcharts\\");
    QString uploadDocuments = QStringLiteral("\\data\\documents\\");
    QString data = QStringLiteral("\\data\\");
    QString maps = QStringLiteral("\\data\\maps\\");
};

/// What the whole program shares, from its start to its end. Start-up makes it and passes it on by reference.
struct ProgramState
{
    explicit ProgramState(ProgramFolder programFolder) : folder(std::move(programFolder)) {}

    ViewHistory history;
    StandardQueries queries;
    ProgramFolders folders;
    ProgramFolder folder;
    QString databasePath;
    QString lastKeywords; ///< what was searched for last, as typed
    DatabaseSession session;

    /// Set by an editor that was left by Cancel; reset by who opened it.
    bool editCancelled = false;

    /// What the pick list is opened with and gives back.
    PickedItems chosen;
};
