// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "LookupTables.h"
#include "NameIndex.h"
#include "OrganizationRecords.h"
#include "SampleDatabase.h"

#include <QDir>

#include <set>
#include <vector>

/// What the summary sheets say of an event.
struct EventFacts
{
    QString name;
    QString when; ///< in words; empty if there is no date
    QString description;
    std::set<qint64> organizations;
};

/// The events with their functions, venues and organizations. Filled once from `events.tsv`; the rows of
/// the file are the identifiers from 2 on, in order.
class EventRecords
{
public:
    EventRecords(const QDir& source, const LookupTables& lookups, const OrganizationRecords& organizations,
                 SampleDatabase& database);

    [[nodiscard]] const NameIndex& names() const { return m_names; }
    [[nodiscard]] const EventFacts& facts(qint64 identifier) const;

private:
    void addEvent(const SourceRow& row, const LookupTables& lookups, const OrganizationRecords& organizations,
                  SampleDatabase& database);

    NameIndex m_names{QStringLiteral("event")};
    std::vector<EventFacts> m_facts; ///< by identifier, from 1 on
};
