#include "records/DocumentStore.h"

#include "data/ControlFill.h"
#include "files/FileUpload.h"
#include "records/RecordIdentifier.h"
#include "records/RecordLinks.h"
#include "records/RecordValues.h"

using namespace Qt::StringLiterals;

namespace {

const ListSource venueSource{u"Venue"_s, u"VenueName"_s, u"VenueID"_s};
const LinkTable typeLinks{u"DocumentTypes"_s, u"DocumentID"_s, u"DocumentTypeID"_s};
const LinkTable categoryLinks{u"DocumentCategories"_s, u"DocumentID"_s, u"DocumentCategoryID"_s};
const LinkTable venueLinks{u"DocumentVenues"_s, u"DocumentID"_s, u"VenueID"_s};

QString recordStatement(qint64 id)
{
    return u"SELECT * FROM Document WHERE DocumentID = "_s + QString::number(id);
}

void readRow(const RecordTable& rows, DocumentRecord& record)
{
    record.documentName = rows.text(0, u"DocumentName");
    record.author = rows.text(0, u"Author");
    record.documentDate = rows.text(0, u"DocumentDate");
    record.publication = rows.text(0, u"Publication");
    record.pageNum = rows.text(0, u"PageNum");
    record.pubNum = rows.text(0, u"PubNum");
    record.volume = rows.text(0, u"Volume");
    record.url = rows.text(0, u"URL");
    record.originalFilename = rows.text(0, u"OriginalFilename");
    record.keyDocument = rows.integer(0, u"KeyDocument") != 0;
    record.documentDescription = rows.text(0, u"DocumentDescription");
    record.notes = rows.text(0, u"Notes");
    record.fileTypeId = RecordValues::key(rows, u"FileTypeID");
    record.organizationId = RecordValues::key(rows, u"OrganizationID");
    record.fileLocation = rows.text(0, u"FileLocation");
}

std::vector<ListEntry> readTypes(DatabaseSession& session, qint64 id)
{
    return RecordLinks::read(session,
                             u"SELECT DocumentType.DocumentTypeID, DocumentType.DocumentTypeName"
                             " FROM DocumentType, DocumentTypes"
                             " WHERE DocumentType.DocumentTypeID = DocumentTypes.DocumentTypeID"
                             " AND DocumentID = "_s +
                                 QString::number(id),
                             u"DocumentTypeName"_s, u"DocumentTypeID"_s);
}

std::vector<ListEntry> readCategories(DatabaseSession& session, qint64 id)
{
    return RecordLinks::read(
        session,
        u"SELECT DocumentCategory.DocumentCategoryID, DocumentCategory.DocumentCategoryName"
        " FROM DocumentCategory, DocumentCategories"
        " WHERE DocumentCategory.DocumentCategoryID = DocumentCategories.DocumentCategoryID"
        " AND DocumentID = "_s +
            QString::number(id),
        u"DocumentCategoryName"_s, u"DocumentCategoryID"_s);
}

FieldValues fieldsOf(const DocumentRecord& record, bool withOriginalFilename)
{
    FieldValues fields{
        {u"DocumentName"_s, u"Title"_s, record.documentName},
        {u"Author"_s, u"Author"_s, record.author},
        {u"DocumentDate"_s, u"Date"_s, record.documentDate},
        {u"Publication"_s, u"Publication"_s, record.publication},
        {u"PageNum"_s, u"Page number"_s, record.pageNum},
        {u"PubNum"_s, u"Publication number"_s, record.pubNum},
        {u"Volume"_s, u"Volume"_s, record.volume},
        {u"URL"_s, u"Web address"_s, record.url},
    };
    if (withOriginalFilename) {
        fields.push_back({u"OriginalFilename"_s, u"Document file"_s, record.originalFilename});
    }
    const FieldValues others{
        {u"KeyDocument"_s, u"Key document"_s, RecordValues::flag(record.keyDocument)},
        {u"DocumentDescription"_s, u"Description"_s, record.documentDescription},
        {u"Notes"_s, u"Notes"_s, record.notes},
        {u"FileTypeID"_s, u"File type"_s, record.fileTypeId},
        {u"OrganizationID"_s, u"Source organization"_s, record.organizationId},
    };
    fields.insert(fields.end(), others.begin(), others.end());
    return fields;
}

/// The record as it was read, of which only the columns of its own row are known.
DocumentRecord asRead(const DocumentRecord& record)
{
    DocumentRecord read;
    if (record.stored) readRow(record.stored->row, read);
    return read;
}

/// The fields as an update writes them.
FieldValues fieldsToWrite(const DocumentRecord& record)
{
    FieldValues fields = fieldsOf(record, record.takesFile);
    if (record.stored) {
        StoredStates::keepUnchanged(fields, fieldsOf(asRead(record), record.takesFile), record.stored->row);
    }
    return fields;
}

/// All that another save could have changed.
RecordView viewOf(const DocumentRecord& record, const QString& status)
{
    FieldValues fields = fieldsOf(record, false);
    fields.push_back(RecordLinks::field(typeLinks, u"Document types"_s, record.types));
    fields.push_back(RecordLinks::field(categoryLinks, u"Categories"_s, record.categories));
    fields.push_back(RecordLinks::field(venueLinks, u"Venues"_s, record.venues));
    return {fields, status};
}

void setConstants(EditableRecordSet& rows, const QString& status)
{
    rows.set(u"dStatus"_s, status);
    rows.set(u"UserID"_s, qint64{1});
    rows.set(u"POCID"_s, qint64{1});
    rows.set(u"Status"_s, u"SUBMITTED"_s);
}

/// The name that a chosen file is stored under.
QString storedName(qint64 id, const QString& chosenPath)
{
    return QString::number(id) + u'.' + FileUpload::extension(chosenPath);
}

/// A key that the user did not change is not written, whatever it is.
void requireIdentifiers(const DocumentRecord& record)
{
    const DocumentRecord read = asRead(record);
    if (record.fileTypeId != read.fileTypeId) recordIdentifier(record.fileTypeId);
    if (record.organizationId != read.organizationId) recordIdentifier(record.organizationId);
    RecordLinks::requireIdentifiers(record.types);
    RecordLinks::requireIdentifiers(record.categories);
    RecordLinks::requireChecked(record.venues);
}

} // namespace

void DocumentStore::fillFileTypes(std::vector<ListEntry>& entries) const
{
    fillList(m_session, {u"FileTypes"_s, u"FileTypeName"_s, u"FileTypeID"_s}, true, entries);
}

void DocumentStore::fillOrganizations(std::vector<ListEntry>& entries) const
{
    fillList(m_session, {u"Organization"_s, u"OrganizationName"_s, u"OrganizationID"_s}, true, entries);
}

DocumentRecord DocumentStore::blank(const std::optional<clsFieldInfo>& preset) const
{
    DocumentRecord record;
    fillCheckList(m_session, venueSource, record.venues);
    std::vector<ListEntry> fileTypes;
    fillFileTypes(fileTypes);
    if (fileTypes.size() > 1) record.fileTypeId = fileTypes[1].key;
    if (preset && !refusalOfPreset(*preset)) record.organizationId = preset->FieldID;
    record.url = u"http://"_s;
    RecordLinks::addPlaceholder(record.types);
    RecordLinks::addPlaceholder(record.categories);
    return record;
}

std::optional<QString> DocumentStore::refusalOfPreset(const clsFieldInfo& preset)
{
    if (preset.FieldName == organizationKindWord) return std::nullopt;
    return u"Invalid FieldName to add to current document"_s;
}

LoadedRecord<DocumentRecord> DocumentStore::load(qint64 id) const
{
    recordIdentifier(id);
    LoadedRecord<DocumentRecord> loaded;
    DocumentRecord& record = loaded.record;
    record.id = id;
    RecordTable row = m_session.readAll(recordStatement(id));
    loaded.isFound = row.count() > 0;
    if (loaded.isFound) readRow(row, record);
    record.types = readTypes(m_session, id);
    record.categories = readCategories(m_session, id);
    RecordLinks::addPlaceholder(record.types);
    RecordLinks::addPlaceholder(record.categories);
    fillCheckList(m_session, venueSource, record.venues);
    RecordLinks::readChecks(m_session, venueLinks, id, false, record.venues);
    if (loaded.isFound) {
        const QString status = row.text(0, u"dStatus");
        record.stored = StoredState{std::move(row), {}, viewOf(record, status)};
    }
    return loaded;
}

QString DocumentStore::notFoundMessage(qint64 id)
{
    return u"Document %1 not found"_s.arg(id);
}

std::optional<DocumentStore::Problem> DocumentStore::check(const DocumentRecord& record)
{
    if (record.documentName.isEmpty()) {
        return Problem{DocumentField::DocumentName, u"Document title is required."_s};
    }
    if (record.documentDescription.isEmpty()) {
        return Problem{DocumentField::DocumentDescription, u"Document description is required."_s};
    }
    if (record.originalFilename.isEmpty()) {
        return Problem{DocumentField::OriginalFilename,
                       u"Document filename is required. Please browse to select your document file."_s};
    }
    return std::nullopt;
}

bool DocumentStore::hasOtherActiveTitle(const DocumentRecord& record) const
{
    return RecordValues::hasRow(m_session, u"SELECT * FROM Document WHERE DocumentName LIKE "_s +
                                               RecordValues::quotedTitle(record.documentName) +
                                               u" AND dStatus = 'ACTIVE'"_s +
                                               RecordValues::exceptFor(u"DocumentID", record.id));
}

std::optional<DocumentStore::Problem> DocumentStore::saveDocument(DocumentRecord& record)
{
    record.stored.reset();
    requireIdentifiers(record);
    Transaction transaction(m_session);
    if (hasOtherActiveTitle(record)) {
        return Problem{DocumentField::DocumentName,
                       u"Document with identical title already exists. Please choose a different title."_s};
    }
    FileUpload::requireSource(record.originalFilename);
    writeRow(record);
    FileUpload(m_folder).convertDocument(record.originalFilename, record.id);
    writeLinks(record);
    writeHistory(record, activeStatus);
    transaction.commit();
    return std::nullopt;
}

/// The row is a new one, or that of a save that failed half-way.
void DocumentStore::writeRow(DocumentRecord& record)
{
    EditableRecordSet rows = m_session.edit(recordStatement(record.id));
    if (rows.atEnd()) rows.addNew();
    const std::int16_t id = recordIdentifier(std::get<qint64>(rows.value(u"DocumentID")));
    StoredStates::setDiffering(rows, fieldsOf(record, true));
    rows.set(u"ReleaseForm"_s, RecordValues::flag(true));
    setConstants(rows, activeStatus);
    const QString fileLocation = storedName(id, record.originalFilename);
    rows.set(u"FileLocation"_s, fileLocation);
    rows.update();
    record.id = id;
    record.fileLocation = fileLocation;
}

bool DocumentStore::hasFile(const DocumentRecord& record) const
{
    return m_folder.find(ProgramFolders::documents, record.fileLocation).has_value();
}

std::optional<RecordConflict> DocumentStore::updateDocument(DocumentRecord& record)
{
    recordIdentifier(record.id);
    requireIdentifiers(record);
    Transaction transaction(m_session);
    EditableRecordSet rows = RecordValues::openRecord(m_session, recordStatement(record.id));
    const auto find = [this, &record] { return load(record.id).record.stored->known; };
    if (auto conflict = StoredStates::conflict(record.stored, find())) return conflict;
    const StoredStates::KnownAfterSave known(record.stored, find);
    if (record.takesFile) {
        FileUpload::requireSource(record.originalFilename);
        record.fileLocation = storedName(record.id, record.originalFilename);
        rows.set(u"FileLocation"_s, record.fileLocation);
    }
    StoredStates::setDiffering(rows, fieldsToWrite(record));
    rows.update();
    if (record.takesFile) FileUpload(m_folder).convertDocument(record.originalFilename, record.id);
    writeLinks(record);
    writeHistory(record, StoredStates::historyStatus(rows.value(u"dStatus")));
    transaction.commit();
    return std::nullopt;
}

void DocumentStore::writeLinks(const DocumentRecord& record)
{
    RecordLinks::rewrite(m_session, typeLinks, record.id, record.types);
    RecordLinks::rewrite(m_session, categoryLinks, record.id, record.categories);
    RecordLinks::rewriteChecked(m_session, venueLinks, record.id, record.venues);
}

void DocumentStore::writeHistory(const DocumentRecord& record, const QString& status)
{
    EditableRecordSet rows =
        m_session.edit(u"SELECT * FROM Document_HIST WHERE DocumentID = "_s + QString::number(record.id));
    rows.addNew();
    StoredStates::setDiffering(rows, fieldsOf(record, true));
    setConstants(rows, status);
    rows.set(u"FileLocation"_s, record.fileLocation);
    rows.set(u"DocumentID"_s, record.id);
    rows.set(u"UpdateTime"_s, RecordValues::updateTime(m_clock));
    rows.update();
}

QString DocumentStore::deleteDocument(qint64 id)
{
    const QString number = QString::number(recordIdentifier(id));
    m_session.execute(u"UPDATE Document SET dStatus = 'DELETED' WHERE DocumentID = "_s + number);
    return u"Document ID "_s + number + u" successfully deleted."_s;
}
