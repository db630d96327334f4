// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/NamedRows.h"

#include "check/CheckTexts.h"
#include "data/HeldRows.h"
#include "util/ReadableLine.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct NamedTable
{
    QLatin1StringView table;
    QLatin1StringView key;
    QLatin1StringView name;
    const char* existing; ///< with %1 for the name and %2 for the key
    const char* missing;  ///< with %1 for the key
};

constexpr std::array namedTables{
    NamedTable{"Document"_L1, "DocumentID"_L1, "DocumentName"_L1,
               QT_TRANSLATE_NOOP("Check", "Document \"%1\" (%2)"), QT_TRANSLATE_NOOP("Check", "document %1")},
    NamedTable{"Event"_L1, "EventID"_L1, "EventName"_L1, QT_TRANSLATE_NOOP("Check", "Event \"%1\" (%2)"),
               QT_TRANSLATE_NOOP("Check", "event %1")},
    NamedTable{"Organization"_L1, "OrganizationID"_L1, "OrganizationName"_L1,
               QT_TRANSLATE_NOOP("Check", "Organization \"%1\" (%2)"),
               QT_TRANSLATE_NOOP("Check", "organization %1")},
    NamedTable{"DocumentType"_L1, "DocumentTypeID"_L1, "DocumentTypeName"_L1,
               QT_TRANSLATE_NOOP("Check", "Document type \"%1\" (%2)"),
               QT_TRANSLATE_NOOP("Check", "document type %1")},
    NamedTable{"DocumentCategory"_L1, "DocumentCategoryID"_L1, "DocumentCategoryName"_L1,
               QT_TRANSLATE_NOOP("Check", "Category \"%1\" (%2)"), QT_TRANSLATE_NOOP("Check", "category %1")},
    NamedTable{"FileTypes"_L1, "FileTypeID"_L1, "FileTypeName"_L1,
               QT_TRANSLATE_NOOP("Check", "File type \"%1\" (%2)"),
               QT_TRANSLATE_NOOP("Check", "file type %1")},
    NamedTable{"Function"_L1, "FunctionID"_L1, "FunctionName"_L1,
               QT_TRANSLATE_NOOP("Check", "Function \"%1\" (%2)"), QT_TRANSLATE_NOOP("Check", "function %1")},
    NamedTable{"Venue"_L1, "VenueID"_L1, "VenueName"_L1, QT_TRANSLATE_NOOP("Check", "Venue \"%1\" (%2)"),
               QT_TRANSLATE_NOOP("Check", "venue %1")},
    NamedTable{"OrganizationTypes"_L1, "OrganizationTypeID"_L1, "OrganizationTypeName"_L1,
               QT_TRANSLATE_NOOP("Check", "Organization type \"%1\" (%2)"),
               QT_TRANSLATE_NOOP("Check", "organization type %1")},
    NamedTable{"OrganizationSubTypes"_L1, "OrganizationSubTypeID"_L1, "OrganizationSubTypeName"_L1,
               QT_TRANSLATE_NOOP("Check", "Organization sub-type \"%1\" (%2)"),
               QT_TRANSLATE_NOOP("Check", "organization sub-type %1")},
    NamedTable{"JurisdictionTypes"_L1, "JurisdictionID"_L1, "Name"_L1,
               QT_TRANSLATE_NOOP("Check", "Jurisdiction \"%1\" (%2)"),
               QT_TRANSLATE_NOOP("Check", "jurisdiction %1")},
    NamedTable{"PopulationTypes"_L1, "PopulationID"_L1, "Name"_L1,
               QT_TRANSLATE_NOOP("Check", "Population \"%1\" (%2)"),
               QT_TRANSLATE_NOOP("Check", "population %1")}};

const NamedTable* findNamed(const QString& table)
{
    const auto* found = std::find_if(namedTables.begin(), namedTables.end(),
                                     [&table](const NamedTable& each) { return each.table == table; });
    return found == namedTables.end() ? nullptr : found;
}

/// A key of the file, which may be anything.
QString keyText(const Value& key)
{
    if (const auto* number = std::get_if<qint64>(&key)) return QString::number(*number);
    if (const auto* real = std::get_if<double>(&key)) return QString::number(*real);
    const auto* text = std::get_if<QString>(&key);
    return text == nullptr ? QString() : u'"' + readableLine(*text) + u'"';
}

} // namespace

QString NamedRows::keyColumn(const QString& table)
{
    const NamedTable* found = findNamed(table);
    return found == nullptr ? QString() : QString(found->key);
}

std::optional<QString> NamedRows::existing(DatabaseSession& session, const QString& table, const Value& key)
{
    const NamedTable* named = findNamed(table);
    if (named == nullptr || isNull(key)) return std::nullopt;
    const auto rows = HeldRows(session).read(
        u"SELECT %1 AS Name FROM %2 WHERE %3 = ?"_s.arg(named->name, named->table, named->key), {key});
    if (rows.empty()) return std::nullopt;
    return CheckTexts::tr(named->existing).arg(readableLine(textOf(rows.front(), u"Name")), keyText(key));
}

QString NamedRows::missing(const QString& table, const Value& key)
{
    const NamedTable* named = findNamed(table);
    return named == nullptr ? keyText(key) : CheckTexts::tr(named->missing).arg(keyText(key));
}

std::optional<Finding::Record> NamedRows::record(const QString& table, const Value& key)
{
    const auto* identifier = std::get_if<qint64>(&key);
    if (identifier == nullptr) return std::nullopt;
    for (const RecordKind kind : recordKinds)
        if (recordNames(kind).record == table) return Finding::Record{kind, *identifier};
    return std::nullopt;
}

QString NamedRows::recordText(DatabaseSession& session, RecordKind kind, qint64 identifier)
{
    const QString table = recordNames(kind).record;
    if (auto text = existing(session, table, identifier)) return *text;
    const QString text = missing(table, identifier);
    return text.left(1).toUpper() + text.mid(1);
}
