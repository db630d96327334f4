// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"
#include "state/Preferences.h"

class ListPane;
class OpenCommand;
class QWidget;
struct ProgramState;

/// The user's preferences, the command that changes them, and what follows from them in the main window.
/// Lives as long as the window.
class SettingsCommand final
{
public:
    /// All must outlive the command.
    SettingsCommand(const Platform& platform, const ProgramState& state, ListPane& list, OpenCommand& open);

    [[nodiscard]] const Preferences& preferences() const { return m_preferences; }

    /// Has the list and the commands follow the preferences.
    void apply();

    /// Shows the dialog of the settings over the window and takes what the user chose. Returns whether a list
    /// shows its rows in another way from now on.
    [[nodiscard]] bool change(QWidget& window);

private:
    Platform m_platform;
    const ProgramState& m_state;
    ListPane& m_list;
    OpenCommand& m_open;
    Preferences m_preferences;
};
