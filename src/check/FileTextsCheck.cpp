// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/FileTextsCheck.h"

#include "check/CheckTexts.h"
#include "check/CheckedDatabase.h"
#include "check/NamedRows.h"
#include "data/EngineError.h"
#include "files/ProgramFolder.h"
#include "filetext/FileTextFailures.h"
#include "filetext/FileTextIndex.h"
#include "filetext/IndexedDocuments.h"
#include "util/ReadableLine.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <chrono>

using namespace Qt::StringLiterals;

namespace {

constexpr int indexPatienceMilliseconds = 1000;
constexpr std::chrono::milliseconds pauseForCheck(20);

/// Whether a file was read well enough to know that a search finds nothing in it.
bool holdsNoWords(const QString& failure)
{
    using namespace FileTextFailures;
    return failure == QLatin1String(empty) || failure == QLatin1String(withoutWords) ||
           failure == QLatin1String(otherType);
}

} // namespace

FileTextsCheck::FileTextsCheck(CheckedDatabase& database, const QString& file, const ProgramFolder& folder)
    : TopicCheck(CheckTopic::FileTexts),
      m_database(database),
      m_index(FileTextIndex::pathOf(file)),
      m_folder(folder.folderPath(ProgramFolders::documents))
{
}

FileTextsCheck::~FileTextsCheck()
{
    if (!m_found.valid()) return;
    sqlite3_interrupt(m_opened->getHandle());
    m_found.wait();
}

bool FileTextsCheck::step()
{
    if (!m_isRead) {
        m_isRead = readIndex();
        return true;
    }
    if (!m_isReadable) return false;
    if (!m_documents) {
        m_there = FolderNames(m_folder);
        m_documents = indexedDocuments();
        return true;
    }
    for (const HeldRow& document : m_documents->next(m_database.session()))
        look(document);
    if (!m_documents->isDone()) return true;
    tellWhatIsNoFault();
    return false;
}

/// Returns false as long as SQLite looks through the index. One that is not there is as good as empty.
bool FileTextsCheck::readIndex()
{
    if (!m_found.valid() && !QFileInfo(m_index).isFile()) return true;
    try {
        if (!m_found.valid()) {
            m_opened = std::make_unique<SQLite::Database>(QFile::encodeName(m_index).toStdString(),
                                                          SQLite::OPEN_READONLY, indexPatienceMilliseconds);
            m_found = std::async(std::launch::async, [this] { return look(); });
        }
        if (m_found.wait_for(pauseForCheck) != std::future_status::ready) return false;
        m_files = m_found.get();
    } catch (const SQLite::Exception& exception) {
        const int code = exception.getErrorCode();
        m_isReadable = false;
        if (code == SQLITE_CORRUPT || code == SQLITE_NOTADB) {
            add({CheckTexts::tr("The file %1 with the texts of the files is damaged. It can be deleted: the "
                                "program makes it anew.")
                     .arg(QFileInfo(m_index).fileName())});
        } else if (exception.getExtendedErrorCode() == SQLITE_READONLY_ROLLBACK) {
            // what was begun has to be taken back first, which would write
            setRemark(CheckTexts::tr("The reading of the files was interrupted and is not finished yet."));
        } else {
            throwEngineError(exception);
        }
    }
    return true;
}

/// Runs in the thread. Throws SQLite::Exception.
FileTextsCheck::Files FileTextsCheck::look()
{
    if (m_opened->execAndGet("PRAGMA user_version").getInt() != FileTextIndex::version) return {};
    const std::string fault = m_opened->execAndGet("PRAGMA quick_check(1)").getString();
    if (fault != "ok") throw SQLite::Exception(fault, SQLITE_CORRUPT);
    Files files;
    SQLite::Statement rows(*m_opened, "SELECT Name, Size, Changed, Failure FROM File");
    while (rows.executeStep()) {
        const SQLite::Column changed = rows.getColumn(2);
        Known& file = files[QString::fromStdString(rows.getColumn(0).getString())];
        file.size = rows.getColumn(1).getInt64();
        if (!changed.isNull()) file.changed = changed.getInt64();
        file.failure = QString::fromStdString(rows.getColumn(3).getString());
    }
    return files;
}

/// A file that is not there is another check's finding.
void FileTextsCheck::look(const HeldRow& document)
{
    const QString name = textOf(document, u"FileLocation");
    if (!m_there.contains(name) || m_seen.contains(name)) return;
    m_seen.insert(name);
    const auto known = m_files.constFind(name);
    if (known == m_files.constEnd() || wasChanged(name, *known)) {
        ++m_unread;
    } else if (holdsNoWords(known->failure)) {
        ++m_wordless;
    } else if (!known->failure.isEmpty()) {
        const qint64 identifier = wholeNumberOf(document, u"Number");
        add({CheckTexts::tr("%1 has the file %2, whose text could not be read. %3")
                 .arg(NamedRows::recordText(m_database.session(), RecordKind::Document, identifier),
                      readableLine(name), FileTextFailures::translated(known->failure)),
             Finding::Step::ShowRecord, Finding::Record{RecordKind::Document, identifier},
             u"documents/"_s + name});
    }
}

/// The moment is unknown of files that are looked at again in any case.
bool FileTextsCheck::wasChanged(const QString& name, const Known& known) const
{
    const QFileInfo file(m_folder + name);
    if (!known.changed || !file.exists()) return false;
    return file.size() != known.size || file.lastModified().toMSecsSinceEpoch() != *known.changed;
}

void FileTextsCheck::tellWhatIsNoFault()
{
    QStringList remarks;
    if (m_wordless == 1) remarks << CheckTexts::tr("The program finds no words in 1 file.");
    if (m_wordless > 1) {
        remarks << CheckTexts::tr("The program finds no words in %n files, such as pictures.", nullptr,
                                  m_wordless);
    }
    if (m_unread == 1) remarks << CheckTexts::tr("1 file has not been read yet.");
    if (m_unread > 1) remarks << CheckTexts::tr("%n files have not been read yet.", nullptr, m_unread);
    setRemark(remarks.join(u' '));
}
