// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "LookupTables.h"
#include "NameIndex.h"
#include "SampleDatabase.h"

#include <QDir>

#include <set>
#include <vector>

/// What the summary sheets say of an organization.
struct OrganizationFacts
{
    QString name;
    QString place; ///< "City, ST"; empty if it is not known
    QString activities;
};

/// The organizations with their profiles, settings and venues. Filled once from `organizations.tsv`; the
/// rows of the file are the identifiers from 2 on, in order.
class OrganizationRecords
{
public:
    /// `charted` are the names of the organizations that have a chart file.
    OrganizationRecords(const QDir& source, const QStringList& charted, const LookupTables& lookups,
                        SampleDatabase& database);

    [[nodiscard]] const NameIndex& names() const { return m_names; }
    [[nodiscard]] const OrganizationFacts& facts(qint64 identifier) const;

private:
    void addOrganization(const SourceRow& row, const LookupTables& lookups, SampleDatabase& database);
    void addProfile(qint64 identifier, const SourceRow& row, bool hasChart, const LookupTables& lookups,
                    SampleDatabase& database) const;

    NameIndex m_names{QStringLiteral("organization")};
    std::vector<OrganizationFacts> m_facts; ///< by identifier, from 1 on
};
