// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/DistributionDiscs.h"
#include "views/clsView.h"

#include <QString>

class SettingsStore;

/// What users may have otherwise than the program has it, kept in the settings. A value that is absent, or
/// that cannot be understood, is the default.
struct Preferences
{
    static Preferences read(SettingsStore& settings);

    /// Writes the values that differ from those before; what another window wrote meanwhile stays.
    void write(SettingsStore& settings, const Preferences& before) const;

    static constexpr int desktopTextSize = 100;
    static constexpr int smallestTextSize = 75;
    static constexpr int largestTextSize = 200;

    QString startDatabase;               ///< path of the machine; empty for the database that was open last
    ViewKind startPage = ViewKind::Home; ///< never the search results
    bool asksOnExit = true;
    int listTextSize = desktopTextSize; ///< in percent of the desktop's
    bool fourDigitYears = false;        ///< in lists
    QString collectionsPlace;           ///< path of the machine; empty for the program's own place
    DiscFolders discFolders;

    friend bool operator==(const Preferences&, const Preferences&) = default;
};
