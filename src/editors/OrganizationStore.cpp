#include "editors/OrganizationStore.h"

#include "data/ControlFill.h"
#include "editors/RecordIdentifier.h"
#include "editors/RecordLinks.h"
#include "editors/RecordValues.h"
#include "files/FileUpload.h"
#include "util/Error.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

const ListSource venueSource{u"Venue"_s, u"VenueName"_s, u"VenueID"_s};
const ListSource jurisdictionSource{u"JurisdictionTypes"_s, u"Name"_s, u"JurisdictionID"_s};
const ListSource populationSource{u"PopulationTypes"_s, u"Name"_s, u"PopulationID"_s};
const LinkTable venueLinks{u"OrganizationVenues"_s, u"OrganizationID"_s, u"VenueID"_s};
const LinkTable jurisdictionLinks{u"OrganizationProfileJurisdictions"_s, u"OrganizationProfileID"_s,
                                  u"JurisdictionID"_s};
const LinkTable populationLinks{u"OrganizationProfilePopulations"_s, u"OrganizationProfileID"_s,
                                u"PopulationID"_s};

QString recordStatement(qint64 id)
{
    return u"SELECT * FROM Organization WHERE OrganizationID = "_s + QString::number(id);
}

QString profileStatement(qint64 id)
{
    return u"SELECT * FROM OrganizationProfile WHERE OrganizationProfileID = "_s + QString::number(id);
}

void fillCheckLists(DatabaseSession& session, OrganizationRecord& record)
{
    fillCheckList(session, venueSource, record.venues);
    fillCheckList(session, jurisdictionSource, record.profile.jurisdictions);
    fillCheckList(session, populationSource, record.profile.populations);
}

void readRow(const RecordTable& rows, OrganizationRecord& record)
{
    record.organizationName = rows.text(0, u"OrganizationName");
    record.address1 = rows.text(0, u"Address1");
    record.address2 = rows.text(0, u"Address2");
    record.address3 = rows.text(0, u"Address3");
    record.city = rows.text(0, u"city");
    record.state = rows.text(0, u"State");
    record.zip = rows.text(0, u"Zip");
    record.fax = rows.text(0, u"Fax");
    record.telephone = rows.text(0, u"Telephone");
    record.website = rows.text(0, u"Website");
    record.responseActivities = rows.text(0, u"ResponseActivities");
    record.notes = rows.text(0, u"Notes");
    record.functionId = RecordValues::key(rows, u"functionId");
    record.organizationTypeId = RecordValues::key(rows, u"OrganizationTypeID");
    record.organizationSubTypeId = RecordValues::key(rows, u"OrganizationSubTypeID");
}

void readProfile(const RecordTable& rows, OrganizationProfile& profile)
{
    profile.missionStatement = rows.text(0, u"MissionStatement");
    profile.swornEmployees = rows.text(0, u"SwornEmployees");
    profile.civilianEmployees = rows.text(0, u"CivilianEmployees");
    profile.volunteers = rows.text(0, u"Volunteers");
    profile.annualBudget = rows.text(0, u"AnnualBudget");
    profile.resources = rows.text(0, u"Resources");
    profile.training = rows.text(0, u"Training");
    profile.other = rows.text(0, u"Other");
    profile.organizationChart = rows.text(0, u"OrganizationChart");
}

void setValues(EditableRecordSet& rows, const OrganizationRecord& record)
{
    rows.set(u"OrganizationName"_s, record.organizationName);
    rows.set(u"Address1"_s, record.address1);
    rows.set(u"Address2"_s, record.address2);
    rows.set(u"Address3"_s, record.address3);
    rows.set(u"city"_s, record.city);
    rows.set(u"State"_s, record.state.isEmpty() ? ListEntry::none().display : record.state);
    rows.set(u"Zip"_s, record.zip);
    rows.set(u"Fax"_s, record.fax);
    rows.set(u"Telephone"_s, record.telephone);
    rows.set(u"Website"_s, record.website);
    rows.set(u"ResponseActivities"_s, record.responseActivities);
    rows.set(u"Notes"_s, record.notes);
    rows.set(u"functionId"_s, record.functionId);
    rows.set(u"OrganizationTypeID"_s, record.organizationTypeId);
    rows.set(u"OrganizationSubTypeID"_s, record.organizationSubTypeId);
}

void setConstants(EditableRecordSet& rows)
{
    rows.set(u"Status"_s, u"ACTIVE"_s);
    rows.set(u"UserID"_s, qint64{1});
}

/// A number of a profile as it is written, or what the user is told where it is none.
struct ProfileNumber
{
    OrganizationField field;
    QString column;
    std::optional<Value> value;
    QString message;
};

std::vector<ProfileNumber> profileNumbers(const OrganizationProfile& profile)
{
    const auto count = [](OrganizationField field, const QString& column, const QString& name,
                          const QString& text) {
        return ProfileNumber{
            field, column, RecordValues::count(text),
            u"%1 \"%2\" is not a number of people. Please type a whole number, such as 1,250."_s.arg(name,
                                                                                                     text)};
    };
    const QString noAmount = u"Annual budget \"%1\" is not a number. Please type one such as 1,250,000.50."_s;
    return {count(OrganizationField::SwornEmployees, u"SwornEmployees"_s, u"Sworn employees"_s,
                  profile.swornEmployees),
            count(OrganizationField::CivilianEmployees, u"CivilianEmployees"_s, u"Civilian employees"_s,
                  profile.civilianEmployees),
            count(OrganizationField::Volunteers, u"Volunteers"_s, u"Volunteers"_s, profile.volunteers),
            {OrganizationField::AnnualBudget, u"AnnualBudget"_s, RecordValues::amount(profile.annualBudget),
             noAmount.arg(profile.annualBudget)}};
}

void setProfileValues(EditableRecordSet& rows, const OrganizationProfile& profile)
{
    rows.set(u"MissionStatement"_s, profile.missionStatement);
    for (const ProfileNumber& number : profileNumbers(profile))
        rows.set(number.column, number.value.value());
    rows.set(u"Resources"_s, profile.resources);
    rows.set(u"Training"_s, profile.training);
    rows.set(u"Other"_s, profile.other);
}

/// Refuses what could not be written as it is, before anything is written.
void requireWritable(const OrganizationRecord& record)
{
    recordIdentifier(record.functionId);
    recordIdentifier(record.organizationTypeId);
    recordIdentifier(record.organizationSubTypeId);
    RecordLinks::requireChecked(record.venues);
    RecordLinks::requireIdentifiers(record.profile.jurisdictions);
    RecordLinks::requireIdentifiers(record.profile.populations);
    for (const ProfileNumber& number : profileNumbers(record.profile)) {
        if (!number.value) throw Error(SQLITE_MISMATCH, number.message);
    }
}

} // namespace

void OrganizationStore::fillStates(std::vector<ListEntry>& entries) const
{
    fillList(m_state.session, {u"States"_s, u"StateAbbreviation"_s, u"StateID"_s}, true, entries);
}

void OrganizationStore::fillOrganizationTypes(std::vector<ListEntry>& entries) const
{
    fillList(m_state.session, {u"OrganizationTypes"_s, u"OrganizationTypeName"_s, u"OrganizationTypeID"_s},
             true, entries);
}

void OrganizationStore::fillFunctions(std::vector<ListEntry>& entries) const
{
    fillList(m_state.session, {u"Function"_s, u"FunctionName"_s, u"FunctionID"_s}, true, entries);
}

void OrganizationStore::fillSubTypes(qint64 organizationTypeId, std::vector<ListEntry>& entries) const
{
    entries.push_back(ListEntry::none());
    RecordSet rows = m_state.session.read(
        u"SELECT * FROM OrganizationSubTypes WHERE OrganizationSubTypeID > 1 AND OrganizationTypeID = "_s +
        QString::number(organizationTypeId) + u" ORDER BY OrganizationSubTypeID"_s);
    const int display = rows.column(u"OrganizationSubTypeName");
    const int key = rows.column(u"OrganizationSubTypeID");
    while (rows.next())
        entries.push_back({rows.text(display), rows.integer(key)});
}

OrganizationRecord OrganizationStore::blank() const
{
    OrganizationRecord record;
    record.state = ListEntry::none().display;
    fillCheckLists(m_state.session, record);
    return record;
}

LoadedRecord<OrganizationRecord> OrganizationStore::load(qint64 id) const
{
    recordIdentifier(id);
    LoadedRecord<OrganizationRecord> loaded;
    OrganizationRecord& record = loaded.record;
    DatabaseSession& session = m_state.session;
    record.id = id;
    fillCheckLists(session, record);
    const RecordTable rows = session.readAll(recordStatement(id));
    loaded.isFound = rows.count() > 0;
    if (loaded.isFound) readRow(rows, record);
    const RecordTable profiles = session.readAll(profileStatement(id));
    if (profiles.count() > 0) readProfile(profiles, record.profile);
    RecordLinks::readChecks(session, jurisdictionLinks, id, true, record.profile.jurisdictions);
    RecordLinks::readChecks(session, populationLinks, id, true, record.profile.populations);
    RecordLinks::readChecks(session, venueLinks, id, false, record.venues);
    return loaded;
}

QString OrganizationStore::notFoundMessage(qint64 id)
{
    return u"OrganizationID %1 not found"_s.arg(id);
}

std::optional<OrganizationStore::Problem> OrganizationStore::check(const OrganizationRecord& record)
{
    if (record.organizationName.isEmpty()) {
        return Problem{OrganizationField::OrganizationName, u"Organization name is required."_s};
    }
    for (const ProfileNumber& number : profileNumbers(record.profile)) {
        if (!number.value) return Problem{number.field, number.message};
    }
    return std::nullopt;
}

ChartPath OrganizationStore::chartPath(qint64 id, const QString& path) const
{
    if (FileUpload::existingFile(path)) return {true, std::nullopt};
    if (path.isEmpty()) return {};
    return {false, FileUpload(m_state).storedChart(path, id)};
}

bool OrganizationStore::hasOtherActiveName(const OrganizationRecord& record) const
{
    return RecordValues::hasRow(m_state.session,
                                u"SELECT * FROM Organization WHERE OrganizationName LIKE "_s +
                                    RecordValues::quotedTitle(record.organizationName) +
                                    u" AND Status = 'ACTIVE'"_s +
                                    RecordValues::exceptFor(u"OrganizationID", record.id));
}

std::optional<OrganizationStore::Problem> OrganizationStore::saveOrganization(OrganizationRecord& record)
{
    requireWritable(record);
    Transaction transaction(m_state.session);
    if (hasOtherActiveName(record)) {
        return Problem{OrganizationField::OrganizationName,
                       u"Organization with identical name already exists. Please choose a different name."_s};
    }
    EditableRecordSet rows = m_state.session.edit(recordStatement(record.id));
    if (rows.atEnd()) rows.addNew();
    const std::int16_t id = recordIdentifier(std::get<qint64>(rows.value(u"OrganizationID")));
    setValues(rows, record);
    setConstants(rows);
    rows.set(u"ParentID"_s, qint64{1});
    rows.update();
    record.id = id;
    writeProfile(record);
    writeLinks(record);
    writeHistory(record);
    transaction.commit();
    return std::nullopt;
}

void OrganizationStore::updateOrganization(const OrganizationRecord& record)
{
    recordIdentifier(record.id);
    requireWritable(record);
    Transaction transaction(m_state.session);
    EditableRecordSet rows = RecordValues::openRecord(m_state.session, recordStatement(record.id));
    setValues(rows, record);
    rows.update();
    writeProfile(record);
    writeLinks(record);
    writeHistory(record);
    transaction.commit();
}

void OrganizationStore::writeProfile(const OrganizationRecord& record)
{
    EditableRecordSet rows = m_state.session.edit(profileStatement(record.id));
    if (rows.atEnd()) {
        rows.addNew();
        rows.set(u"OrganizationProfileID"_s, record.id);
    }
    setProfileValues(rows, record.profile);
    const QString& chart = record.profile.organizationChart;
    const bool hasChart = FileUpload::existingFile(chart).has_value();
    rows.set(u"OrganizationChart"_s, hasChart ? chart : QString());
    rows.set(u"ChartOption"_s, RecordValues::flag(hasChart));
    if (hasChart) FileUpload(m_state).copyChart(chart, record.id);
    rows.update();
}

void OrganizationStore::writeLinks(const OrganizationRecord& record)
{
    RecordLinks::rewriteSettings(m_state.session, jurisdictionLinks, record.id, record.profile.jurisdictions);
    RecordLinks::rewriteSettings(m_state.session, populationLinks, record.id, record.profile.populations);
    RecordLinks::rewriteChecked(m_state.session, venueLinks, record.id, record.venues);
}

void OrganizationStore::writeHistory(const OrganizationRecord& record)
{
    EditableRecordSet rows = m_state.session.edit(
        u"SELECT * FROM Organization_HIST WHERE OrganizationID = "_s + QString::number(record.id));
    rows.addNew();
    rows.set(u"OrganizationID"_s, record.id);
    setValues(rows, record);
    setConstants(rows);
    rows.set(u"UpdateTime"_s, RecordValues::updateTime(m_clock));
    rows.update();
}

QString OrganizationStore::deleteOrganization(qint64 id)
{
    const QString number = QString::number(recordIdentifier(id));
    m_state.session.execute(u"UPDATE Organization SET Status = 'DELETED' WHERE OrganizationID = "_s + number);
    return u"Organization ID "_s + number + u" successfully deleted."_s;
}
