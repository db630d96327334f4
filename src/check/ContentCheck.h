// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/ReadNotes.h"
#include "check/TopicCheck.h"
#include "data/HeldRows.h"
#include "files/FolderList.h"
#include "files/ProgramFolder.h"
#include "util/Sha256.h"

#include <QHash>

#include <fstream>
#include <optional>
#include <string>

class CheckedDatabase;

/// Reads every file of the records, block by block, and compares those with what they held when they were
/// taken in of which the journal tells.
class ContentCheck final : public TopicCheck
{
public:
    /// The database must outlive the check. `notes` is the file for what was read, or empty.
    ContentCheck(CheckedDatabase& database, ProgramFolder folder, QString notes)
        : TopicCheck(CheckTopic::ChangedFiles),
          m_database(database),
          m_folder(std::move(folder)),
          m_notesFile(std::move(notes))
    {
    }

    bool step() override;
    [[nodiscard]] std::optional<int> percent() const override;

    /// The bytes of all files, and of those that were read.
    [[nodiscard]] qint64 bytesRead() const { return m_bytes; }
    [[nodiscard]] qint64 bytesOfAll() const { return m_list.amount().bytes; }

private:
    enum class Stage
    {
        Journal,
        Listing,
        Files,
        Done
    };

    struct Known
    {
        QString name;
        QByteArray sha256;
        RecordKind kind;
        qint64 identifier;
    };

    bool readJournal();
    void know(const HeldRow& row);
    bool list();
    bool readFiles();
    void begin(const FolderList::Entry& entry);
    void end();
    void tellMissing();
    void tellDiffering(const QString& name, const QByteArray& expected);
    [[nodiscard]] QByteArray expectedOf(const QString& name) const;

    CheckedDatabase& m_database;
    ProgramFolder m_folder;
    QString m_notesFile;
    std::optional<ReadNotes> m_notes;
    Stage m_stage = Stage::Journal;
    qint64 m_lastRow = 0;
    QHash<QString, Known> m_known; ///< by comparable names
    FolderList m_list;
    bool m_isListing = false;
    std::size_t m_next = 0; ///< of the list's entries
    qint64 m_bytes = 0;
    int m_unknown = 0; ///< files that nothing is known of

    std::ifstream m_source; ///< the file that is being read, if any
    std::filesystem::path m_path;
    QString m_name;
    ReadNotes::State m_state;
    Sha256 m_hash;
    std::string m_buffer;
};
