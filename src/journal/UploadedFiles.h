// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/HeldRows.h"
#include "data/RecordKind.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <filesystem>
#include <optional>
#include <vector>

class DatabaseSession;
struct Snapshot;

/// What the files of records held when the program took them in, as the journal tells: the rows `Uploads` of
/// the documents' files, and the rows `Files` of the charts. Of several rows that name a file, the last one
/// counts.
namespace UploadedFiles {

/// A file that a row tells of.
struct File
{
    QString name;      ///< relative to the data folder, such as `documents/2.pdf`
    QByteArray sha256; ///< 32 bytes; empty if there was no file any more
};

/// The rows for files in a folder of documents. Throws Error if one of them cannot be read.
[[nodiscard]] std::vector<HeldRow> rowsOf(const QString& documentsFolder, const QStringList& names);

/// The files that a row of the journal tells of. What cannot be the name of a file of a record is left out.
[[nodiscard]] std::vector<File> filesIn(const Snapshot& after);

/// What SQLite finds the rows by that tell of files.
[[nodiscard]] QString condition();

/// What a record's file of that name, as in `File`, held last; std::nullopt if that is not known. Throws
/// Error.
[[nodiscard]] std::optional<QByteArray> hashOf(DatabaseSession& session, RecordKind kind, qint64 identifier,
                                               const QString& name);

/// The SHA-256 of a file, 32 bytes. Throws Error if it cannot be read.
[[nodiscard]] QByteArray hashOf(const std::filesystem::path& file);

} // namespace UploadedFiles
