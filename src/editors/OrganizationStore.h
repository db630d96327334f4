#pragma once

#include "app/ProgramState.h"
#include "editors/EditorTypes.h"
#include "editors/OrganizationRecord.h"
#include "platform/Clock.h"

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

/// What a save would do with the path of an organization's chart.
struct ChartPath
{
    /// Whether a file is there, so that a save takes it; else a save drops the chart.
    bool isFile = false;

    /// Where there is none: the copy that an earlier save or an import left in the program's folder.
    std::optional<QString> storedCopy;
};

/// Reads and writes organizations, with their profile, their links, their history and their chart.
///
/// Lives as long as its editor; the program's state and the clock outlive it. Every failure is an Error. A
/// save is one transaction: what was written before a failure stays, and a process that dies leaves all or
/// nothing.
class OrganizationStore
{
public:
    using Problem = FieldProblem<OrganizationField>;

    OrganizationStore(ProgramState& state, const Clock& clock) : m_state(state), m_clock(clock) {}

    /// The choices of the drop-downs, "None" first. Throws Error; the entries added so far stay.
    void fillStates(std::vector<ListEntry>& entries) const;
    void fillOrganizationTypes(std::vector<ListEntry>& entries) const;
    void fillFunctions(std::vector<ListEntry>& entries) const;

    /// The sub-types of one type, "None" first, then in the order of their identifiers.
    void fillSubTypes(qint64 organizationTypeId, std::vector<ListEntry>& entries) const;

    /// A record to begin with: "None" everywhere, nothing checked.
    [[nodiscard]] OrganizationRecord blank() const;

    /// A record for editing or viewing. Throws Error 6 for an identifier beyond 16 bits.
    [[nodiscard]] LoadedRecord<OrganizationRecord> load(qint64 id) const;
    [[nodiscard]] static QString notFoundMessage(qint64 id);

    /// The name where it is empty; else the first number of the profile that is none.
    [[nodiscard]] static std::optional<Problem> check(const OrganizationRecord& record);

    /// What a save of that organization does with a path in its chart field.
    [[nodiscard]] ChartPath chartPath(qint64 id, const QString& path) const;

    /// Adds the record and copies its chart; `record.id` is known afterwards, also if a later step failed.
    /// A record that such a failure left unfinished is completed. Returns a problem, and writes nothing, if
    /// another active organization has that name.
    [[nodiscard]] std::optional<Problem> saveOrganization(OrganizationRecord& record);

    /// Writes a record that exists. Throws Error where it is gone meanwhile; nothing is written then.
    void updateOrganization(const OrganizationRecord& record);

    /// Marks a record as deleted, and gives the message that says so.
    QString deleteOrganization(qint64 id);

private:
    [[nodiscard]] bool hasOtherActiveName(const OrganizationRecord& record) const;
    void writeProfile(const OrganizationRecord& record);
    void writeLinks(const OrganizationRecord& record);
    void writeHistory(const OrganizationRecord& record);

    ProgramState& m_state;
    const Clock& m_clock;
};
