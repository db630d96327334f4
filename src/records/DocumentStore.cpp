// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/DocumentStore.h"

#include "files/FileUpload.h"
#include "records/DocumentColumns.h"
#include "records/RecordsTexts.h"

using namespace Qt::StringLiterals;

namespace {

/// The name that a chosen file is stored under.
QString storedName(qint64 id, const QString& chosenPath)
{
    return QString::number(id) + u'.' + FileUpload::extension(chosenPath);
}

} // namespace

const RecordTables<DocumentRecord>& DocumentStore::tables()
{
    static const RecordTables<DocumentRecord> tables{
        RecordKind::Document,
        &DocumentRecord::documentName,
        u"dStatus"_s,
        documentColumns,
        {{u"ReleaseForm"_s, RecordValues::flag(true), History::NotCopied},
         {u"UserID"_s, qint64{1}, History::Copied},
         {u"POCID"_s, qint64{1}, History::Copied},
         {u"Status"_s, u"SUBMITTED"_s, History::Copied}},
        {ListLink<DocumentRecord>{{u"DocumentTypes"_s, u"DocumentID"_s, u"DocumentTypeID"_s},
                                  QT_TRANSLATE_NOOP("Records", "Document types"),
                                  &DocumentRecord::types,
                                  u"SELECT DocumentType.DocumentTypeID, DocumentType.DocumentTypeName"
                                  " FROM DocumentType, DocumentTypes"
                                  " WHERE DocumentType.DocumentTypeID = DocumentTypes.DocumentTypeID"
                                  " AND DocumentID = "_s,
                                  u"DocumentTypeName"_s},
         ListLink<DocumentRecord>{
             {u"DocumentCategories"_s, u"DocumentID"_s, u"DocumentCategoryID"_s},
             QT_TRANSLATE_NOOP("Records", "Categories"),
             &DocumentRecord::categories,
             u"SELECT DocumentCategory.DocumentCategoryID, DocumentCategory.DocumentCategoryName"
             " FROM DocumentCategory, DocumentCategories"
             " WHERE DocumentCategory.DocumentCategoryID = DocumentCategories.DocumentCategoryID"
             " AND DocumentID = "_s,
             u"DocumentCategoryName"_s},
         CheckLink<DocumentRecord>{{u"DocumentVenues"_s, u"DocumentID"_s, u"VenueID"_s},
                                   QT_TRANSLATE_NOOP("Records", "Venues"),
                                   &DocumentRecord::venues,
                                   {u"Venue"_s, u"VenueName"_s, u"VenueID"_s}}}};
    return tables;
}

DocumentStore::DocumentStore(DatabaseSession& session, const ProgramFolder& folder, const Clock& clock)
    : RecordStore(session, clock, tables()), m_folder(folder)
{
}

void DocumentStore::fillFileTypes(std::vector<ListEntry>& entries) const
{
    fillList(session(), {u"FileTypes"_s, u"FileTypeName"_s, u"FileTypeID"_s}, true, entries);
}

void DocumentStore::fillOrganizations(std::vector<ListEntry>& entries) const
{
    fillList(session(), {u"Organization"_s, u"OrganizationName"_s, u"OrganizationID"_s}, true, entries);
}

DocumentRecord DocumentStore::blank(const std::optional<clsFieldInfo>& preset) const
{
    DocumentRecord record = emptyRecord();
    std::vector<ListEntry> fileTypes;
    fillFileTypes(fileTypes);
    if (fileTypes.size() > 1) record.fileTypeId = fileTypes[1].key;
    if (preset && !refusalOfPreset(*preset)) record.organizationId = preset->FieldID;
    record.url = u"http://"_s;
    return record;
}

std::optional<QString> DocumentStore::refusalOfPreset(const clsFieldInfo& preset)
{
    if (preset.FieldName == organizationKindWord) return std::nullopt;
    return RecordsTexts::tr("Invalid FieldName to add to current document");
}

QString DocumentStore::notFoundMessage(qint64 id)
{
    return RecordsTexts::tr("Document %1 not found").arg(id);
}

std::optional<DocumentStore::Problem> DocumentStore::check(const DocumentRecord& record)
{
    if (record.documentName.isEmpty()) {
        return Problem{DocumentField::DocumentName, RecordsTexts::tr("Document title is required.")};
    }
    if (record.documentDescription.isEmpty()) {
        return Problem{DocumentField::DocumentDescription,
                       RecordsTexts::tr("Document description is required.")};
    }
    if (record.originalFilename.isEmpty()) {
        return Problem{
            DocumentField::OriginalFilename,
            RecordsTexts::tr("Document filename is required. Please browse to select your document file.")};
    }
    return std::nullopt;
}

std::optional<DocumentStore::Problem> DocumentStore::saveDocument(DocumentRecord& record)
{
    if (add(record)) return std::nullopt;
    return Problem{
        DocumentField::DocumentName,
        RecordsTexts::tr("Document with identical title already exists. Please choose a different title.")};
}

std::optional<RecordConflict> DocumentStore::updateDocument(DocumentRecord& record)
{
    return change(record);
}

QString DocumentStore::deleteDocument(qint64 id, JournalStep* step)
{
    return remove(id, step);
}

bool DocumentStore::hasFile(const DocumentRecord& record) const
{
    return m_folder.find(ProgramFolders::documents, record.fileLocation).has_value();
}

bool DocumentStore::takesFile(const DocumentRecord& record, SaveMode mode) const
{
    return mode == SaveMode::Addition || record.takesFile;
}

void DocumentStore::prepare(DocumentRecord& record, SaveMode mode, qint64 id, JournaledSave& /*save*/) const
{
    if (!takesFile(record, mode)) return;
    FileUpload::requireSource(record.originalFilename);
    record.fileLocation = storedName(id, record.originalFilename);
}

void DocumentStore::writeParts(const DocumentRecord& record, SaveMode mode, JournaledSave& save)
{
    if (!takesFile(record, mode)) return;
    save.noteUploads(m_folder, FileUpload(m_folder).convertDocument(record.originalFilename, record.id));
}
