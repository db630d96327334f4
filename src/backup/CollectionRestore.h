// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backup/Archive.h"
#include "backup/Manifest.h"
#include "platform/SteppedWork.h"
#include "util/Sha256.h"

#include <QMap>
#include <QSet>

#include <filesystem>
#include <fstream>
#include <optional>
#include <vector>

/// Unpacks a backup into an empty folder and compares what came out with what was backed up.
///
/// Nothing in the archive is trusted: only files in the folders of a collection are taken, none outside the
/// target, none twice, no links, and no more than the archive's size can honestly hold.
class CollectionRestore final : public SteppedWork
{
public:
    /// `target` becomes the folder of the collection; what is in it when the work fails or is given up is for
    /// the caller to remove. Throws Error.
    CollectionRestore(const QString& archive, const QString& target);

    bool step() override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString text() const override;
    [[nodiscard]] std::optional<int> percent() const override;

    /// What the backup says it holds, once all is done.
    [[nodiscard]] const Manifest& manifest() const { return m_manifest; }

    /// The database, once all is done.
    [[nodiscard]] QString database() const { return m_target + u'/' + m_manifest.database; }

    /// Reads the list of a backup alone, to say what would be restored. Throws Error.
    [[nodiscard]] static Manifest manifestOf(const QString& archive);

private:
    struct Unpacked
    {
        qint64 size = 0;
        QByteArray sha256;
    };

    void begin(const ArchiveReader::Entry& entry);
    void readBlock();
    void compare();
    void limit(std::size_t more);

    QString m_archiveFile;
    QString m_target;
    qint64 m_archiveSize;
    std::optional<ArchiveReader> m_reader;
    Manifest m_manifest;
    QByteArray m_list; ///< the text of the manifest
    bool m_isList = false;
    QString m_name; ///< of the file that is being unpacked; empty between two
    std::filesystem::path m_path;
    std::ofstream m_file;
    Sha256 m_hash;
    QMap<QString, Unpacked> m_unpacked;
    QSet<QString> m_names; ///< folded, since a system may not tell letter cases apart
    qint64 m_bytes = 0;
    bool m_isDone = false;
};
