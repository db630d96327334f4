// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/CollectionBackup.h"

#include "backup/BackupTexts.h"
#include "data/DatabaseSession.h"
#include "files/FileBlocks.h"
#include "files/FileCopy.h"
#include "files/ProgramFolder.h"
#include "util/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <chrono>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace {

QString textOf(const fs::path& file)
{
    return QFile::decodeName(file.c_str());
}

/// Throws Error if the archive would be among the files that it is made of, and so in the next one too.
void refuseInside(const ProgramFolder& folder, const QString& archive)
{
    const auto canonical = [](const QString& path) { return QFileInfo(path).canonicalFilePath(); };
    const QString data = canonical(folder.folderPath(ProgramFolders::data));
    QStringList taken;
    if (canonical(folder.collection()) != data) taken << data;
    for (const QString& path : ProgramFolders::ofFiles)
        taken << canonical(folder.folderPath(path));
    const QString place = canonical(QFileInfo(archive).absolutePath()) + u'/';
    const bool isInside = std::any_of(taken.begin(), taken.end(), [&place](const QString& path) {
        return !path.isEmpty() && place.startsWith(path + u'/');
    });
    if (!isInside) return;
    throw Error(EINVAL,
                BackupTexts::tr("A backup cannot lie among the files of its collection. Please choose "
                                "another folder. (%1)")
                    .arg(archive));
}

/// The name of an entry. What no text can stand for, in a name that another system gave, is written as in an
/// address, such as `%E9`.
QString entryName(const std::string& path)
{
    const QByteArray bytes = QByteArray::fromStdString(path);
    QString text = QString::fromUtf8(bytes);
    if (text.toUtf8() == bytes) return text;
    QByteArray readable;
    for (const char c : bytes) {
        if (static_cast<signed char>(c) >= 0)
            readable += c;
        else
            readable += '%' + QByteArray(1, c).toHex().toUpper();
    }
    return QString::fromLatin1(readable);
}

/// Whether an entry of the list stays out of the backup.
bool isLeftOut(const FolderList::Entry& entry)
{
    const fs::path path = entry.to;
    return entry.isFolder || std::any_of(path.begin(), path.end(), &FileCopy::isUnfinished);
}

} // namespace

CollectionBackup::CollectionBackup(const QString& database, const ProgramFolder& folder,
                                   const QString& archive, const QDateTime& now, BackupContents contents)
    : m_database(database)
{
    const QString name = QFileInfo(folder.collection()).fileName();
    m_manifest.made = now;
    m_manifest.collection = name.isEmpty() ? QFileInfo(database).completeBaseName() : name;
    m_manifest.database = u"data/"_s + QFileInfo(database).fileName();
    refuseInside(folder, archive);
    if (contents == BackupContents::All) m_list = FolderList::of(folder, ProgramFolders::ofFiles);
    m_writer = std::make_unique<ArchiveWriter>(archive);
}

CollectionBackup::~CollectionBackup() = default;

bool CollectionBackup::step()
{
    switch (m_stage) {
    case Stage::Listing:
        if (!m_list.step()) m_stage = Stage::Copying;
        return true;
    case Stage::Copying:
        copyDatabaseFile();
        return true;
    case Stage::Writing:
        if (m_source.is_open()) {
            writeBlock();
            return true;
        }
        if (m_next < m_list.entries().size()) {
            beginNext();
            return true;
        }
        finish();
        m_stage = Stage::Done;
        return false;
    case Stage::Done:
        break;
    }
    return false;
}

QString CollectionBackup::databaseCopy() const
{
    return m_copyFolder->filePath(QFileInfo(m_database).fileName());
}

/// The archive takes a copy that nobody changes while it is read.
void CollectionBackup::copyDatabaseFile()
{
    if (!m_copy) {
        m_copyFolder.emplace(QDir::tempPath() + u"/orvik-backup"_s);
        if (!m_copyFolder->isValid())
            throw Error(EIO, u"%1 (%2)"_s.arg(m_copyFolder->errorString(), QDir::tempPath()));
        m_copy.emplace(m_database, databaseCopy());
    }
    try {
        if (m_copy->step()) return;
    } catch (const Error& error) {
        // the disk of the database has room enough
        if (error.number() == SQLITE_FULL) FileBlocks::fail(ENOSPC, FileBlocks::pathOf(QDir::tempPath()));
        throw;
    }
    m_copy.reset();
    DatabaseSession session;
    session.open(databaseCopy(), Access::Read);
    m_manifest.rows = Manifest::countRows(session);
    session.close();
    begin(FileBlocks::pathOf(databaseCopy()), m_manifest.database);
    m_databaseSize = m_left;
    m_stage = Stage::Writing;
}

/// A file that went since it was listed, such as one that another program locks a document by, is none of the
/// collection any more.
void CollectionBackup::beginNext()
{
    const FolderList::Entry& entry = m_list.entries()[m_next++];
    std::error_code code;
    if (isLeftOut(entry) || fs::status(entry.from, code).type() == fs::file_type::not_found) return;
    begin(entry.from, u"data/"_s + entryName(entry.to));
}

void CollectionBackup::begin(const fs::path& file, const QString& name)
{
    m_path = file;
    m_source = FileBlocks::open(file);
    m_state = stateOf(file);
    m_left = static_cast<qint64>(m_state.size);
    m_manifest.files.push_back({name, m_left, {}});
    using std::chrono::seconds;
    const auto modified = fs::file_time_type::clock::to_sys(m_state.modified).time_since_epoch();
    m_writer->begin(m_manifest.collection + u'/' + name, m_left,
                    std::chrono::floor<seconds>(modified).count());
}

CollectionBackup::FileState CollectionBackup::stateOf(const fs::path& file)
{
    std::error_code code;
    const FileState state{fs::file_size(file, code),
                          code ? fs::file_time_type() : fs::last_write_time(file, code)};
    FileBlocks::require(code, file);
    return state;
}

/// Writes the next part of the file that was begun.
void CollectionBackup::writeBlock()
{
    const std::string_view block = FileBlocks::read(m_source, m_buffer, m_path);
    if (block.empty()) {
        complete();
        return;
    }
    m_hash.add(block);
    m_writer->write(block);
    m_left -= static_cast<qint64>(block.size());
    m_done.bytes += static_cast<qint64>(block.size());
    if (m_left < 0) complete();
}

void CollectionBackup::complete()
{
    m_source.close();
    if (m_left != 0 || stateOf(m_path) != m_state) {
        throw Error(EBUSY,
                    BackupTexts::tr("The file was changed while it was backed up. Please try again. (%1)")
                        .arg(textOf(m_path)));
    }
    m_manifest.files.back().sha256 = m_hash.result();
    ++m_done.files;
    m_copyFolder.reset(); // the database comes first
}

void CollectionBackup::finish()
{
    const QByteArray list = m_manifest.toJson();
    m_writer->begin(m_manifest.collection + u"/manifest.json"_s, list.size(),
                    m_manifest.made.toSecsSinceEpoch());
    m_writer->write({list.constData(), static_cast<std::size_t>(list.size())});
    m_writer->finish();
}

/// The archive that was begun goes at once.
bool CollectionBackup::undoStep()
{
    m_source.close();
    m_writer.reset();
    m_copy.reset();
    m_copyFolder.reset();
    return false;
}

QString CollectionBackup::title() const
{
    return BackupTexts::tr("Back Up");
}

QString CollectionBackup::text() const
{
    if (m_stage == Stage::Listing) return m_list.text();
    if (m_stage == Stage::Copying) return BackupTexts::tr("Copying the database …");
    const QLocale locale;
    FolderList::Amount all = m_list.amount();
    all.bytes += m_databaseSize;
    return BackupTexts::tr("Backing up the files (%1 of %2, %3 of %4) …")
        .arg(locale.toString(m_done.files), locale.toString(all.files + 1), m_done.sizeText(),
             all.sizeText());
}

std::optional<WorkBytes> CollectionBackup::bytes() const
{
    if (m_stage == Stage::Listing || m_stage == Stage::Copying) return std::nullopt;
    return WorkBytes{m_done.bytes, m_list.amount().bytes + m_databaseSize};
}

std::optional<int> CollectionBackup::percent() const
{
    const std::optional<WorkBytes> amount = bytes();
    if (!amount) return std::nullopt;
    return amount->all == 0 ? 100 : static_cast<int>(std::min<qint64>(100, amount->done * 100 / amount->all));
}
