// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/TopicCheck.h"
#include "data/TableScan.h"
#include "files/FolderNames.h"

#include <QHash>
#include <QSet>

#include <SQLiteCpp/SQLiteCpp.h>

#include <future>
#include <memory>
#include <optional>

class CheckedDatabase;
class ProgramFolder;

/// Tells which files of documents have a text that the index lacks since it could not be read, and whether
/// the index itself can be read. SQLite looks through the index in a thread of its own, as that may take
/// seconds.
class FileTextsCheck final : public TopicCheck
{
public:
    /// `file` is the database that the index belongs to. The other database, which may be a copy of it, must
    /// outlive the check.
    FileTextsCheck(CheckedDatabase& database, const QString& file, const ProgramFolder& folder);
    ~FileTextsCheck() override;

    bool step() override;

private:
    /// What the index knows of a file.
    struct Known
    {
        qint64 size = 0;               ///< bytes
        std::optional<qint64> changed; ///< milliseconds since 1970, UTC
        QString failure;               ///< empty if it has a text
    };
    using Files = QHash<QString, Known>;

    [[nodiscard]] bool readIndex();
    [[nodiscard]] Files look();
    void look(const HeldRow& document);
    [[nodiscard]] bool wasChanged(const QString& name, const Known& known) const;
    void tellWhatIsNoFault();

    CheckedDatabase& m_database;
    QString m_index;
    QString m_folder; ///< of the documents
    std::unique_ptr<SQLite::Database> m_opened;
    std::future<Files> m_found;
    bool m_isRead = false;
    bool m_isReadable = true;
    Files m_files;
    FolderNames m_there;
    std::optional<TableScan> m_documents;
    QSet<QString> m_seen; ///< names that were looked at
    int m_unread = 0;     ///< files that the index does not know as they are
    int m_wordless = 0;   ///< files that hold no words
};
