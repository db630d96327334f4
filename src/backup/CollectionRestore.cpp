// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/CollectionRestore.h"

#include "backup/BackupTexts.h"
#include "data/DatabaseSession.h"
#include "files/FileBlocks.h"
#include "util/Error.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <cerrno>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestList = 256 * 1024 * 1024;
constexpr qint64 mostExpansion = 200;               ///< bytes out of one byte of the archive
constexpr qint64 alwaysAllowed = 64 * 1024 * 1024;  ///< a small archive may expand more
constexpr qint64 freeAfterwards = 64 * 1024 * 1024; ///< bytes of the disk that are left alone

const QString listName = u"manifest.json"_s;

[[noreturn]] void refuse(const QString& text, const QString& archive)
{
    throw Error(EINVAL, QStringLiteral("%1 (%2)").arg(text, archive));
}

/// The name within the collection of an entry `folder/name`; std::nullopt if it is none that a backup has.
std::optional<QString> nameInCollection(const QString& entry)
{
    const QStringList parts = entry.split(u'/');
    if (parts.size() < 2) return std::nullopt;
    const bool isSafe = std::all_of(parts.begin(), parts.end(), [](const QString& part) {
        return !part.isEmpty() && part != u"."_s && part != u".."_s && !part.contains(u'\\') &&
               !part.contains(QChar::Null);
    });
    if (!isSafe) return std::nullopt;
    const QString name = parts.mid(1).join(u'/');
    if (name == listName) return name;
    if (parts[1] != u"data"_s) return std::nullopt;
    const bool isDatabase = parts.size() == 3;
    const bool isFile =
        parts.size() > 3 && QStringList{u"documents"_s, u"orgcharts"_s, u"maps"_s}.contains(parts[2]);
    return isDatabase || isFile ? std::optional(name) : std::nullopt;
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
        begin(*entry);
        return true;
    }
    compare();
    m_isDone = true;
    return false;
}

void CollectionRestore::begin(const ArchiveReader::Entry& entry)
{
    if (entry.isFolder) return;
    const auto name = nameInCollection(entry.name);
    if (!entry.isFile || !name) {
        refuse(BackupTexts::tr(
                   "This is not a backup of a collection, or it has been tampered with: it holds %1.")
                   .arg(entry.name),
               m_archiveFile);
    }
    if (m_names.contains(name->toCaseFolded()))
        refuse(BackupTexts::tr("The backup holds %1 twice.").arg(*name), m_archiveFile);
    m_names.insert(name->toCaseFolded());
    m_name = *name;
    m_isList = m_name == listName;
    m_unpacked[m_name] = {};
    if (m_isList) return;
    m_path = fs::path(QFile::encodeName(m_target + u'/' + m_name).toStdString());
    std::error_code code;
    fs::create_directories(m_path.parent_path(), code);
    FileBlocks::require(code, m_path.parent_path());
    m_file = FileBlocks::create(m_path);
}

/// Throws Error before more is unpacked than there can honestly be, or than the disk has room for.
void CollectionRestore::limit(std::size_t more)
{
    m_bytes += static_cast<qint64>(more);
    if (m_bytes > alwaysAllowed && m_bytes / mostExpansion > m_archiveSize)
        refuse(BackupTexts::tr("The archive would expand to far more than a backup holds."), m_archiveFile);
    std::error_code code;
    const fs::space_info space = fs::space(m_path.parent_path(), code);
    if (!m_isList && !code && space.available < static_cast<std::uintmax_t>(freeAfterwards))
        FileBlocks::fail(ENOSPC, m_path);
}

void CollectionRestore::readBlock()
{
    const std::string_view block = m_reader->read();
    if (block.empty()) {
        m_unpacked[m_name].sha256 = m_hash.result();
        if (!m_isList) FileBlocks::finish(m_file, m_path);
        m_name.clear();
        return;
    }
    limit(block.size());
    m_unpacked[m_name].size += static_cast<qint64>(block.size());
    if (m_isList) {
        m_list.append(block.data(), static_cast<qsizetype>(block.size()));
        if (m_list.size() > largestList)
            refuse(BackupTexts::tr("The list of what the backup holds is too long."), m_archiveFile);
        return;
    }
    m_hash.add(block);
    FileBlocks::write(m_file, block, m_path);
}

/// Throws Error, which names the first file, if anything is not as it was when it was backed up.
void CollectionRestore::compare()
{
    if (m_list.isEmpty())
        refuse(BackupTexts::tr("The backup is not complete: the list of what it holds is missing."),
               m_archiveFile);
    m_manifest = Manifest::fromJson(m_list);
    m_unpacked.remove(listName);
    for (const Manifest::File& file : m_manifest.files) {
        const auto found = m_unpacked.constFind(file.name);
        if (found == m_unpacked.constEnd())
            refuse(BackupTexts::tr("%1 is missing in the backup.").arg(file.name), m_archiveFile);
        if (found->size != file.size || found->sha256 != file.sha256)
            refuse(BackupTexts::tr("%1 is damaged in the backup.").arg(file.name), m_archiveFile);
        m_unpacked.erase(found);
    }
    if (!m_unpacked.isEmpty())
        refuse(BackupTexts::tr("The backup holds %1, which is not on its list.").arg(m_unpacked.firstKey()),
               m_archiveFile);
    DatabaseSession session;
    session.open(database(), Access::Read);
    if (Manifest::countRows(session) != m_manifest.rows)
        refuse(BackupTexts::tr("The database does not hold as many rows as when it was backed up."),
               m_archiveFile);
}

Manifest CollectionRestore::manifestOf(const QString& archive)
{
    ArchiveReader reader(archive);
    while (const auto entry = reader.next()) {
        if (!entry->isFile || nameInCollection(entry->name) != listName) continue;
        QByteArray list;
        for (std::string_view block = reader.read(); !block.empty(); block = reader.read()) {
            list.append(block.data(), static_cast<qsizetype>(block.size()));
            if (list.size() > largestList) break;
        }
        return Manifest::fromJson(list);
    }
    refuse(BackupTexts::tr("The backup is not complete: the list of what it holds is missing."), archive);
}

QString CollectionRestore::title() const
{
    return BackupTexts::tr("Restore");
}

QString CollectionRestore::text() const
{
    return BackupTexts::tr("Unpacking and checking the files (%1) …")
        .arg(QLocale().toString(static_cast<int>(m_names.size())));
}

std::optional<int> CollectionRestore::percent() const
{
    if (m_archiveSize == 0) return std::nullopt;
    return static_cast<int>(std::min<qint64>(100, m_reader->position() * 100 / m_archiveSize));
}
