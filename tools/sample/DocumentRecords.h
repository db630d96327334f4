// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "EventRecords.h"
#include "LookupTables.h"
#include "NameIndex.h"
#include "OrganizationRecords.h"
#include "SampleDatabase.h"

#include <QDir>

#include <set>
#include <vector>

/// What the builder makes as a document's local file.
enum class LocalFile
{
    None,
    Sheet, ///< a summary sheet: PDF, web page, text or picture
    Chart, ///< a bar chart of figures: PNG or JPEG
    Map,   ///< a map of the places of figures: PNG or JPEG
    Table, ///< the figures themselves: CSV
    Tone   ///< the warning tone of weather radio: WAV
};

/// A document as far as its local file is concerned.
struct DocumentFacts
{
    QString name;
    QString author;
    QString date;
    QString publication;
    QString number;
    QString volume;
    QString pages;
    QString address;
    QString description;
    qint64 organization = 1;
    std::set<qint64> events;
    QString fileLocation; ///< empty if the document has no file
    LocalFile localFile = LocalFile::None;
    QString figures; ///< empty if it shows none
    SourceRow row;   ///< for messages
};

/// The documents with their types, categories, venues and events. Filled once from `documents.tsv`; the
/// rows of the file are the identifiers from 2 on, in order.
class DocumentRecords
{
public:
    DocumentRecords(const QDir& source, const LookupTables& lookups, const OrganizationRecords& organizations,
                    const EventRecords& events, SampleDatabase& database);

    [[nodiscard]] const NameIndex& names() const { return m_names; }
    [[nodiscard]] const std::vector<DocumentFacts>& facts() const { return m_facts; }

private:
    void addDocument(const SourceRow& row, const LookupTables& lookups,
                     const OrganizationRecords& organizations, const EventRecords& events,
                     SampleDatabase& database);

    NameIndex m_names{QStringLiteral("document")};
    std::vector<DocumentFacts> m_facts;
};
