#pragma once

#include "data/DatabaseSession.h"
#include "files/ProgramFolder.h"
#include "platform/Clock.h"
#include "records/EditorTypes.h"
#include "records/OrganizationRecord.h"

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
    None,   ///< there is none, or the user emptied the field
    Taken,  ///< the file is copied into the charts folder
    Kept,   ///< the file is not at its path any more, but its copy in the charts folder stays
    Dropped ///< neither the file nor its copy is there
};

/// What a save does with the text in an organization's chart field.
struct ChartPath
{
    ChartOutcome outcome = ChartOutcome::None;
    QString source; ///< if the file is taken: where it is, as a path of the machine

    /// If the chart is dropped: another file in the charts folder that an earlier save or an import left for
    /// the organization.
    std::optional<QString> storedCopy;
};

/// Reads and writes organizations, with their profile, their links, their history and their chart.
///
/// Lives as long as its editor; the session, the program's folder and the clock outlive it. Every failure is
/// an Error. A save is one transaction: what was written before a failure stays, and a process that dies
/// leaves all or nothing.
class OrganizationStore
{
public:
    using Problem = FieldProblem<OrganizationField>;

    OrganizationStore(DatabaseSession& session, const ProgramFolder& folder, const Clock& clock)
        : m_session(session), m_folder(folder), m_clock(clock)
    {
    }

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

    /// What a save of that organization does with a text in its chart field.
    [[nodiscard]] ChartPath chartPath(const OrganizationRecord& record, const QString& text) const;

    /// Adds the record and copies its chart; `record.id` is known afterwards, also if a later step failed.
    /// A record that such a failure left unfinished is completed. Returns a problem, and writes nothing, if
    /// another active organization has that name.
    [[nodiscard]] std::optional<Problem> saveOrganization(OrganizationRecord& record);

    /// Writes a record that exists; what the user did not change stays as it is stored. If somebody else
    /// changed or deleted the record after it was read, returns what differs and writes nothing. A deleted
    /// record stays deleted. Throws Error if it is gone meanwhile; nothing is written then.
    [[nodiscard]] std::optional<RecordConflict> updateOrganization(OrganizationRecord& record);

    /// Marks a record as deleted, and gives the message that says so.
    QString deleteOrganization(qint64 id);

private:
    [[nodiscard]] bool hasOtherActiveName(const OrganizationRecord& record) const;
    void writeProfile(const OrganizationRecord& record);
    void writeLinks(const OrganizationRecord& record);
    void writeHistory(const OrganizationRecord& record, const QString& status);

    DatabaseSession& m_session;
    const ProgramFolder& m_folder;
    const Clock& m_clock;
};
