#include "records/OrganizationStore.h"

#include "data/ControlFill.h"
#include "files/FileUpload.h"
#include "records/RecordIdentifier.h"
#include "records/RecordLinks.h"
#include "records/RecordValues.h"
#include "util/Error.h"

#include <sqlite3.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString noState = ListEntry::none().display;
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
    profile.chartOption = rows.integer(0, u"ChartOption") != 0;
}

FieldValues fieldsOf(const OrganizationRecord& record)
{
    return {
        {u"OrganizationName"_s, u"Name"_s, record.organizationName},
        {u"Address1"_s, u"Address"_s, record.address1},
        {u"Address2"_s, u"Address line 2"_s, record.address2},
        {u"Address3"_s, u"Address line 3"_s, record.address3},
        {u"city"_s, u"City"_s, record.city},
        {u"State"_s, u"State"_s, record.state.isEmpty() ? noState : record.state},
        {u"Zip"_s, u"Zip"_s, record.zip},
        {u"Fax"_s, u"Fax"_s, record.fax},
        {u"Telephone"_s, u"Telephone"_s, record.telephone},
        {u"Website"_s, u"Web site"_s, record.website},
        {u"ResponseActivities"_s, u"Response activities"_s, record.responseActivities},
        {u"Notes"_s, u"Notes"_s, record.notes},
        {u"functionId"_s, u"Function"_s, record.functionId},
        {u"OrganizationTypeID"_s, u"Type"_s, record.organizationTypeId},
        {u"OrganizationSubTypeID"_s, u"Sub-type"_s, record.organizationSubTypeId},
    };
}

/// The organization and its profile as they were read, of which only the columns of their rows are known.
OrganizationRecord asRead(const OrganizationRecord& record)
{
    OrganizationRecord read;
    if (!record.stored) return read;
    readRow(record.stored->row, read);
    if (record.stored->profile.count() > 0) readProfile(record.stored->profile, read.profile);
    return read;
}

/// The fields of the organization's own row as an update writes them. An organization without a state gets
/// "None" with every save.
FieldValues fieldsToWrite(const OrganizationRecord& record)
{
    FieldValues fields = fieldsOf(record);
    if (record.stored) {
        StoredStates::keepUnchanged(fields, fieldsOf(asRead(record)), record.stored->row);
    }
    const auto state = std::find_if(fields.begin(), fields.end(),
                                    [](const FieldValue& field) { return field.column == u"State"; });
    if (isNull(state->value) || state->value == Value(QString())) state->value = noState;
    return fields;
}

void setConstants(EditableRecordSet& rows, const QString& status)
{
    rows.set(u"Status"_s, status);
    rows.set(u"UserID"_s, qint64{1});
}

/// A number of a profile as it is written, or what the user is told where it is none.
struct ProfileNumber
{
    OrganizationField field;
    QString column;
    QString caption;
    QString text;
    std::optional<Value> value;
    QString message;
};

std::vector<ProfileNumber> profileNumbers(const OrganizationProfile& profile)
{
    const auto count = [](OrganizationField field, const QString& column, const QString& name,
                          const QString& text) {
        return ProfileNumber{
            field,
            column,
            name,
            text,
            RecordValues::count(text),
            u"%1 \"%2\" is not a number of people. Please type a whole number, such as 1,250."_s.arg(name,
                                                                                                     text)};
    };
    const QString noAmount = u"Annual budget \"%1\" is not a number. Please type one such as 1,250,000.50."_s;
    return {count(OrganizationField::SwornEmployees, u"SwornEmployees"_s, u"Sworn employees"_s,
                  profile.swornEmployees),
            count(OrganizationField::CivilianEmployees, u"CivilianEmployees"_s, u"Civilian employees"_s,
                  profile.civilianEmployees),
            count(OrganizationField::Volunteers, u"Volunteers"_s, u"Volunteers"_s, profile.volunteers),
            {OrganizationField::AnnualBudget, u"AnnualBudget"_s, u"Annual budget"_s, profile.annualBudget,
             RecordValues::amount(profile.annualBudget), noAmount.arg(profile.annualBudget)}};
}

/// A number that cannot be read is held as it was typed.
FieldValues profileFields(const OrganizationProfile& profile)
{
    FieldValues fields{{u"MissionStatement"_s, u"Mission statement"_s, profile.missionStatement}};
    for (const ProfileNumber& number : profileNumbers(profile))
        fields.push_back({number.column, number.caption, number.value.value_or(number.text)});
    fields.push_back({u"Resources"_s, u"Resources"_s, profile.resources});
    fields.push_back({u"Training"_s, u"Training"_s, profile.training});
    fields.push_back({u"Other"_s, u"Other"_s, profile.other});
    fields.push_back({u"OrganizationChart"_s, u"Organization chart"_s, profile.organizationChart});
    fields.push_back({u"ChartOption"_s, u"Organization chart"_s, RecordValues::flag(profile.chartOption)});
    return fields;
}

/// All that another save could have changed.
RecordView viewOf(const OrganizationRecord& record, const QString& status)
{
    FieldValues fields = fieldsOf(record);
    for (FieldValue& field : profileFields(record.profile))
        fields.push_back(std::move(field));
    fields.push_back(RecordLinks::field(jurisdictionLinks, u"Jurisdictions"_s, record.profile.jurisdictions));
    fields.push_back(RecordLinks::field(populationLinks, u"Populations"_s, record.profile.populations));
    fields.push_back(RecordLinks::field(venueLinks, u"Venues"_s, record.venues));
    return {fields, status};
}

/// Refuses what could not be written as it is, before anything is written.
void requireWritable(const OrganizationRecord& record)
{
    const OrganizationRecord read = asRead(record);
    for (const auto key : {&OrganizationRecord::functionId, &OrganizationRecord::organizationTypeId,
                           &OrganizationRecord::organizationSubTypeId}) {
        // a key that the user did not change is not written, whatever it is
        if (record.*key != read.*key) recordIdentifier(record.*key);
    }
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
    fillList(m_session, {u"States"_s, u"StateAbbreviation"_s, u"StateID"_s}, true, entries);
}

void OrganizationStore::fillOrganizationTypes(std::vector<ListEntry>& entries) const
{
    fillList(m_session, {u"OrganizationTypes"_s, u"OrganizationTypeName"_s, u"OrganizationTypeID"_s}, true,
             entries);
}

void OrganizationStore::fillFunctions(std::vector<ListEntry>& entries) const
{
    fillList(m_session, {u"Function"_s, u"FunctionName"_s, u"FunctionID"_s}, true, entries);
}

void OrganizationStore::fillSubTypes(qint64 organizationTypeId, std::vector<ListEntry>& entries) const
{
    entries.push_back(ListEntry::none());
    RecordSet rows = m_session.read(
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
    fillCheckLists(m_session, record);
    return record;
}

LoadedRecord<OrganizationRecord> OrganizationStore::load(qint64 id) const
{
    recordIdentifier(id);
    LoadedRecord<OrganizationRecord> loaded;
    OrganizationRecord& record = loaded.record;
    DatabaseSession& session = m_session;
    record.id = id;
    fillCheckLists(session, record);
    RecordTable row = session.readAll(recordStatement(id));
    loaded.isFound = row.count() > 0;
    if (loaded.isFound) readRow(row, record);
    // of two profiles the one that a save changes
    RecordTable profile = session.edit(profileStatement(id)).current();
    if (profile.count() > 0) readProfile(profile, record.profile);
    RecordLinks::readChecks(session, jurisdictionLinks, id, true, record.profile.jurisdictions);
    RecordLinks::readChecks(session, populationLinks, id, true, record.profile.populations);
    RecordLinks::readChecks(session, venueLinks, id, false, record.venues);
    if (loaded.isFound) {
        const QString status = row.text(0, u"Status");
        record.stored = StoredState{std::move(row), std::move(profile), viewOf(record, status)};
    }
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

ChartPath OrganizationStore::chartPath(const OrganizationRecord& record, const QString& text) const
{
    const FileUpload upload(m_folder);
    const bool isChanged = text != asRead(record).profile.organizationChart;
    if (text.isEmpty() && (isChanged || !record.profile.chartOption)) return {};
    // what lies under the number of a new organization is not its own
    const bool hasCopy = record.stored && upload.copyOfChart(text, record.id);
    // a name alone means the charts folder, wherever the program was started
    const auto named = upload.fileInCharts(text);
    if (named && hasCopy && !isChanged) return {ChartOutcome::Kept, {}, {}};
    if (named) return {ChartOutcome::Taken, *named, {}};
    if (const auto file = FileUpload::existingFile(text)) return {ChartOutcome::Taken, *file, {}};
    if (hasCopy) return {ChartOutcome::Kept, {}, {}};
    return {ChartOutcome::Dropped, {}, upload.storedChart(text, record.id)};
}

bool OrganizationStore::hasOtherActiveName(const OrganizationRecord& record) const
{
    return RecordValues::hasRow(m_session, u"SELECT * FROM Organization WHERE OrganizationName LIKE "_s +
                                               RecordValues::quotedTitle(record.organizationName) +
                                               u" AND Status = 'ACTIVE'"_s +
                                               RecordValues::exceptFor(u"OrganizationID", record.id));
}

std::optional<OrganizationStore::Problem> OrganizationStore::saveOrganization(OrganizationRecord& record)
{
    record.stored.reset();
    requireWritable(record);
    Transaction transaction(m_session);
    if (hasOtherActiveName(record)) {
        return Problem{OrganizationField::OrganizationName,
                       u"Organization with identical name already exists. Please choose a different name."_s};
    }
    EditableRecordSet rows = m_session.edit(recordStatement(record.id));
    if (rows.atEnd()) rows.addNew();
    const std::int16_t id = recordIdentifier(std::get<qint64>(rows.value(u"OrganizationID")));
    StoredStates::setDiffering(rows, fieldsOf(record));
    setConstants(rows, activeStatus);
    rows.set(u"ParentID"_s, qint64{1});
    rows.update();
    record.id = id;
    writeProfile(record);
    writeLinks(record);
    writeHistory(record, activeStatus);
    transaction.commit();
    return std::nullopt;
}

std::optional<RecordConflict> OrganizationStore::updateOrganization(OrganizationRecord& record)
{
    recordIdentifier(record.id);
    requireWritable(record);
    Transaction transaction(m_session);
    EditableRecordSet rows = RecordValues::openRecord(m_session, recordStatement(record.id));
    const auto find = [this, &record] { return load(record.id).record.stored->known; };
    if (auto conflict = StoredStates::conflict(record.stored, find())) return conflict;
    const StoredStates::KnownAfterSave known(record.stored, find);
    StoredStates::setDiffering(rows, fieldsToWrite(record));
    rows.update();
    writeProfile(record);
    writeLinks(record);
    writeHistory(record, StoredStates::historyStatus(rows.value(u"Status")));
    transaction.commit();
    return std::nullopt;
}

void OrganizationStore::writeProfile(const OrganizationRecord& record)
{
    EditableRecordSet rows = m_session.edit(profileStatement(record.id));
    if (rows.atEnd()) {
        rows.addNew();
        rows.set(u"OrganizationProfileID"_s, record.id);
    }
    const OrganizationProfile read = asRead(record).profile;
    const ChartPath chart = chartPath(record, record.profile.organizationChart);
    OrganizationProfile profile = record.profile;
    if (chart.outcome == ChartOutcome::None || chart.outcome == ChartOutcome::Dropped) {
        profile.organizationChart.clear();
    }
    const bool staysAsItIs =
        chart.outcome == ChartOutcome::Kept && profile.organizationChart == read.organizationChart;
    profile.chartOption = staysAsItIs ? read.chartOption : !profile.organizationChart.isEmpty();
    FieldValues fields = profileFields(profile);
    if (record.stored) StoredStates::keepUnchanged(fields, profileFields(read), record.stored->profile);
    StoredStates::setDiffering(rows, fields);
    if (chart.outcome == ChartOutcome::Taken) FileUpload(m_folder).copyChart(chart.source, record.id);
    rows.update();
}

void OrganizationStore::writeLinks(const OrganizationRecord& record)
{
    RecordLinks::rewriteSettings(m_session, jurisdictionLinks, record.id, record.profile.jurisdictions);
    RecordLinks::rewriteSettings(m_session, populationLinks, record.id, record.profile.populations);
    RecordLinks::rewriteChecked(m_session, venueLinks, record.id, record.venues);
}

void OrganizationStore::writeHistory(const OrganizationRecord& record, const QString& status)
{
    EditableRecordSet rows = m_session.edit(u"SELECT * FROM Organization_HIST WHERE OrganizationID = "_s +
                                            QString::number(record.id));
    rows.addNew();
    rows.set(u"OrganizationID"_s, record.id);
    StoredStates::setDiffering(rows, fieldsOf(record));
    setConstants(rows, status);
    rows.set(u"UpdateTime"_s, RecordValues::updateTime(m_clock));
    rows.update();
}

QString OrganizationStore::deleteOrganization(qint64 id)
{
    const QString number = QString::number(recordIdentifier(id));
    m_session.execute(u"UPDATE Organization SET Status = 'DELETED' WHERE OrganizationID = "_s + number);
    return u"Organization ID "_s + number + u" successfully deleted."_s;
}
