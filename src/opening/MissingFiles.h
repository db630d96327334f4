// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "data/TableScan.h"
#include "files/FolderNames.h"

#include <QSet>
#include <QStringList>

#include <vector>

class DatabaseSession;
class ProgramFolder;

/// A record whose file is not in its folder.
struct MissingFile
{
    RecordKind kind;
    qint64 identifier;
    QString name; ///< of the file, as stored; of a chart, the one that it would have
};

/// Looks for the files of all records, whatever the letter case of their names, a portion of the records at a
/// time. Deleted records do not count.
class MissingFileSearch
{
public:
    /// Reads the names in the folders.
    explicit MissingFileSearch(const ProgramFolder& folder);

    /// The files missing in the next portion. Throws Error.
    [[nodiscard]] std::vector<MissingFile> next(DatabaseSession& session);

    [[nodiscard]] bool isDone() const { return m_documentRows.isDone() && m_profileRows.isDone(); }

private:
    FolderNames m_documents;
    FolderNames m_charts;
    TableScan m_documentRows;
    TableScan m_profileRows;
    QSet<qint64> m_told; ///< an organization may have two profiles
};

/// How many records name files that are not in the folders of a database.
struct MissingFiles
{
    /// Throws Error.
    static MissingFiles count(DatabaseSession& session, const ProgramFolder& folder);

    /// What the user should know of them: one line for each kind of record, none if nothing is missing.
    [[nodiscard]] QStringList lines() const;

    int documents = 0;
    int charts = 0;
};
