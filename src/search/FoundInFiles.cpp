// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/FoundInFiles.h"

#include "data/DatabaseSession.h"
#include "files/FolderNames.h"
#include "files/ProgramFolder.h"
#include "filetext/FileTextIndex.h"
#include "search/KeywordSearch.h"
#include "search/SearchTexts.h"
#include "util/Error.h"
#include "views/StandardQueries.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace {

QString noteOf(const Error& error, const QString& index)
{
    if (error.isOfLock())
        return SearchTexts::tr("The files are being read at this moment. Search again in a while.");
    if (error.isOfDamage())
        return SearchTexts::tr("The file %1 with the texts of the files is damaged. It can be deleted: the "
                               "program makes it anew.")
            .arg(QFileInfo(index).fileName());
    return SearchTexts::tr("The files could not be searched: %1").arg(error.description());
}

/// Returns how many of the files lie in the folder of a database; the index has only those.
int existingOf(const QSet<QString>& names, const QString& database)
{
    if (names.isEmpty()) return 0;
    const ProgramFolder folder = ProgramFolder(QString()).ofDatabase(database);
    const FolderNames existing(folder.folderPath(ProgramFolders::documents));
    return static_cast<int>(std::count_if(names.begin(), names.end(), [&existing](const QString& name) {
        return ProgramFolder::isPlainName(name) && existing.contains(name);
    }));
}

} // namespace

QString FoundInFiles::hindrance(const DatabaseSession& session)
{
    if (!session.isOpen()) return SearchTexts::tr("No database is open.");
    if (!session.isReadOnly() || QFileInfo::exists(FileTextIndex::pathOf(session.fileName()))) return {};
    return SearchTexts::tr(
        "This collection cannot be changed, so nothing is kept of the texts of its files.");
}

FoundInFiles::FoundInFiles(DatabaseSession& session, const StandardQueries& queries, const QString& keywords)
{
    m_note = hindrance(session);
    if (!m_note.isEmpty()) return;
    const QString index = FileTextIndex::pathOf(session.fileName());
    QHash<QString, FileTextSearch::File> files;
    try {
        m_search = FileTextSearch::open(index, splitWords(keywords).words);
        if (m_search) files = m_search->files();
    } catch (const Error& error) {
        m_note = noteOf(error, index);
        m_search.reset();
        return;
    }
    match(session, queries, files);
}

/// Finds the documents of the files.
void FoundInFiles::match(DatabaseSession& session, const StandardQueries& queries,
                         const QHash<QString, FileTextSearch::File>& files)
{
    QSet<QString> missing;
    RecordSet rows = session.read(QStringLiteral("SELECT Document.DocumentID, FileLocation ") +
                                  queries.documents->FromClause + u' ' + queries.documents->WhereClause +
                                  QStringLiteral(" AND FileLocation <> ''"));
    while (rows.next()) {
        const QString name = rows.text(1);
        const auto file = files.constFind(name);
        if (file == files.constEnd()) {
            missing.insert(name);
        } else if (file->isFound) {
            m_files[rows.integer(0)] = file->key;
        }
    }
    const int unread = existingOf(missing, session.fileName());
    if (unread == 0) return;
    m_note = files.isEmpty() ? SearchTexts::tr("The files have not been read yet.")
             : unread == 1   ? SearchTexts::tr("1 file has not been read yet.")
                             : SearchTexts::tr("%n files have not been read yet.", nullptr, unread);
}

std::vector<qint64> FoundInFiles::documents() const
{
    std::vector<qint64> identifiers;
    identifiers.reserve(m_files.size());
    for (const auto& [document, file] : m_files)
        identifiers.push_back(document);
    return identifiers;
}

const FilePassage& FoundInFiles::passage(qint64 document)
{
    static const FilePassage none;
    const auto file = m_files.find(document);
    if (file == m_files.end()) return none;
    const auto known = m_passages.find(document);
    if (known != m_passages.end()) return known->second;
    FilePassage& passage = m_passages[document];
    try {
        passage = m_search->passage(file->second);
    } catch (const Error&) {
        // a row without a passage; the next search says what is wrong with the index
    }
    return passage;
}
