// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backup/Archive.h"
#include "backup/Manifest.h"
#include "files/FolderList.h"
#include "platform/SteppedWork.h"
#include "util/Sha256.h"

#include <QDateTime>

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
/// with it, the files of its records, and a list of it all with their SHA-256.
///
/// The archive has its name only once it is whole; until then nothing of that name is touched, and nothing is
/// left when the object goes.
class CollectionBackup final : public SteppedWork
{
public:
    /// `database` is the file in `folder`. Throws Error.
    CollectionBackup(const QString& database, const ProgramFolder& folder, const QString& archive,
                     const QDateTime& now, BackupContents contents = BackupContents::All);
    ~CollectionBackup() override;

    bool step() override;
    bool undoStep() override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString text() const override;
    [[nodiscard]] std::optional<int> percent() const override;

    [[nodiscard]] const Manifest& manifest() const { return m_manifest; }

private:
    enum class Stage
    {
        Listing,
        Copying,
        Database,
        Files,
        Done
    };

    void addFolders(const ProgramFolder& folder);
    void copyDatabaseFile();
    void beginNext();
    void begin(const std::filesystem::path& file, const QString& name);
    bool writeBlock();
    void finish();
    void removeCopy() const;

    QString m_database;
    QString m_archiveFile;
    QString m_copy; ///< of the database, beside the archive, until it is in there
    Stage m_stage = Stage::Listing;
    FolderList m_list;
    std::unique_ptr<ArchiveWriter> m_writer;
    Manifest m_manifest;

    std::size_t m_next = 0; ///< of the list's entries
    std::filesystem::path m_path;
    std::ifstream m_source; ///< the file that is being written, if any
    std::string m_buffer;
    Sha256 m_hash;
    qint64 m_left = 0; ///< bytes of that file
    FolderList::Amount m_done;
    qint64 m_databaseSize = 0;
};
