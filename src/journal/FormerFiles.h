// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/HeldRows.h"
#include "files/ProgramFolder.h"

#include <QString>
#include <QStringList>

#include <filesystem>
#include <map>
#include <optional>
#include <vector>

class DatabaseSession;
struct Snapshot;

/// The charts that one save replaces, or one step of Undo or Redo. What lay there before is kept beside the
/// charts, in the folder `former` and under a name made of its content, so that the journal can bring it
/// back; the rows `Files` of a snapshot tell what lay there.
///
/// Lives as long as the transaction. Unless that is committed, all charts are as they were when this goes;
/// after a kill, `settle` sees to it. A file is whole at every moment, and no content is lost. Every failure
/// is an Error with the system's number.
class FormerFiles
{
public:
    /// The folder must outlive it.
    explicit FormerFiles(const ProgramFolder& folder) : m_folder(folder) {}
    ~FormerFiles();
    FormerFiles(const FormerFiles&) = delete;
    FormerFiles& operator=(const FormerFiles&) = delete;

    /// Keeps the chart that a copy of the chosen file is going to replace. To be called before anything is
    /// written, so that a disk without room stops the whole save. Does nothing if the content is the same.
    void keepChart(const QString& chosenPath, qint64 organization);

    /// Copies the chosen file after `keepChart`.
    void takeChart(const QString& chosenPath, qint64 organization);

    /// Makes an organization's charts what rows of `Files` tell: brings their content back or, if a row has
    /// none, puts the chart aside. Does nothing for what is so already. Returns the names of the charts that
    /// stay as they are because the content is gone from the disk.
    [[nodiscard]] QStringList bringBack(const std::vector<HeldRow>& wanted, qint64 organization);

    /// What a user is told of such a chart.
    [[nodiscard]] static QString goneMessage(const QString& name);

    /// Adds to the snapshots of a row of the journal what was replaced since this was asked last.
    void note(Snapshot& before, Snapshot& after);

    [[nodiscard]] bool hasReplaced() const;

    /// To be called after the commit. Never fails.
    void finish();

    /// The rows that lead from what one of the snapshots of a step tells to the other.
    [[nodiscard]] static std::vector<HeldRow> wanted(const Snapshot& to, const Snapshot& from);

    /// The rows that lead to what lay there after that row of the journal.
    [[nodiscard]] static std::vector<HeldRow> ofVersion(DatabaseSession& session, qint64 organization,
                                                        qint64 number);

    /// Whether an organization's charts are not what such rows tell.
    [[nodiscard]] bool isOtherwise(const std::vector<HeldRow>& wanted, qint64 organization) const;

    /// For each row of the journal that tells of a replaced chart, the hash of what lay there before, which
    /// is empty for nothing.
    [[nodiscard]] static std::map<qint64, QString> replacements(DatabaseSession& session,
                                                                qint64 organization);

    /// Finishes what a killed program left: a chart whose save is not in the journal is as it was before.
    /// Costs nothing if no chart was ever replaced. Never fails; what cannot be done now is done next time.
    static void settle(DatabaseSession& session, const ProgramFolder& folder);

private:
    struct Change
    {
        QString name;
        std::optional<QString> before; ///< hashes; std::nullopt if there is no file
        std::optional<QString> after;
        bool isReplaced = false;
        bool isNoted = false;
    };

    [[nodiscard]] std::filesystem::path chart(const QString& name) const;
    [[nodiscard]] std::filesystem::path former(const QString& name, const QString& hash) const;
    [[nodiscard]] std::filesystem::path unfinished(const QString& name, const QString& hash) const;
    [[nodiscard]] std::optional<std::filesystem::path> kept(const QString& name, const QString& hash) const;
    Change& keep(const QString& name, const std::optional<QString>& before,
                 const std::optional<QString>& after);
    void putBack(const Change& change) const;

    const ProgramFolder& m_folder;
    std::vector<Change> m_changes;
    bool m_isKept = false; ///< whether `keepChart` has done its work
};
