// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/ProgramFolder.h"
#include "records/OrganizationRecord.h"
#include "records/RecordStore.h"

#include <optional>
#include <vector>

/// The fields of an organization that can fail a check.
enum class OrganizationField
{
    OrganizationName,
    SwornEmployees,
    CivilianEmployees,
    Volunteers,
    AnnualBudget
};

/// What a save does with an organization's chart.
enum class ChartOutcome
{
    None,   ///< there is none, or the user cleared the field
    Taken,  ///< the file is copied into the charts folder
    Kept,   ///< there is no file at the path any more, but its copy in the charts folder stays
    Dropped ///< neither the file nor its copy exists
};

/// What a save does with the text in an organization's chart field.
struct ChartPath
{
    ChartOutcome outcome = ChartOutcome::None;
    QString source; ///< if the file is taken: its path on this machine

    /// If the chart is dropped: another file in the charts folder that an earlier save or an import left for
    /// the organization.
    std::optional<QString> storedCopy;
};

/// Reads and writes organizations, with their profile, their links, their history and their chart.
///
/// What RecordStore says of a save holds here; the program's folder outlives the store.
class OrganizationStore final : public RecordStore<OrganizationRecord>
{
public:
    using Problem = FieldProblem<OrganizationField>;

    OrganizationStore(DatabaseSession& session, const ProgramFolder& folder, const Clock& clock);

    /// Where organizations are kept.
    [[nodiscard]] static const RecordTables<OrganizationRecord>& tables();

    /// The choices of the drop-downs, "None" first. Throws Error; the entries added so far stay.
    void fillStates(std::vector<ListEntry>& entries) const;
    void fillOrganizationTypes(std::vector<ListEntry>& entries) const;
    void fillFunctions(std::vector<ListEntry>& entries) const;

    /// The sub-types of one type, "None" first, then in the order of their identifiers.
    void fillSubTypes(qint64 organizationTypeId, std::vector<ListEntry>& entries) const;

    /// A record to begin with: "None" everywhere, nothing checked.
    [[nodiscard]] OrganizationRecord blank() const;

    [[nodiscard]] static QString notFoundMessage(qint64 id);

    /// The name if it is empty; else the first number of the profile that cannot be read.
    [[nodiscard]] static std::optional<Problem> check(const OrganizationRecord& record);

    /// What a save of that organization does with a text in its chart field.
    [[nodiscard]] ChartPath chartPath(const OrganizationRecord& record, const QString& text) const;

    /// Adds the record and copies its chart, as RecordStore::add does. Returns a problem if another active
    /// organization has that name. Throws Error, and writes nothing, if a number cannot be read.
    [[nodiscard]] std::optional<Problem> saveOrganization(OrganizationRecord& record);

    /// Changes the record as RecordStore::change does. Throws Error, and writes nothing, if a number cannot
    /// be read.
    [[nodiscard]] std::optional<RecordConflict> updateOrganization(OrganizationRecord& record);

    /// Marks a record as deleted, as a part of `step` if there is one, and returns the message that says so.
    QString deleteOrganization(qint64 id, JournalStep* step = nullptr);

private:
    void requireWritable(const OrganizationRecord& record) const override;
    [[nodiscard]] FieldValues changedFields(const OrganizationRecord& record) const override;
    RecordTable readParts(OrganizationRecord& record) const override;
    [[nodiscard]] FieldValues partFields(const OrganizationRecord& record) const override;
    void prepare(OrganizationRecord& record, SaveMode mode, qint64 id, JournaledSave& save) const override;
    void writeParts(const OrganizationRecord& record, SaveMode mode, JournaledSave& save) override;

    const ProgramFolder& m_folder;
};
