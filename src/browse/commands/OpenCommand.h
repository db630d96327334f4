// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "files/DistributionDiscs.h"
#include "platform/Platform.h"

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

class FileOpener;
class DatabaseSession;
class ListPane;
class ProgramFolder;
struct SelectedRecord;
struct StandardQueries;

/// Opens the files of the selected documents, or the charts of the selected organizations.
class OpenCommand final
{
    Q_DECLARE_TR_FUNCTIONS(OpenCommand)

public:
    /// All must outlive the command.
    OpenCommand(const Platform& platform, DatabaseSession& session, const StandardQueries& queries,
                const ProgramFolder& folder, ListPane& list)
        : m_platform(platform), m_session(session), m_queries(queries), m_folder(folder), m_list(list)
    {
    }

    /// Sets the folders that are looked in for files on the discs if no drive has them.
    void setDiscFolders(const DiscFolders& folders) { m_discFolders = folders; }

    /// Opens one file after the other; asks first if there are more than five. One message at the end says
    /// what could not be opened.
    void run() const;

    /// Opens the file or the chart of one record, whatever the list shows.
    void openRecord(RecordKind kind, qint64 identifier) const;

    /// Whether a record of the list names a file.
    [[nodiscard]] static bool hasFile(RecordKind kind, const SelectedRecord& record);

    /// The file that opening a record of the list would open, if that lies in the collection's own folder;
    /// std::nullopt otherwise. Throws Error.
    [[nodiscard]] std::optional<QString> fileInFolder(RecordKind kind, const SelectedRecord& record) const;

    /// Returns why the selection of the list cannot be opened, or an empty text if it can.
    [[nodiscard]] QString hindrance() const;

private:
    void open(RecordKind kind, const std::function<std::vector<SelectedRecord>()>& read) const;
    [[nodiscard]] FileOpener opener() const;
    [[nodiscard]] QString openFile(RecordKind kind, const SelectedRecord& record) const;
    [[nodiscard]] std::vector<SelectedRecord> recordOf(RecordKind kind, qint64 identifier) const;
    [[nodiscard]] QString question(std::size_t count) const;

    Platform m_platform;
    DatabaseSession& m_session;
    const StandardQueries& m_queries;
    const ProgramFolder& m_folder;
    ListPane& m_list;
    DiscFolders m_discFolders;
};
