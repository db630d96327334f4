// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/OrganizationStore.h"

#include "files/FileUpload.h"
#include "records/OrganizationColumns.h"
#include "records/RecordsTexts.h"
#include "util/Error.h"

#include <sqlite3.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString profileStatement(qint64 id)
{
    return u"SELECT * FROM OrganizationProfile WHERE OrganizationProfileID = "_s + QString::number(id);
}

FieldValues profileFields(const OrganizationProfile& profile)
{
    return RecordColumns::fields(profileColumns, profile, [](const auto& /*each*/) { return true; });
}

/// The profile as it was read; empty if there was none.
OrganizationProfile profileAsRead(const OrganizationRecord& record)
{
    OrganizationProfile read;
    if (record.stored && record.stored->profile.count() > 0) {
        RecordColumns::read(profileColumns, record.stored->profile, read);
    }
    return read;
}

/// The first number of a profile that cannot be read.
std::optional<OrganizationStore::Problem> unreadableNumber(const OrganizationProfile& profile)
{
    const QString noCount =
        RecordsTexts::tr("%1 \"%2\" is not a number of people. Please type a whole number, such as 1,250.");
    const QString noAmount =
        RecordsTexts::tr("%1 \"%2\" is not a number. Please type one such as 1,250,000.50.");
    const auto isCount = [](const QString& text) { return RecordValues::count(text).has_value(); };
    const struct
    {
        OrganizationField field;
        QString name;
        QString text;
        bool isRead;
        QString message;
    } numbers[] = {
        {OrganizationField::SwornEmployees, RecordsTexts::tr("Sworn employees"), profile.swornEmployees,
         isCount(profile.swornEmployees), noCount},
        {OrganizationField::CivilianEmployees, RecordsTexts::tr("Civilian employees"),
         profile.civilianEmployees, isCount(profile.civilianEmployees), noCount},
        {OrganizationField::Volunteers, RecordsTexts::tr("Volunteers"), profile.volunteers,
         isCount(profile.volunteers), noCount},
        {OrganizationField::AnnualBudget, RecordsTexts::tr("Annual budget"), profile.annualBudget,
         RecordValues::amount(profile.annualBudget).has_value(), noAmount},
    };
    for (const auto& [field, name, text, isRead, message] : numbers) {
        if (!isRead) return OrganizationStore::Problem{field, message.arg(name, text)};
    }
    return std::nullopt;
}

} // namespace

const RecordTables<OrganizationRecord>& OrganizationStore::tables()
{
    using Checks = CheckLink<OrganizationRecord>;
    static const RecordTables<OrganizationRecord> tables{
        RecordKind::Organization,
        &OrganizationRecord::organizationName,
        u"Status"_s,
        organizationColumns,
        {{u"UserID"_s, qint64{1}, History::Copied}, {u"ParentID"_s, qint64{1}, History::NotCopied}},
        {Checks{{u"OrganizationProfileJurisdictions"_s, u"OrganizationProfileID"_s, u"JurisdictionID"_s},
                QT_TRANSLATE_NOOP("Records", "Jurisdictions"),
                &OrganizationRecord::jurisdictions,
                {u"JurisdictionTypes"_s, u"Name"_s, u"JurisdictionID"_s},
                true},
         Checks{{u"OrganizationProfilePopulations"_s, u"OrganizationProfileID"_s, u"PopulationID"_s},
                QT_TRANSLATE_NOOP("Records", "Populations"),
                &OrganizationRecord::populations,
                {u"PopulationTypes"_s, u"Name"_s, u"PopulationID"_s},
                true},
         Checks{{u"OrganizationVenues"_s, u"OrganizationID"_s, u"VenueID"_s},
                QT_TRANSLATE_NOOP("Records", "Venues"),
                &OrganizationRecord::venues,
                {u"Venue"_s, u"VenueName"_s, u"VenueID"_s}}}};
    return tables;
}

OrganizationStore::OrganizationStore(DatabaseSession& session, const ProgramFolder& folder,
                                     const Clock& clock)
    : RecordStore(session, clock, tables()), m_folder(folder)
{
}

void OrganizationStore::fillStates(std::vector<ListEntry>& entries) const
{
    fillList(session(), {u"States"_s, u"StateAbbreviation"_s, u"StateID"_s}, true, entries);
}

void OrganizationStore::fillOrganizationTypes(std::vector<ListEntry>& entries) const
{
    fillList(session(), {u"OrganizationTypes"_s, u"OrganizationTypeName"_s, u"OrganizationTypeID"_s}, true,
             entries);
}

void OrganizationStore::fillFunctions(std::vector<ListEntry>& entries) const
{
    fillList(session(), {u"Function"_s, u"FunctionName"_s, u"FunctionID"_s}, true, entries);
}

void OrganizationStore::fillSubTypes(qint64 organizationTypeId, std::vector<ListEntry>& entries) const
{
    entries.push_back(ListEntry::none());
    RecordSet rows = session().read(
        u"SELECT * FROM OrganizationSubTypes WHERE OrganizationSubTypeID > 1 AND OrganizationTypeID = "_s +
        QString::number(organizationTypeId) + u" ORDER BY OrganizationSubTypeID"_s);
    const int display = rows.column(u"OrganizationSubTypeName");
    const int key = rows.column(u"OrganizationSubTypeID");
    while (rows.next())
        entries.push_back({rows.text(display), rows.integer(key)});
}

OrganizationRecord OrganizationStore::blank() const
{
    OrganizationRecord record = emptyRecord();
    record.state = ListEntry::none().display;
    return record;
}

QString OrganizationStore::notFoundMessage(qint64 id)
{
    return RecordsTexts::tr("OrganizationID %1 not found").arg(id);
}

std::optional<OrganizationStore::Problem> OrganizationStore::check(const OrganizationRecord& record)
{
    if (record.organizationName.isEmpty()) {
        return Problem{OrganizationField::OrganizationName,
                       RecordsTexts::tr("Organization name is required.")};
    }
    return unreadableNumber(record.profile);
}

ChartPath OrganizationStore::chartPath(const OrganizationRecord& record, const QString& text) const
{
    const FileUpload upload(m_folder);
    const bool isChanged = text != profileAsRead(record).organizationChart;
    if (text.isEmpty() && (isChanged || !record.profile.chartOption)) return {};
    // a file under the number of a new organization belongs to another one
    const bool hasCopy = record.stored && upload.copyOfChart(text, record.id);
    // a bare name is looked for in the charts folder, not in the working directory
    const auto named = upload.fileInCharts(text);
    if (named && hasCopy && !isChanged) return {ChartOutcome::Kept, {}, {}};
    if (named) return {ChartOutcome::Taken, *named, {}};
    if (const auto file = FileUpload::existingFile(text)) return {ChartOutcome::Taken, *file, {}};
    if (hasCopy) return {ChartOutcome::Kept, {}, {}};
    return {ChartOutcome::Dropped, {}, upload.storedChart(text, record.id)};
}

std::optional<OrganizationStore::Problem> OrganizationStore::saveOrganization(OrganizationRecord& record)
{
    if (add(record)) return std::nullopt;
    return Problem{
        OrganizationField::OrganizationName,
        RecordsTexts::tr("Organization with identical name already exists. Please choose a different name.")};
}

std::optional<RecordConflict> OrganizationStore::updateOrganization(OrganizationRecord& record)
{
    return change(record);
}

QString OrganizationStore::deleteOrganization(qint64 id, JournalStep* step)
{
    return remove(id, step);
}

void OrganizationStore::requireWritable(const OrganizationRecord& record) const
{
    RecordStore::requireWritable(record);
    if (const auto problem = unreadableNumber(record.profile)) throw Error(SQLITE_MISMATCH, problem->message);
}

/// An organization without a state gets "None" with every save.
FieldValues OrganizationStore::changedFields(const OrganizationRecord& record) const
{
    FieldValues fields = RecordStore::changedFields(record);
    const auto state = std::find_if(fields.begin(), fields.end(),
                                    [](const FieldValue& field) { return field.column == u"State"; });
    if (isNull(state->value) || state->value == Value(QString())) state->value = ListEntry::none().display;
    return fields;
}

/// Of two profiles, reads the one that a save changes.
RecordTable OrganizationStore::readParts(OrganizationRecord& record) const
{
    RecordTable profile = session().edit(profileStatement(record.id)).current();
    if (profile.count() > 0) RecordColumns::read(profileColumns, profile, record.profile);
    return profile;
}

FieldValues OrganizationStore::partFields(const OrganizationRecord& record) const
{
    return profileFields(record.profile);
}

void OrganizationStore::prepare(OrganizationRecord& record, SaveMode /*mode*/, qint64 id,
                                JournaledSave& save) const
{
    const ChartPath chart = chartPath(record, record.profile.organizationChart);
    if (chart.outcome == ChartOutcome::Taken) save.files(m_folder).keepChart(chart.source, id);
}

void OrganizationStore::writeParts(const OrganizationRecord& record, SaveMode /*mode*/, JournaledSave& save)
{
    EditableRecordSet rows = session().edit(profileStatement(record.id));
    if (rows.atEnd()) {
        rows.addNew();
        rows.set(u"OrganizationProfileID"_s, record.id);
    }
    const OrganizationProfile read = profileAsRead(record);
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
    if (chart.outcome == ChartOutcome::Taken) save.files(m_folder).takeChart(chart.source, record.id);
    rows.update();
}
