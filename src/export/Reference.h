// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "export/ExportFields.h"
#include "export/ExportedRecord.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

/// What programs that keep references call different things.
enum class ReferenceType
{
    Article, ///< in a periodical
    Report,
    Book,
    Map,
    WebPage,
    Law,
    Other
};

/// An author of a document.
struct ReferenceAuthor
{
    QString name;          ///< of a person, the family name first: `Family, Given`
    bool isPerson = false; ///< whether that is sure; all others are written as they are
};

/// A document as programs see it that keep references. Texts are of one line, but for the description and the
/// notes, whose lines end in line feeds. All are plain.
struct Reference
{
    qint64 identifier = 0;
    ReferenceType type = ReferenceType::Other;
    QString title;
    std::vector<ReferenceAuthor> authors;
    QString date;  ///< as typed
    int year = 0;  ///< of the date; 0 if it cannot be read
    int month = 0; ///< 1-12; 0 if there is none
    int day = 0;   ///< 1-31; 0 if there is none
    QString publication;
    QString number;
    QString volume;
    QString firstPage; ///< all that is known of the pages if there is no last one
    QString lastPage;
    QString url;
    QString organization; ///< where it comes from; empty if that is "None"
    QString file;         ///< its name in the folder of the documents
    QString description;
    QString notes;
    QStringList keywords; ///< the names of its types, categories and venues, each once
};

/// Makes references of exported documents.
class ReferenceReader
{
public:
    /// The fields of documents, in the order of the values of their records.
    explicit ReferenceReader(const std::vector<ExportField>& fields);

    [[nodiscard]] Reference read(const ExportedRecord& document) const;

    /// Authors that are separated by `;`, or by `and` if all are surely persons: the name of an organization
    /// may hold commas and an `and` of its own. Surely persons are `Family, Given` and `Given I. Family`.
    [[nodiscard]] static std::vector<ReferenceAuthor> authorsIn(const QString& text);

private:
    [[nodiscard]] QString text(const ExportedRecord& document, const QString& member) const;
    [[nodiscard]] QString line(const ExportedRecord& document, const QString& member) const;
    [[nodiscard]] QStringList links(const ExportedRecord& document, const QString& member) const;

    QHash<QString, std::size_t> m_fields; ///< by their columns or tables
};
