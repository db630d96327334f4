// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "lists/ListKind.h"
#include "lists/LookupEntry.h"
#include "platform/Clock.h"

#include <QString>

#include <optional>
#include <vector>

class DatabaseSession;

/// What became of a change to a list.
struct ListOutcome
{
    QString problem{};  ///< the message if nothing was written; else empty
    qint64 key = 0;     ///< of the entry that was written, or that the others were merged into
    qint64 records = 0; ///< how many records changed with it, deleted ones included
};

/// Changes the lists. Each change is written wholly or not at all, and noted in the journal: it returns a
/// problem, or throws Error, if nothing was written. The history of the records stays as it is, since it
/// tells the past.
class ListStore
{
public:
    /// The session and the clock must outlive the store.
    ListStore(DatabaseSession& session, const Clock& clock) : m_session(session), m_clock(clock) {}

    /// All entries of a list that can be changed, with what uses them, ordered by name. Throws Error.
    [[nodiscard]] std::vector<LookupRow> read(ListKind list) const;

    /// The same without what uses them.
    [[nodiscard]] std::vector<LookupEntry> names(ListKind list) const;

    /// Adds an entry; its key is found here. Throws Error 6 if there is none left within 16 bits.
    [[nodiscard]] ListOutcome add(ListKind list, const LookupEntry& entry);

    /// Changes the entry of that key. The organizations of a state or a city take its new name. A sub-type
    /// keeps its type.
    [[nodiscard]] ListOutcome change(ListKind list, const LookupEntry& entry);

    /// Lets all that uses one entry use another one, and removes the first. The sub-types of a type and the
    /// known cities of a state go with it; those of equal names become one.
    [[nodiscard]] ListOutcome merge(ListKind list, qint64 from, qint64 into);

    /// Removes an entry that nothing uses.
    [[nodiscard]] ListOutcome remove(ListKind list, qint64 key);

    /// Returns why an entry cannot be removed, or an empty text if it can.
    [[nodiscard]] static QString hindranceOfRemoval(ListKind list, const LookupRow& row);

    /// Reads a position as it is typed: two numbers of degrees, or nothing for none. Returns the message
    /// about what cannot be read, or an empty text.
    [[nodiscard]] static QString readPosition(const QString& lat, const QString& lon,
                                              std::optional<MapPosition>& position);

private:
    [[nodiscard]] QString problemOf(ListKind list, const LookupEntry& entry,
                                    const std::optional<LookupEntry>& before) const;
    [[nodiscard]] LookupRow rowOf(ListKind list, qint64 key) const;
    [[nodiscard]] LookupEntry entryOf(ListKind list, qint64 key) const;
    void write(ListKind list, const LookupEntry& entry, bool isNew);

    DatabaseSession& m_session;
    const Clock& m_clock;
};
