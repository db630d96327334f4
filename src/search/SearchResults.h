#pragma once

#include "views/SearchKind.h"

#include <QString>

#include <array>
#include <optional>

class DatabaseSession;

/// What a keyword search of all kinds found: how many records of each, and the query that lists them.
struct SearchResults
{
    struct Kind
    {
        ViewKind kind = ViewKind::Documents;
        SharedQuery query;
        QString caption;
        qint64 count = 0;

        /// `3 Documents`, `1 Document`.
        [[nodiscard]] QString label() const;
    };

    /// The one record that was found.
    struct Record
    {
        ViewKind kind = ViewKind::Documents;
        qint64 identifier = 0;
        QString name;
    };

    QString keywords; ///< as typed
    std::array<Kind, searchedKinds.size()> kinds;
    std::optional<Record> single; ///< where the search found exactly one record

    [[nodiscard]] qint64 total() const;

    /// What the results page says above the kinds.
    [[nodiscard]] QString sentence() const;

    /// The view that lists what was found of a kind.
    [[nodiscard]] clsView listView(const Kind& kind) const;

    /// Searches for the words of a text, the first four of more. Throws Error where the words break the
    /// statement.
    static SearchResults read(DatabaseSession& session, const StandardQueries& queries,
                              const QString& keywords);
};
