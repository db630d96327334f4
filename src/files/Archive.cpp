// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/Archive.h"

#include "files/FilesTexts.h"
#include "util/Error.h"

#include <QFile>

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <cerrno>
#include <fcntl.h>
#include <locale.h>
#include <memory>

namespace {

constexpr std::size_t readBlock = 1 << 20;
constexpr int writeBlock = 1 << 18;
constexpr qint64 handedOverAtOnce = 2 << 20; ///< bytes for the disk
constexpr qint64 mostUnderWay = 64 << 20;
constexpr mode_t permissions = 0644; ///< of each file

[[noreturn]] void fail(int number, const QString& reason, const QString& file)
{
    throw Error(number == 0 ? EIO : number, QStringLiteral("%1 (%2)").arg(reason, file));
}

[[noreturn]] void failBySystem(int number, const QString& file)
{
    fail(number, qt_error_string(number), file);
}

/// Whether the system has failed, and not the content of an archive.
bool isOfSystem(int number)
{
    return number > 0 && number != EILSEQ && number != EINVAL;
}

[[noreturn]] void failReading(int number, const QString& file)
{
    if (isOfSystem(number)) failBySystem(number, file);
    fail(EILSEQ, FilesTexts::tr("The archive is damaged, or this file is no .zip or .tar.zst archive."),
         file);
}

[[noreturn]] void failWriting(archive* failed, const QString& file)
{
    const int number = archive_errno(failed);
    if (isOfSystem(number)) failBySystem(number, file);
    fail(EIO, QString::fromLocal8Bit(archive_error_string(failed)), file);
}

/// Lets libarchive take and return names in UTF-8, whatever the locale of the process is.
class Utf8Names
{
public:
    Utf8Names() : m_utf8(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr))
    {
        if (m_utf8 != nullptr) m_before = uselocale(m_utf8);
    }
    ~Utf8Names()
    {
        if (m_utf8 == nullptr) return;
        uselocale(m_before);
        freelocale(m_utf8);
    }
    Utf8Names(const Utf8Names&) = delete;
    Utf8Names& operator=(const Utf8Names&) = delete;

private:
    locale_t m_utf8;
    locale_t m_before = nullptr;
};

struct EntryFree
{
    void operator()(archive_entry* entry) const { archive_entry_free(entry); }
};

} // namespace

std::optional<ArchiveFormat> archiveFormatOf(const QString& fileName)
{
    if (fileName.endsWith(QStringLiteral(".zip"), Qt::CaseInsensitive)) return ArchiveFormat::Zip;
    if (fileName.endsWith(QStringLiteral(".tar.zst"), Qt::CaseInsensitive)) return ArchiveFormat::TarZstd;
    return std::nullopt;
}

ArchiveWriter::ArchiveWriter(const QString& file) : m_target(file), m_archive(archive_write_new())
{
    const Utf8Names names;
    try {
        if (archiveFormatOf(file) == ArchiveFormat::Zip) {
            require(archive_write_set_format_zip(m_archive));
            require(archive_write_set_options(m_archive, "hdrcharset=UTF-8"));
        } else {
            require(archive_write_set_format_pax_restricted(m_archive));
            require(archive_write_add_filter_zstd(m_archive));
            // one thread compresses while this one reads and hashes, as tar and zstd work side by side
            archive_write_set_filter_option(m_archive, "zstd", "threads", "1");
        }
        archive_write_set_bytes_per_block(m_archive, writeBlock);
        archive_write_set_bytes_in_last_block(m_archive, 1);
        require(archive_write_open_fd(m_archive, m_target.descriptor()));
    } catch (...) {
        archive_write_free(m_archive);
        throw;
    }
}

ArchiveWriter::~ArchiveWriter()
{
    archive_write_free(m_archive);
}

void ArchiveWriter::require(int result) const
{
    if (result == ARCHIVE_OK) return; // a warning means that a name is not as it should be
    failWriting(m_archive, m_target.file());
}

void ArchiveWriter::begin(const QString& name, qint64 size, qint64 modified)
{
    const Utf8Names names;
    const std::unique_ptr<archive_entry, EntryFree> entry(archive_entry_new());
    archive_entry_set_pathname_utf8(entry.get(), name.toUtf8().constData());
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), permissions);
    archive_entry_set_size(entry.get(), size);
    archive_entry_set_mtime(entry.get(), static_cast<time_t>(modified), 0);
    require(archive_write_header(m_archive, entry.get()));
    m_missing = size;
}

void ArchiveWriter::write(std::string_view content)
{
    if (static_cast<qint64>(content.size()) > m_missing)
        content = content.substr(0, static_cast<std::size_t>(m_missing));
    while (!content.empty()) {
        const la_ssize_t written = archive_write_data(m_archive, content.data(), content.size());
        if (written <= 0) failWriting(m_archive, m_target.file());
        content.remove_prefix(static_cast<std::size_t>(written));
        m_missing -= written;
    }
    keepDiskBusy();
}

/// Has the disk write along, and waits when too much is under way. At the end there is little left to wait
/// for, and nobody's memory is full of what a slow disk has not taken yet.
void ArchiveWriter::keepDiskBusy()
{
#ifdef Q_OS_LINUX
    const qint64 written = archive_filter_bytes(m_archive, -1);
    if (written - m_underWay < handedOverAtOnce) return;
    constexpr unsigned wait =
        SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    const qint64 waitedFor = std::max<qint64>(0, m_underWay - mostUnderWay);
    const qint64 due = std::max<qint64>(0, written - mostUnderWay);
    const bool failed =
        ::sync_file_range(m_target.descriptor(), m_underWay, written - m_underWay, SYNC_FILE_RANGE_WRITE) !=
            0 ||
        (due > waitedFor && ::sync_file_range(m_target.descriptor(), waitedFor, due - waitedFor, wait) != 0);
    m_underWay = written;
    if (failed && (errno == EIO || errno == ENOSPC || errno == EDQUOT)) failBySystem(errno, m_target.file());
#endif
}

void ArchiveWriter::finish()
{
    const Utf8Names names;
    require(archive_write_close(m_archive));
    m_target.finish();
}

ArchiveReader::ArchiveReader(const QString& file) : m_file(file), m_archive(archive_read_new())
{
    const Utf8Names names;
    archive_read_support_filter_zstd(m_archive);
    archive_read_support_format_tar(m_archive);
    archive_read_support_format_zip(m_archive);
    errno = 0; // some failures pass on what it happens to be
    const int result = archive_read_open_filename(m_archive, QFile::encodeName(file).constData(), readBlock);
    if (result >= ARCHIVE_WARN) return;
    const int number = archive_errno(m_archive);
    archive_read_free(m_archive);
    failReading(number, file);
}

ArchiveReader::~ArchiveReader()
{
    archive_read_free(m_archive);
}

void ArchiveReader::require(int result) const
{
    if (result >= ARCHIVE_WARN) return;
    failReading(archive_errno(m_archive), m_file);
}

std::optional<ArchiveReader::Entry> ArchiveReader::next()
{
    const Utf8Names names;
    archive_entry* entry = nullptr;
    errno = 0;
    const int result = archive_read_next_header(m_archive, &entry);
    if (result == ARCHIVE_EOF) return std::nullopt;
    require(result);
    if (archive_entry_is_encrypted(entry) != 0)
        fail(EILSEQ, FilesTexts::tr("The archive is encrypted and cannot be read."), m_file);
    Entry found;
    found.name = QString::fromUtf8(archive_entry_pathname_utf8(entry));
    const bool isLink = archive_entry_hardlink(entry) != nullptr || archive_entry_symlink(entry) != nullptr;
    found.isFile = !isLink && archive_entry_filetype(entry) == AE_IFREG;
    found.isFolder = !isLink && archive_entry_filetype(entry) == AE_IFDIR;
    if (archive_entry_size_is_set(entry) != 0) found.size = archive_entry_size(entry);
    if (archive_entry_mtime_is_set(entry) != 0) found.modified = archive_entry_mtime(entry);
    return found;
}

std::string_view ArchiveReader::read()
{
    m_buffer.resize(readBlock);
    errno = 0;
    const la_ssize_t count = archive_read_data(m_archive, m_buffer.data(), m_buffer.size());
    if (count < 0) failReading(archive_errno(m_archive), m_file);
    return {m_buffer.data(), static_cast<std::size_t>(count)};
}

qint64 ArchiveReader::position() const
{
    return archive_filter_bytes(m_archive, -1);
}
