// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "views/clsView.h"

#include <QString>

#include <array>
#include <optional>

class DatabaseSession;
struct StandardQueries;

/// The result of a keyword search of all kinds: for each, how many records there are and the query that lists
/// them.
struct SearchResults
{
    struct Kind
    {
        RecordKind kind = RecordKind::Document;
        SharedQuery query;
        QString caption;
        qint64 count = 0;

        /// Returns `3 Documents` or `1 Document`.
        [[nodiscard]] QString label() const;
    };

    /// The one record that was found.
    struct Record
    {
        RecordKind kind = RecordKind::Document;
        qint64 identifier = 0;
        QString name;
    };

    /// The documents whose files hold the words.
    struct InFiles
    {
        SharedQuery query;
        qint64 count = 0;
        QString note; ///< why files with the words may be missing, or empty

        /// Returns what is said of their number.
        [[nodiscard]] QString label() const;
    };

    QString keywords; ///< as typed
    std::array<Kind, recordKinds.size()> kinds;
    std::optional<Record> single;   ///< the record, if the search found exactly one
    std::optional<InFiles> inFiles; ///< if the search also looked into the files

    /// The number of records of all kinds, without what only a file holds.
    [[nodiscard]] qint64 total() const;

    /// The sentence above the kinds on the results page.
    [[nodiscard]] QString sentence() const;

    /// The view that lists the records that were found of a kind.
    [[nodiscard]] clsView listView(const Kind& kind) const;

    /// The view that lists the documents whose files hold the words; shown again, it searches again.
    [[nodiscard]] clsView filesView(const StandardQueries& queries) const;

    /// Searches for the first four words of a text. Throws Error if the words break the statement.
    static SearchResults read(DatabaseSession& session, const StandardQueries& queries,
                              const QString& keywords, bool alsoInFiles = false);
};
