#pragma once

#include "data/DatabaseSession.h"
#include "files/ProgramFolder.h"
#include "platform/Clock.h"
#include "records/DocumentRecord.h"
#include "records/EditorTypes.h"

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
/// Lives as long as its editor; the session, the program's folder and the clock outlive it. Every failure is
/// an Error. A save is one transaction: what was written before a failure stays, and a process that dies
/// leaves all or nothing.
class DocumentStore
{
public:
    using Problem = FieldProblem<DocumentField>;

    DocumentStore(DatabaseSession& session, const ProgramFolder& folder, const Clock& clock)
        : m_session(session), m_folder(folder), m_clock(clock)
    {
    }

    /// The choices of the two drop-downs, "None" first. Throws Error; the entries added so far stay.
    void fillFileTypes(std::vector<ListEntry>& entries) const;
    void fillOrganizations(std::vector<ListEntry>& entries) const;

    /// A record to begin with: the first real file type, `http://`, "None" in both lists, no source
    /// organization but that of the preset. Throws Error.
    [[nodiscard]] DocumentRecord blank(const std::optional<clsFieldInfo>& preset) const;

    /// What the user is told of a preset that a document cannot take; nothing where it can.
    [[nodiscard]] static std::optional<QString> refusalOfPreset(const clsFieldInfo& preset);

    /// A record for editing or viewing. Throws Error 6 for an identifier beyond 16 bits.
    [[nodiscard]] LoadedRecord<DocumentRecord> load(qint64 id) const;
    [[nodiscard]] static QString notFoundMessage(qint64 id);

    /// The first required field that is empty.
    [[nodiscard]] static std::optional<Problem> check(const DocumentRecord& record);

    /// Adds the record and copies its file; `record.id` and `record.fileLocation` are known afterwards, also
    /// if a later step failed. A record that such a failure left unfinished is completed. Returns a problem,
    /// and writes nothing, if another active document has that title. Throws Error, and writes nothing, if
    /// there is no file to copy.
    [[nodiscard]] std::optional<Problem> saveDocument(DocumentRecord& record);

    /// Whether the document's stored file is in the program's folder.
    [[nodiscard]] bool hasFile(const DocumentRecord& record) const;

    /// Writes a record that exists, and copies a file for it if the record takes one; what the user did not
    /// change stays as it is stored. If somebody else changed or deleted the record after it was read,
    /// returns what differs and writes nothing. A deleted record stays deleted. Throws Error if the record is
    /// gone meanwhile or there is no file to copy; nothing is written then.
    [[nodiscard]] std::optional<RecordConflict> updateDocument(DocumentRecord& record);

    /// Marks a record as deleted, and gives the message that says so.
    QString deleteDocument(qint64 id);

private:
    [[nodiscard]] bool hasOtherActiveTitle(const DocumentRecord& record) const;
    void writeRow(DocumentRecord& record);
    void writeLinks(const DocumentRecord& record);
    void writeHistory(const DocumentRecord& record, const QString& status);

    DatabaseSession& m_session;
    const ProgramFolder& m_folder;
    const Clock& m_clock;
};
