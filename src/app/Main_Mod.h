// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "opening/DatabaseOpener.h"
#include "opening/StartRequest.h"
#include "platform/Platform.h"
#include "state/ProgramState.h"

#include <memory>

class frmMain;

/// Starts the program: makes the state, and shows the splash screen while the main window loads, then the
/// window. It owns the state and the window, and must outlive the event loop.
class Main_Mod
{
public:
    /// A new program folder gets a copy of the sample in `sampleFolder`. The converter and the members of the
    /// platform must outlive this object.
    Main_Mod(const Platform& platform, DatabaseConverter& converter, ProgramFolder folder,
             QString sampleFolder);
    ~Main_Mod();
    Main_Mod(const Main_Mod&) = delete;
    Main_Mod& operator=(const Main_Mod&) = delete;

    /// Hands a request to the window that has the database open already, and returns true if it took it. If
    /// there is none, other starts are handed to this one from now on. `activationToken` is the one that the
    /// desktop gave this start, or empty.
    [[nodiscard]] bool handOver(const StartRequest& request, const QString& activationToken);

    /// Starts the program and returns. A failure shows one message; the program goes on with what there is.
    void Main(const StartRequest& request = {});

    [[nodiscard]] ProgramState& state() { return m_state; }
    [[nodiscard]] frmMain* window() { return m_window.get(); }

private:
    [[nodiscard]] QString databaseOf(const StartRequest& request) const;
    void prepareProgramFolder();

    Platform m_platform;
    ProgramState m_state;
    DatabaseOpener m_opener;
    QString m_sampleFolder;
    std::unique_ptr<frmMain> m_window;
};
