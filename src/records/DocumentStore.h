// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/ProgramFolder.h"
#include "records/DocumentRecord.h"
#include "records/RecordStore.h"

#include <optional>
#include <vector>

/// The fields of a document that can fail a check.
enum class DocumentField
{
    DocumentName,
    DocumentDescription,
    OriginalFilename
};

/// Reads and writes documents, with their links, their history and their files.
///
/// What RecordStore says of a save holds here; the program's folder outlives the store.
class DocumentStore final : public RecordStore<DocumentRecord>
{
public:
    using Problem = FieldProblem<DocumentField>;

    DocumentStore(DatabaseSession& session, const ProgramFolder& folder, const Clock& clock);

    /// Where documents are kept.
    [[nodiscard]] static const RecordTables<DocumentRecord>& tables();

    /// The choices of the two drop-downs, "None" first. Throws Error; the entries added so far stay.
    void fillFileTypes(std::vector<ListEntry>& entries) const;
    void fillOrganizations(std::vector<ListEntry>& entries) const;

    /// A record to begin with: the first real file type, `http://`, "None" in both lists, no source
    /// organization but that of the preset. Throws Error.
    [[nodiscard]] DocumentRecord blank(const std::optional<clsFieldInfo>& preset) const;

    /// Returns the message for a preset that a document cannot take, or std::nullopt.
    [[nodiscard]] static std::optional<QString> refusalOfPreset(const clsFieldInfo& preset);

    [[nodiscard]] static QString notFoundMessage(qint64 id);

    /// The first required field that is empty.
    [[nodiscard]] static std::optional<Problem> check(const DocumentRecord& record);

    /// Adds the record and copies its file, as RecordStore::add does; `record.fileLocation` is known
    /// afterwards. Returns a problem if another active document has that title. Throws Error, and writes
    /// nothing, if there is no file to copy.
    [[nodiscard]] std::optional<Problem> saveDocument(DocumentRecord& record);

    /// Whether the document's stored file is in the program's folder.
    [[nodiscard]] bool hasFile(const DocumentRecord& record) const;

    /// Changes the record as RecordStore::change does, and copies a file for it if the record takes one.
    /// Throws Error, and writes nothing, if there is no file to copy.
    [[nodiscard]] std::optional<RecordConflict> updateDocument(DocumentRecord& record);

    /// Marks a record as deleted, as a part of `step` if there is one, and returns the message that says so.
    QString deleteDocument(qint64 id, JournalStep* step = nullptr);

private:
    [[nodiscard]] bool takesFile(const DocumentRecord& record, SaveMode mode) const override;
    void prepare(DocumentRecord& record, SaveMode mode, qint64 id, JournaledSave& save) const override;
    void writeParts(const DocumentRecord& record, SaveMode mode, JournaledSave& save) override;

    const ProgramFolder& m_folder;
};
