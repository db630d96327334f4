// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/CollectionRestore.h"

#include "backup/BackupTexts.h"
#include "data/DatabaseSession.h"
#include "util/Error.h"
#include "util/ReadableLine.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <cerrno>
#include <chrono>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestLine = 32'768;     ///< bytes of the list that tell of one file, if all are escapes
constexpr qint64 mostExpansion = 200;         ///< bytes out of one byte of the archive
constexpr qint64 alwaysAllowed = 256'000'000; ///< a small archive may expand more
constexpr qint64 freeAfterwards = 64'000'000; ///< bytes of the disk that are left alone

const QString listName = u"manifest.json"_s;

[[noreturn]] void refuse(const QString& text, const QString& archive)
{
    throw Error(EINVAL, QStringLiteral("%1 (%2)").arg(text, archive));
}

/// Where an entry of the archive belongs.
struct EntryName
{
    QString collection;
    QString name; ///< within the collection
};

/// std::nullopt if it is no name that a backup has.
std::optional<EntryName> entryName(const QString& entry)
{
    const QStringList parts = entry.split(u'/');
    if (parts.size() < 2) return std::nullopt;
    const bool isSafe = std::all_of(parts.begin(), parts.end(), [](const QString& part) {
        return !part.isEmpty() && part != u"."_s && part != u".."_s && !part.contains(u'\\') &&
               !part.contains(QChar::Null);
    });
    if (!isSafe) return std::nullopt;
    const EntryName found{parts[0], parts.mid(1).join(u'/')};
    if (found.name == listName) return found;
    if (parts[1] != u"data"_s) return std::nullopt;
    const bool isDatabase = parts.size() == 3;
    const bool isFile =
        parts.size() > 3 && QStringList{u"documents"_s, u"orgcharts"_s, u"maps"_s}.contains(parts[2]);
    return isDatabase || isFile ? std::optional(found) : std::nullopt;
}

bool isDatabase(const QString& name)
{
    return name != listName && name.count(u'/') == 1;
}

[[noreturn]] void refuseDamaged(const QString& name, const QString& archive)
{
    refuse(BackupTexts::tr("%1 is damaged in the backup.").arg(readableLine(name)), archive);
}

[[noreturn]] void refuseForeign(const QString& entry, const QString& archive)
{
    refuse(BackupTexts::tr("This is not a backup of a collection, or it has been tampered with: it holds %1.")
               .arg(readableLine(entry)),
           archive);
}

/// The next file of an archive, the first of which is the database; std::nullopt after the last. Throws
/// Error.
std::optional<EntryName> nextFile(ArchiveReader& reader, const QString& archive)
{
    while (const auto entry = reader.next()) {
        if (entry->isFolder) continue;
        auto name = entryName(entry->name);
        if (!entry->isFile || !name) refuseForeign(entry->name, archive);
        return name;
    }
    return std::nullopt;
}

[[noreturn]] void refuseIncomplete(const QString& archive)
{
    refuse(BackupTexts::tr("The backup is not complete: the list of what it holds is missing."), archive);
}

/// Has a file the time that it had; one that no system knows is left out.
void setModified(const fs::path& file, std::optional<qint64> seconds)
{
    constexpr qint64 latest = qint64(1) << 33;
    if (!seconds || *seconds < 0 || *seconds > latest) return;
    const std::chrono::sys_seconds moment{std::chrono::seconds(*seconds)};
    std::error_code ignored; // the content is what counts
    fs::last_write_time(file, fs::file_time_type::clock::from_sys(moment), ignored);
}

} // namespace

CollectionRestore::CollectionRestore(const QString& archive, const QString& target)
    : m_archiveFile(archive), m_target(target), m_archiveSize(QFileInfo(archive).size())
{
    m_reader.emplace(archive);
}

bool CollectionRestore::step()
{
    if (m_isDone) return false;
    if (!m_name.isEmpty()) {
        readBlock();
        return true;
    }
    const auto entry = m_reader->next();
    if (entry) {
        if (!entry->isFolder) begin(*entry);
        return true;
    }
    compare();
    m_isDone = true;
    return false;
}

/// Whether an entry has its place in the one collection of the archive. A second file beside the folders
/// could be a journal, which changes the database when that is opened, or something else that the program
/// acts on.
bool CollectionRestore::isExpected(const QString& folder, const QString& name)
{
    if (m_collection.isEmpty()) m_collection = folder;
    if (isDatabase(name) && m_database.isEmpty()) m_database = name;
    return folder == m_collection && (!isDatabase(name) || name == m_database);
}

void CollectionRestore::begin(const ArchiveReader::Entry& entry)
{
    const auto found = entryName(entry.name);
    if (!entry.isFile || !found || !isExpected(found->collection, found->name))
        refuseForeign(entry.name, m_archiveFile);
    m_name = found->name;
    m_isList = m_name == listName;
    m_path = FileBlocks::pathOf(m_target + u'/' + m_name);
    std::error_code code;
    // the second may have another letter case, on a system where that does not count
    if (m_unpacked.contains(m_name) || fs::exists(fs::symlink_status(m_path, code)))
        refuse(BackupTexts::tr("The backup holds %1 twice.").arg(readableLine(m_name)), m_archiveFile);
    m_unpacked[m_name] = {};
    if (m_isList) return;
    fs::create_directories(m_path.parent_path(), code);
    FileBlocks::require(code, m_path.parent_path());
    requireRoom(entry.size);
    m_modified = entry.modified;
    m_file.emplace(m_path);
}

/// Throws Error if the disk of the file that was begun does not have so many bytes to spare.
void CollectionRestore::requireRoom(qint64 size) const
{
    std::error_code code;
    const fs::space_info space = fs::space(m_path.parent_path(), code);
    if (!code &&
        space.available < static_cast<std::uintmax_t>(freeAfterwards) + static_cast<std::uintmax_t>(size))
        FileBlocks::fail(ENOSPC, m_path);
}

/// Throws Error before more is unpacked than there can honestly be, or than the disk has room for.
void CollectionRestore::limit(std::size_t more)
{
    m_bytes += static_cast<qint64>(more);
    if (m_bytes > alwaysAllowed && m_bytes / mostExpansion > m_archiveSize)
        refuse(BackupTexts::tr("The archive would expand to far more than a backup holds."), m_archiveFile);
    if (!m_isList) requireRoom(0);
}

std::string_view CollectionRestore::nextBlock()
{
    try {
        return m_reader->read();
    } catch (const Error& error) {
        if (error.number() != EILSEQ) throw;
        refuseDamaged(m_name, m_archiveFile);
    }
}

void CollectionRestore::readBlock()
{
    const std::string_view block = nextBlock();
    if (block.empty()) {
        complete();
        return;
    }
    limit(block.size());
    if (m_isList) {
        readList(block);
        return;
    }
    m_unpacked[m_name].size += static_cast<qint64>(block.size());
    m_hash.add(block);
    m_file->write(block);
}

/// The list is read into memory, so it may be no longer than the files that were unpacked account for.
void CollectionRestore::readList(std::string_view block)
{
    m_list.append(block.data(), static_cast<qsizetype>(block.size()));
    if (m_list.size() > (m_unpacked.size() + 1) * longestLine)
        refuse(BackupTexts::tr("The list of what the backup holds is too long."), m_archiveFile);
}

void CollectionRestore::complete()
{
    if (!m_isList) {
        m_unpacked[m_name].sha256 = m_hash.result();
        m_file->finish();
        m_file.reset();
        setModified(m_path, m_modified);
    }
    m_name.clear();
}

bool CollectionRestore::undoStep()
{
    m_file.reset();
    if (m_unpacked.isEmpty()) return false;
    QFile::remove(m_target + u'/' + m_unpacked.firstKey());
    m_unpacked.erase(m_unpacked.begin());
    return true;
}

/// Throws Error, which names the first file, if anything is not as it was when it was backed up.
void CollectionRestore::compare()
{
    if (m_list.isEmpty()) refuseIncomplete(m_archiveFile);
    m_manifest = Manifest::fromJson(m_list);
    m_list.clear();
    m_unpacked.remove(listName);
    const bool hasDatabase = !m_database.isEmpty() && m_manifest.database == m_database;
    if (!hasDatabase) refuseForeign(m_manifest.database, m_archiveFile);
    for (const Manifest::File& file : m_manifest.files) {
        const auto found = m_unpacked.constFind(file.name);
        if (found == m_unpacked.constEnd())
            refuse(BackupTexts::tr("%1 is missing in the backup.").arg(readableLine(file.name)),
                   m_archiveFile);
        if (found->size != file.size || found->sha256 != file.sha256) refuseDamaged(file.name, m_archiveFile);
        m_unpacked.erase(found);
    }
    if (!m_unpacked.isEmpty())
        refuse(BackupTexts::tr("The backup holds %1, which is not on its list.")
                   .arg(readableLine(m_unpacked.firstKey())),
               m_archiveFile);
    DatabaseSession session;
    session.open(database(), Access::Read);
    const QMap<QString, qint64> rows = Manifest::countRows(session);
    for (auto table = rows.begin(); table != rows.end(); ++table) {
        if (m_manifest.rows.value(table.key(), table.value()) != table.value())
            refuse(BackupTexts::tr("The database does not hold as many rows as when it was backed up."),
                   m_archiveFile);
    }
}

QString CollectionRestore::collectionIn(const QString& archive)
{
    ArchiveReader reader(archive);
    const auto first = nextFile(reader, archive);
    if (!first) refuseIncomplete(archive);
    return first->collection;
}

bool CollectionRestore::holdsDatabaseAlone(const QString& archive)
{
    ArchiveReader reader(archive);
    const auto first = nextFile(reader, archive);
    if (!first || !isDatabase(first->name)) return false;
    const auto second = nextFile(reader, archive);
    return second && second->name == listName;
}

QString CollectionRestore::title() const
{
    return BackupTexts::tr("Restore");
}

QString CollectionRestore::text() const
{
    return BackupTexts::tr("Unpacking and checking the files (%1) …")
        .arg(QLocale().toString(m_unpacked.size()));
}

std::optional<WorkBytes> CollectionRestore::bytes() const
{
    return WorkBytes{std::min(m_reader->position(), m_archiveSize), m_archiveSize};
}

std::optional<int> CollectionRestore::percent() const
{
    if (m_archiveSize == 0) return std::nullopt;
    return static_cast<int>(bytes()->done * 100 / m_archiveSize);
}
