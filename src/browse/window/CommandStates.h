// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>

class BrowsePage;
class ListPane;
class MainCommands;
class OpenCommand;
class OpenDatabase;
class RecordCommands;
class RelatedCommands;
class StatusLine;
class ViewPages;
struct ProgramState;

/// Which commands of the main window are possible, with the reason for those that are not. Lives as long as
/// the window.
class CommandStates final
{
    Q_DECLARE_TR_FUNCTIONS(CommandStates)

public:
    /// What the states depend on, and what shows them. All must outlive the object.
    struct Parts
    {
        const ProgramState& state;
        const OpenDatabase& database;
        const ViewPages& pages;
        const BrowsePage& browse;
        const ListPane& list;
        const OpenCommand& open;
        MainCommands& commands;
        RelatedCommands& related;
        RecordCommands& records;
        StatusLine& status;
    };

    explicit CommandStates(const Parts& parts) : m_at(parts) {}

    /// To be called after what is shown or selected has changed.
    void refresh() const;

private:
    void enableViewCommands(const QString& noList) const;
    void enableDatabaseCommands() const;
    [[nodiscard]] QString noTimeline() const;

    Parts m_at;
};
