// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "filetext/FileTextSearch.h"

#include <QString>

#include <map>
#include <memory>
#include <vector>

class DatabaseSession;
struct StandardQueries;

/// The documents whose files hold the words of a keyword search, as the index of the texts had them when it
/// was searched. Whatever is wrong with the index is only noted.
class FoundInFiles
{
public:
    /// Searches for the first four words of a text. Throws Error if the documents cannot be read.
    FoundInFiles(DatabaseSession& session, const StandardQueries& queries, const QString& keywords);

    /// Why the files of the open collection cannot be searched, now or later; empty if they can.
    [[nodiscard]] static QString hindrance(const DatabaseSession& session);

    /// Returns the documents in the order of their identifiers.
    [[nodiscard]] std::vector<qint64> documents() const;

    /// Why files with the words may be missing, for the user; empty if all were searched.
    [[nodiscard]] const QString& note() const { return m_note; }

    /// Returns a place of a document's file with the words; an empty text if there is none to be shown.
    [[nodiscard]] const FilePassage& passage(qint64 document);

private:
    void match(DatabaseSession& session, const StandardQueries& queries,
               const QHash<QString, FileTextSearch::File>& files);

    std::unique_ptr<FileTextSearch> m_search; ///< null if there is no index to read
    std::map<qint64, qint64> m_files;         ///< key in the index, by document
    std::map<qint64, FilePassage> m_passages; ///< those asked for so far, by document
    QString m_note;
};
