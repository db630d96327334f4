#pragma once

#include "opening/DatabaseOpener.h"
#include "platform/Platform.h"
#include "state/ProgramState.h"

#include <memory>

class frmMain;

/// Brings the program up: makes what the whole program shares, shows the splash while the main window loads,
/// then the window. It owns both, and must outlive the event loop.
class Main_Mod
{
public:
    /// `sampleFolder` is what a new program folder is filled from. The converter, like the doors of the
    /// platform, must outlive this object.
    Main_Mod(const Platform& platform, DatabaseConverter& converter, ProgramFolder folder,
             QString sampleFolder);
    ~Main_Mod();
    Main_Mod(const Main_Mod&) = delete;
    Main_Mod& operator=(const Main_Mod&) = delete;

    /// Starts the program and returns. A failure shows one message; the program goes on with what was made.
    void Main();

    [[nodiscard]] ProgramState& state() { return m_state; }
    [[nodiscard]] frmMain* window() { return m_window.get(); }

private:
    void prepareProgramFolder();

    Platform m_platform;
    ProgramState m_state;
    DatabaseOpener m_opener;
    QString m_sampleFolder;
    std::unique_ptr<frmMain> m_window;
};
