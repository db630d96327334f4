// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backup/Manifest.h"
#include "files/Archive.h"
#include "files/DatabaseFile.h"
#include "files/FolderList.h"
#include "platform/SteppedWork.h"
#include "util/Sha256.h"

#include <QDateTime>
#include <QTemporaryDir>

#include <fstream>
#include <memory>
#include <optional>

class ProgramFolder;

/// What a backup takes along.
enum class BackupContents
{
    All,
    DatabaseAlone
};

/// Backs up a collection into one archive: its database as it is at one moment, also while somebody works
/// with it, the files of its records with the charts that were replaced, its own outlines of states, and a
/// list of it all with their SHA-256. Copies that are only being made, and folders without files, are left
/// out. Nothing in the collection is changed.
///
/// The archive has its name only once it is whole; until then nothing of that name is touched, and nothing is
/// left when the object goes.
class CollectionBackup final : public SteppedWork
{
public:
    /// `database` is the file in `folder`. Throws Error, also if the archive would lie among the files that
    /// it is made of.
    CollectionBackup(const QString& database, const ProgramFolder& folder, const QString& archive,
                     const QDateTime& now, BackupContents contents = BackupContents::All);
    ~CollectionBackup() override;

    /// Throws Error, also if a file cannot be read or changes while it is read.
    bool step() override;
    bool undoStep() override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString text() const override;
    [[nodiscard]] std::optional<int> percent() const override;
    [[nodiscard]] std::optional<WorkBytes> bytes() const override;

    /// What was backed up, once all is done.
    [[nodiscard]] const Manifest& manifest() const { return m_manifest; }

private:
    enum class Stage
    {
        Listing,
        Copying,
        Writing,
        Done
    };

    /// What tells whether a file was changed.
    struct FileState
    {
        std::uintmax_t size = 0;
        std::filesystem::file_time_type modified;

        bool operator==(const FileState&) const = default;
    };

    void copyDatabaseFile();
    void beginNext();
    void begin(const std::filesystem::path& file, const QString& name);
    void writeBlock();
    void complete();
    void finish();
    [[nodiscard]] QString databaseCopy() const;
    [[nodiscard]] static FileState stateOf(const std::filesystem::path& file);

    QString m_database;
    Stage m_stage = Stage::Listing;
    FolderList m_list;
    Manifest m_manifest;
    std::optional<QTemporaryDir> m_copyFolder; ///< not beside the archive: SQLite cannot write to every share
    std::optional<DatabaseCopy> m_copy;
    std::unique_ptr<ArchiveWriter> m_writer;

    std::size_t m_next = 0; ///< of the list's entries
    std::filesystem::path m_path;
    FileState m_state;
    std::ifstream m_source; ///< the file that is being written, if any
    std::string m_buffer;
    Sha256 m_hash;
    qint64 m_left = 0; ///< bytes of that file
    FolderList::Amount m_done;
    qint64 m_databaseSize = 0;
};
