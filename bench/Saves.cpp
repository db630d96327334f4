// SPDX-License-Identifier: GPL-3.0-or-later

#include "Saves.h"

#include "records/DocumentStore.h"
#include "records/EventStore.h"
#include "records/OrganizationStore.h"

#include <memory>
#include <vector>

namespace {

const QString text(Saves::textLength, u'x');

std::vector<ListEntry> twoLinks()
{
    return {{QStringLiteral("a"), 2}, {QStringLiteral("b"), 3}};
}

void checkTwo(std::vector<CheckEntry>& entries)
{
    for (CheckEntry& entry : entries)
        entry.isChecked = entry.entry.key == 2 || entry.entry.key == 3;
}

QString nextTitle(int& round)
{
    return QStringLiteral("Saved %1").arg(++round);
}

/// A new record has no identifier; else it would be taken for one that was saved half-way.
template <typename Record>
void begin(Record& record, bool adds)
{
    if (adds) record.id = -1;
}

} // namespace

qint64 Saves::changedOrganization(DatabaseSession& session)
{
    return session
        .readAll(QStringLiteral("SELECT min(OrganizationProfileID) AS id FROM OrganizationProfile "
                                "WHERE OrganizationProfileID > 1"))
        .integer(0, u"id");
}

std::function<bool()> Saves::saving(ProgramState& state, const Clock& clock, const QString& file,
                                    RecordKind kind, bool adds)
{
    if (kind == RecordKind::Document) {
        DocumentStore store(state.session, state.folder, clock);
        DocumentRecord record = store.load(2).record;
        record.documentDescription = text;
        record.originalFilename = file;
        record.types = record.categories = twoLinks();
        checkTwo(record.venues);
        return [=, round = 0]() mutable {
            begin(record, adds);
            record.documentName = nextTitle(round);
            return adds ? !store.saveDocument(record) : !store.updateDocument(record);
        };
    }
    if (kind == RecordKind::Event) {
        EventStore store(state.session, clock);
        EventRecord record = store.load(2).record;
        record.eventDescription = text;
        record.startDate = QStringLiteral("09/11/2001");
        record.functions = record.documents = record.organizations = twoLinks();
        checkTwo(record.venues);
        return [=, round = 0]() mutable {
            begin(record, adds);
            record.eventName = nextTitle(round);
            return adds ? !store.saveEvent(record) : !store.updateEvent(record);
        };
    }
    OrganizationStore store(state.session, state.folder, clock);
    OrganizationRecord record = store.load(changedOrganization(state.session)).record;
    record.responseActivities = record.profile.missionStatement = text;
    checkTwo(record.venues);
    return [=, round = 0]() mutable {
        begin(record, adds);
        record.organizationName = nextTitle(round);
        return adds ? !store.saveOrganization(record) : !store.updateOrganization(record);
    };
}
