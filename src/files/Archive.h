// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/UnfinishedFile.h"

#include <QString>

#include <optional>
#include <string>
#include <string_view>

struct archive;

/// How the files of a backup are put together and compressed.
enum class ArchiveFormat
{
    Zip,
    TarZstd
};

/// The format that the name of a file stands for; std::nullopt if it stands for none.
[[nodiscard]] std::optional<ArchiveFormat> archiveFormatOf(const QString& fileName);

/// Writes an archive, file by file. What is not finished is removed with the object. Every failure is an
/// Error with the system's number and the path.
class ArchiveWriter
{
public:
    /// The name of `file` says the format. A file that is there already is replaced in the end.
    explicit ArchiveWriter(const QString& file);
    ~ArchiveWriter();
    ArchiveWriter(const ArchiveWriter&) = delete;
    ArchiveWriter& operator=(const ArchiveWriter&) = delete;

    /// Begins a file of so many bytes, all of which are then to be written; `modified` is in seconds since
    /// 1970.
    void begin(const QString& name, qint64 size, qint64 modified);
    void write(std::string_view content);

    /// Returns when the archive has its name and is on the disk.
    void finish();

private:
    void require(int result) const;
    void keepDiskBusy();

    UnfinishedFile m_target;
    archive* m_archive;
    qint64 m_missing = 0;  ///< bytes of the file that was begun
    qint64 m_underWay = 0; ///< bytes of the archive that the disk was asked to write
};

/// Reads an archive, file by file. Every failure is an Error, that of an archive which is damaged with
/// EILSEQ.
class ArchiveReader
{
public:
    explicit ArchiveReader(const QString& file);
    ~ArchiveReader();
    ArchiveReader(const ArchiveReader&) = delete;
    ArchiveReader& operator=(const ArchiveReader&) = delete;

    /// What the archive says of an entry; nothing of it is to be trusted.
    struct Entry
    {
        QString name;
        bool isFile = false; ///< neither a folder nor a link nor anything else
        bool isFolder = false;
        qint64 size = 0;                ///< 0 if it is not known before it is read
        std::optional<qint64> modified; ///< in seconds since 1970
    };

    /// The next entry; std::nullopt after the last.
    [[nodiscard]] std::optional<Entry> next();

    /// The next part of the content of an entry, empty at its end; valid until the next call.
    [[nodiscard]] std::string_view read();

    /// How much of the archive has been read, in bytes of the archive.
    [[nodiscard]] qint64 position() const;

private:
    void require(int result) const;

    QString m_file;
    archive* m_archive;
    std::string m_buffer;
};
