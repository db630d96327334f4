// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/DocumentRecord.h"
#include "records/RecordColumns.h"

/// The columns of `Document` that an editor shows, and the name of the stored file.
inline constexpr RecordColumn<DocumentRecord> documentColumns[]{
    {u"DocumentName", &DocumentRecord::documentName, History::Copied, QT_TRANSLATE_NOOP("Records", "Title")},
    {u"Author", &DocumentRecord::author, History::Copied, QT_TRANSLATE_NOOP("Records", "Author")},
    {u"DocumentDate", &DocumentRecord::documentDate, History::Copied, QT_TRANSLATE_NOOP("Records", "Date")},
    {u"Publication", &DocumentRecord::publication, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Publication")},
    {u"PageNum", &DocumentRecord::pageNum, History::Copied, QT_TRANSLATE_NOOP("Records", "Page number")},
    {u"PubNum", &DocumentRecord::pubNum, History::Copied, QT_TRANSLATE_NOOP("Records", "Publication number")},
    {u"Volume", &DocumentRecord::volume, History::Copied, QT_TRANSLATE_NOOP("Records", "Volume")},
    {u"URL", &DocumentRecord::url, History::Copied, QT_TRANSLATE_NOOP("Records", "Web address")},
    {u"OriginalFilename", &DocumentRecord::originalFilename, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Document file"), &RecordValues::text, true},
    {u"KeyDocument", &DocumentRecord::keyDocument, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Key document")},
    {u"DocumentDescription", &DocumentRecord::documentDescription, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Description")},
    {u"Notes", &DocumentRecord::notes, History::Copied, QT_TRANSLATE_NOOP("Records", "Notes")},
    {u"FileTypeID", &DocumentRecord::fileTypeId, History::Copied, QT_TRANSLATE_NOOP("Records", "File type")},
    {u"OrganizationID", &DocumentRecord::organizationId, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Source organization")},
    {u"FileLocation", &DocumentRecord::fileLocation, History::Copied,
     QT_TRANSLATE_NOOP("Records", "Stored file"), &RecordValues::text, true},
};
