#pragma once

#include "platform/Platform.h"
#include "views/clsView.h"

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <vector>

class ListPane;
struct ProgramState;
struct SelectedRecord;

/// Opens the files of the selected documents, or the charts of the selected organizations.
class OpenCommand final
{
    Q_DECLARE_TR_FUNCTIONS(OpenCommand)

public:
    /// The program's state and the list must outlive the command.
    OpenCommand(const Platform& platform, ProgramState& state, ListPane& list)
        : m_platform(platform), m_state(state), m_list(list)
    {
    }

    /// Opens one after the other, and asks first where they are many. What cannot be opened is told in one
    /// message at the end.
    void run() const;

    /// Opens the file or the chart of one record, whatever the list shows.
    void openRecord(ViewKind kind, qint64 identifier) const;

    /// What keeps the selection of the list from being opened; empty where it can be.
    [[nodiscard]] QString hindrance() const;

private:
    void open(ViewKind kind, const std::function<std::vector<SelectedRecord>()>& read) const;
    [[nodiscard]] QString openFile(ViewKind kind, const SelectedRecord& record) const;
    [[nodiscard]] std::vector<SelectedRecord> recordOf(ViewKind kind, qint64 identifier) const;
    [[nodiscard]] QString question(std::size_t count) const;

    Platform m_platform;
    ProgramState& m_state;
    ListPane& m_list;
};
