// SPDX-License-Identifier: GPL-3.0-or-later

#include "DocumentRecords.h"

#include <QFileInfo>

#include <array>

using namespace Qt::StringLiterals;

namespace {

const QStringList columns{
    u"Name"_s,   u"Key"_s,    u"FileType"_s,   u"ReleaseForm"_s,  u"Organization"_s, u"Author"_s,
    u"URL"_s,    u"Types"_s,  u"Categories"_s, u"DocumentDate"_s, u"Publication"_s,  u"PageNum"_s,
    u"PubNum"_s, u"Volume"_s, u"Venues"_s,     u"Description"_s,  u"Events"_s,       u"OriginalFilename"_s,
    u"Status"_s, u"Notes"_s,  u"LocalFile"_s,  u"Figures"_s};

struct LocalFileKind
{
    QLatin1StringView word;
    LocalFile kind;
    QLatin1StringView extensions; ///< with a blank around each
    bool needsFigures;
};

const std::array localFileKinds{
    LocalFileKind{""_L1, LocalFile::None, ""_L1, false},
    LocalFileKind{"sheet"_L1, LocalFile::Sheet, " pdf htm txt rtf jpg png "_L1, false},
    LocalFileKind{"chart"_L1, LocalFile::Chart, " png jpg "_L1, true},
    LocalFileKind{"map"_L1, LocalFile::Map, " png jpg "_L1, true},
    LocalFileKind{"table"_L1, LocalFile::Table, " csv "_L1, true},
    LocalFileKind{"tone"_L1, LocalFile::Tone, " wav "_L1, false},
};

LocalFile readLocalFile(const SourceRow& row, const QString& extension)
{
    const QString word = row.text(u"LocalFile"_s);
    for (const LocalFileKind& kind : localFileKinds) {
        if (word != kind.word) continue;
        if (kind.kind != LocalFile::None && !kind.extensions.contains(u' ' + extension + u' '))
            row.fail(u"a %1 cannot be a file of the kind %2"_s.arg(word, extension));
        // A web page always shows a picture, so it always has its companion folder.
        const bool needsFigures =
            kind.needsFigures || (kind.kind == LocalFile::Sheet && extension == u"htm"_s);
        if (needsFigures && row.text(u"Figures"_s).isEmpty()) row.fail(u"the local file needs figures"_s);
        return kind.kind;
    }
    row.fail(u"there is no kind of local file \"%1\""_s.arg(word));
}

DocumentFacts readFacts(const SourceRow& row)
{
    DocumentFacts facts{.name = row.requiredText(u"Name"_s),
                        .author = row.text(u"Author"_s),
                        .date = row.text(u"DocumentDate"_s),
                        .publication = row.text(u"Publication"_s),
                        .number = row.text(u"PubNum"_s),
                        .volume = row.text(u"Volume"_s),
                        .pages = row.text(u"PageNum"_s),
                        .address = row.text(u"URL"_s),
                        .description = row.text(u"Description"_s),
                        .organization = 1,
                        .events = {},
                        .fileLocation = {},
                        .localFile = LocalFile::None,
                        .figures = row.text(u"Figures"_s),
                        .row = row};
    return facts;
}

FieldValue ownerKey(const SourceRow& row, const OrganizationRecords& organizations)
{
    const QString owner = row.text(u"Organization"_s);
    return owner.isEmpty() ? FieldValue() : FieldValue(organizations.names().find(owner, row));
}

} // namespace

DocumentRecords::DocumentRecords(const QDir& source, const LookupTables& lookups,
                                 const OrganizationRecords& organizations, const EventRecords& events,
                                 SampleDatabase& database)
{
    database.insert("Document", {{"DocumentID", qint64{1}},
                                 {"DocumentName", u"None"_s},
                                 {"KeyDocument", qint64{0}},
                                 {"FileTypeID", qint64{1}},
                                 {"ReleaseForm", qint64{0}},
                                 {"OrganizationID", qint64{1}},
                                 {"dStatus", u"ACTIVE"_s},
                                 {"UserID", qint64{1}},
                                 {"POCID", qint64{1}},
                                 {"Status", u"SUBMITTED"_s}});
    const SourceTable table(source.filePath(u"documents.tsv"_s), columns);
    for (const SourceRow& row : table.rows())
        addDocument(row, lookups, organizations, events, database);
}

void DocumentRecords::addDocument(const SourceRow& row, const LookupTables& lookups,
                                  const OrganizationRecords& organizations, const EventRecords& events,
                                  SampleDatabase& database)
{
    DocumentFacts facts = readFacts(row);
    const qint64 identifier = m_names.add(facts.name, row);
    const qint64 fileType = lookups.names(u"FileTypes"_s).find(row.requiredText(u"FileType"_s), row);
    const QString original = row.text(u"OriginalFilename"_s);
    const QString extension = QFileInfo(original).suffix();
    if (fileType != 1 && original.isEmpty()) row.fail(u"a document with a file type has a file name"_s);
    if (!original.isEmpty()) facts.fileLocation = u"%1.%2"_s.arg(identifier).arg(extension);
    facts.localFile = readLocalFile(row, extension);
    facts.events = events.names().findAll(u"Events"_s, row);
    const FieldValue owner = ownerKey(row, organizations);
    facts.organization = std::holds_alternative<qint64>(owner) ? std::get<qint64>(owner) : 1;

    database.insert("Document", {{"DocumentID", identifier},
                                 {"DocumentName", facts.name},
                                 {"KeyDocument", qint64{row.flag(u"Key"_s) ? 1 : 0}},
                                 {"FileTypeID", fileType},
                                 {"ReleaseForm", qint64{row.flag(u"ReleaseForm"_s) ? 1 : 0}},
                                 {"OrganizationID", owner},
                                 {"FileLocation", textOrNull(facts.fileLocation)},
                                 {"OriginalFilename", textOrNull(original)},
                                 {"Author", textOrNull(facts.author)},
                                 {"DocumentDate", textOrNull(facts.date)},
                                 {"Publication", textOrNull(facts.publication)},
                                 {"PageNum", textOrNull(facts.pages)},
                                 {"PubNum", textOrNull(facts.number)},
                                 {"Volume", textOrNull(facts.volume)},
                                 {"URL", textOrNull(facts.address)},
                                 {"DocumentDescription", textOrNull(facts.description)},
                                 {"Notes", textOrNull(row.text(u"Notes"_s))},
                                 {"dStatus", textOrNull(row.text(u"Status"_s))},
                                 {"UserID", qint64{1}},
                                 {"POCID", qint64{1}},
                                 {"Status", u"SUBMITTED"_s}});
    database.link("DocumentTypes", "DocumentID", identifier, "DocumentTypeID",
                  lookups.names(u"DocumentType"_s).findAll(u"Types"_s, row));
    database.link("DocumentCategories", "DocumentID", identifier, "DocumentCategoryID",
                  lookups.names(u"DocumentCategory"_s).findAll(u"Categories"_s, row));
    database.link("DocumentVenues", "DocumentID", identifier, "VenueID",
                  lookups.names(u"Venue"_s).findAll(u"Venues"_s, row));
    database.link("DocumentEvents", "DocumentID", identifier, "EventID", facts.events);
    m_facts.push_back(std::move(facts));
}
