// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "export/ExportFormat.h"
#include "support/TestDatabase.h"

#include <array>

/// A field with texts: what its user calls it, and its column.
struct TextField
{
    RecordKind kind;
    const char* caption;
    const char* column;
};

/// All but the names.
inline constexpr std::array textFields{
    TextField{RecordKind::Document, "Author", "Author"},
    TextField{RecordKind::Document, "Date", "DocumentDate"},
    TextField{RecordKind::Document, "Publication", "Publication"},
    TextField{RecordKind::Document, "Page number", "PageNum"},
    TextField{RecordKind::Document, "Publication number", "PubNum"},
    TextField{RecordKind::Document, "Volume", "Volume"},
    TextField{RecordKind::Document, "Web address", "URL"},
    TextField{RecordKind::Document, "Document file", "OriginalFilename"},
    TextField{RecordKind::Document, "Description", "DocumentDescription"},
    TextField{RecordKind::Document, "Notes", "Notes"},
    TextField{RecordKind::Document, "Shelf mark", "Shelf mark"},
    TextField{RecordKind::Event, "Description", "EventDescription"},
    TextField{RecordKind::Organization, "City", "City"},
    TextField{RecordKind::Organization, "Zip", "Zip"},
    TextField{RecordKind::Organization, "Notes", "Notes"},
};

/// A small collection with all that is hard to export: texts that look like formulas, quotes, line ends of
/// every system, other scripts, memos of 64 KB, characters that some formats cannot hold, dates that are none
/// or older than a spreadsheet's calendar, links to nothing, to deleted records and twice to the same one.
class ExportedCollection
{
public:
    ExportedCollection();

    [[nodiscard]] TestDatabase& database() { return m_database; }
    [[nodiscard]] DatabaseSession& session() { return m_database.session(); }

    /// The identifiers of the records of a kind that are not deleted, in the order of their list.
    [[nodiscard]] std::vector<qint64> identifiers(RecordKind kind);

    /// A text of a record, with the line ends that other programs read.
    [[nodiscard]] QString held(RecordKind kind, const QString& column, const QString& key);

    /// Exports those into a file of the test's folder and returns its name.
    QString exportTo(const char* format, RecordKind kind, const ExportOptions& options = {});

    QByteArray exported(const char* format, RecordKind kind, const ExportOptions& options = {});

private:
    TestDatabase m_database;
};
