// SPDX-License-Identifier: GPL-3.0-or-later

#include "backup/CollectionBackup.h"

#include "backup/BackupTexts.h"
#include "data/DatabaseSession.h"
#include "files/DatabaseFile.h"
#include "files/FileBlocks.h"
#include "files/ProgramFolder.h"
#include "util/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>
#include <cerrno>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace {

fs::path pathOf(const QString& file)
{
    return {QFile::encodeName(file).toStdString()};
}

qint64 secondsOf(const fs::path& file)
{
    return QFileInfo(QFile::decodeName(file.c_str())).lastModified().toSecsSinceEpoch();
}

} // namespace

CollectionBackup::CollectionBackup(const QString& database, const ProgramFolder& folder,
                                   const QString& archive, const QDateTime& now, BackupContents contents)
    : m_database(database), m_archiveFile(archive), m_copy(archive + u".sqlite.part"_s)
{
    m_manifest.made = now;
    m_manifest.collection = QFileInfo(folder.root()).fileName();
    m_manifest.database = u"data/"_s + QFileInfo(database).fileName();
    if (contents == BackupContents::All) addFolders(folder);
    m_writer = std::make_unique<ArchiveWriter>(archive);
}

/// The folders of files beside the database.
void CollectionBackup::addFolders(const ProgramFolder& folder)
{
    const std::pair<QString, const char*> folders[] = {{ProgramFolders::documents, "data/documents"},
                                                       {ProgramFolders::organizationCharts, "data/orgcharts"},
                                                       {ProgramFolders::maps, "data/maps"}};
    for (const auto& [path, name] : folders) {
        const QString found = folder.folderPath(path);
        if (fs::is_directory(FileBlocks::statusOf(pathOf(found)))) m_list.add(found, name);
    }
}

CollectionBackup::~CollectionBackup()
{
    removeCopy();
}

void CollectionBackup::removeCopy() const
{
    for (const char* ending : {"", ".part", "-journal"})
        QFile::remove(m_copy + QLatin1String(ending));
}

bool CollectionBackup::step()
{
    switch (m_stage) {
    case Stage::Listing:
        if (!m_list.step()) m_stage = Stage::Copying;
        return true;
    case Stage::Copying:
        copyDatabaseFile();
        m_stage = Stage::Database;
        return true;
    case Stage::Database:
        if (writeBlock()) return true;
        removeCopy();
        m_stage = Stage::Files;
        return true;
    case Stage::Files:
        if (m_source.is_open() && writeBlock()) return true;
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

/// The archive takes a database that nobody changes while it is read.
void CollectionBackup::copyDatabaseFile()
{
    copyDatabase(m_database, m_copy);
    DatabaseSession session;
    session.open(m_copy, Access::Read);
    m_manifest.rows = Manifest::countRows(session);
    session.close();
    m_databaseSize = QFileInfo(m_copy).size();
    begin(pathOf(m_copy), m_manifest.database);
}

void CollectionBackup::beginNext()
{
    const FolderList::Entry& entry = m_list.entries()[m_next++];
    if (!entry.isFolder) begin(entry.from, QFile::decodeName(entry.to.generic_string().c_str()));
}

void CollectionBackup::begin(const fs::path& file, const QString& name)
{
    m_path = file;
    m_source = FileBlocks::open(file);
    std::error_code code;
    const auto size = fs::file_size(file, code);
    FileBlocks::require(code, file);
    m_left = static_cast<qint64>(size);
    m_hash.reset();
    m_manifest.files.push_back({name, m_left, {}});
    m_writer->begin(m_manifest.collection + u'/' + name, m_left, secondsOf(file));
}

/// Writes the next part of the file that was begun. Returns false once it is complete.
bool CollectionBackup::writeBlock()
{
    std::string_view block = FileBlocks::read(m_source, m_buffer, m_path);
    block = block.substr(
        0, static_cast<std::size_t>(std::min<qint64>(m_left, static_cast<qint64>(block.size()))));
    if (block.empty()) {
        m_source.close();
        if (m_left > 0) {
            throw Error(
                EIO, BackupTexts::tr("The file became shorter while it was backed up. Please try again. (%1)")
                         .arg(QFile::decodeName(m_path.c_str())));
        }
        m_manifest.files.back().sha256 = m_hash.result();
        ++m_done.files;
        return false;
    }
    m_hash.addData(QByteArrayView(block.data(), static_cast<qsizetype>(block.size())));
    m_writer->write(block);
    m_left -= static_cast<qint64>(block.size());
    m_done.bytes += static_cast<qint64>(block.size());
    return true;
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
    removeCopy();
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

std::optional<int> CollectionBackup::percent() const
{
    if (m_stage == Stage::Listing || m_stage == Stage::Copying) return std::nullopt;
    const qint64 all = m_list.amount().bytes + m_databaseSize;
    return all == 0 ? 100 : static_cast<int>(std::min<qint64>(100, m_done.bytes * 100 / all));
}
