// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backup/Manifest.h"
#include "files/Archive.h"
#include "files/FileBlocks.h"
#include "platform/SteppedWork.h"
#include "util/Sha256.h"

#include <QMap>

#include <filesystem>
#include <optional>
#include <string_view>

/// Unpacks a backup into an empty folder and compares what came out with what was backed up.
///
/// Nothing in the archive is trusted: one database and files in the folders beside it are taken, none outside
/// the target, none twice, no links, and no more than the archive's size can honestly hold.
class CollectionRestore final : public SteppedWork
{
public:
    /// `target` becomes the folder of the collection; what is in it when the work fails is for the caller to
    /// remove. Throws Error.
    CollectionRestore(const QString& archive, const QString& target);

    /// Throws Error, which names the file if it is one that is not as it was when it was backed up.
    bool step() override;
    bool undoStep() override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString text() const override;
    [[nodiscard]] std::optional<int> percent() const override;

    /// How much of the archive was read.
    [[nodiscard]] std::optional<WorkBytes> bytes() const override;

    /// What the backup says it holds, once all is done.
    [[nodiscard]] const Manifest& manifest() const { return m_manifest; }

    /// The database, once all is done.
    [[nodiscard]] QString database() const { return m_target + u'/' + m_manifest.database; }

    /// The name that a backup has for its collection, without reading more than its beginning. Throws Error.
    [[nodiscard]] static QString collectionIn(const QString& archive);

    /// Whether a backup holds no files besides the database; reads no others. Throws Error.
    [[nodiscard]] static bool holdsDatabaseAlone(const QString& archive);

private:
    struct Unpacked
    {
        qint64 size = 0;
        QByteArray sha256;
    };

    void begin(const ArchiveReader::Entry& entry);
    [[nodiscard]] bool isExpected(const QString& folder, const QString& name);
    [[nodiscard]] std::string_view nextBlock();
    void readBlock();
    void complete();
    void compare();
    void limit(std::size_t more);
    void requireRoom(qint64 size) const;
    void readList(std::string_view block);

    QString m_archiveFile;
    QString m_target;
    qint64 m_archiveSize;
    std::optional<ArchiveReader> m_reader;
    Manifest m_manifest;
    QByteArray m_list; ///< the text of the manifest
    bool m_isList = false;
    QString m_collection; ///< the folder in the archive
    QString m_database;   ///< the one file beside the folders
    QString m_name;       ///< of the file that is being unpacked; empty between two
    std::filesystem::path m_path;
    std::optional<BlockWriter> m_file;
    std::optional<qint64> m_modified; ///< of that file, in seconds since 1970
    Sha256 m_hash;
    QMap<QString, Unpacked> m_unpacked;
    qint64 m_bytes = 0;
    bool m_isDone = false;
};
