// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "history/DeletedRecords.h"
#include "history/VersionRestore.h"
#include "journal/UndoSteps.h"
#include "lists/ListStore.h"
#include "records/DocumentStore.h"
#include "records/EventStore.h"
#include "records/OrganizationStore.h"
#include "support/Testing.h"

/// What the user of a collection could do, by chance, through the stores.
class RandomUser
{
public:
    RandomUser(DatabaseSession& session, const ProgramFolder& folder, const Clock& clock, QString file,
               unsigned chance)
        : m_session(session), m_folder(folder), m_clock(clock), m_file(std::move(file)), m_random(chance)
    {
    }

    void doSomething()
    {
        switch (upTo(20)) {
        case 0:
            return goBackOrForth();
        case 1:
        case 2:
            return deleteSome();
        case 3:
            return restoreOne();
        case 4:
        case 5:
            return addEntry();
        case 6:
            return changeEntry();
        case 7:
            return mergeEntries();
        case 8:
            return removeEntry();
        case 9:
        case 10:
        case 11:
            return saveRecord(true);
        default:
            return saveRecord(false);
        }
    }

private:
    int upTo(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }
    bool oneIn(int count) { return upTo(count) == 0; }

    template <typename Each>
    const Each& oneOf(const std::vector<Each>& all)
    {
        return all.at(static_cast<std::size_t>(upTo(static_cast<int>(all.size()))));
    }

    QString someText()
    {
        static const std::vector<QString> texts{u""_s, u"it's \"quoted\" \\ \n\t"_s, u"é e\u0301 \u2028 😀"_s,
                                                u"NULL"_s, u"5.0"_s};
        return oneOf(texts) + QString::number(upTo(1000));
    }

    /// A record beside the reserved one, whether or not it is deleted.
    qint64 someRecord(RecordKind kind)
    {
        const RecordNames names = recordNames(kind);
        const QString ids = u"SELECT %1 FROM %2 WHERE %1 > 1"_s.arg(names.key, names.record);
        std::vector<qint64> found;
        for (const HeldRow& row : HeldRows(m_session).read(ids))
            found.push_back(std::get<qint64>(row.front().second));
        return found.empty() ? 0 : oneOf(found);
    }

    void check(std::vector<CheckEntry>& entries)
    {
        for (CheckEntry& each : entries)
            if (oneIn(3)) each.isChecked = !each.isChecked;
    }

    void link(std::vector<ListEntry>& entries)
    {
        if (!oneIn(2)) return;
        entries.clear();
        for (int i = upTo(4); i > 0; --i)
            entries.push_back({u"x"_s, 2 + i});
    }

    void fill(DocumentRecord& record)
    {
        if (record.id < 0) record.originalFilename = m_file;
        record.documentName = someText();
        record.notes = someText();
        record.documentDescription = u"x"_s;
        record.keyDocument = oneIn(2);
        link(record.types);
        link(record.categories);
        check(record.venues);
    }

    void fill(EventRecord& record)
    {
        record.eventName = someText();
        record.eventDescription = someText();
        record.startDate = oneIn(3) ? QString() : u"09/1%1/2001"_s.arg(upTo(10));
        link(record.functions);
        link(record.documents);
        link(record.organizations);
        check(record.venues);
    }

    void fill(OrganizationRecord& record)
    {
        record.organizationName = someText();
        record.state = oneIn(2) ? u"TX"_s : u"MA"_s;
        record.city = oneIn(2) ? u"Austin"_s : someText();
        record.functionId = 1 + upTo(3);
        record.organizationTypeId = 1 + upTo(3);
        record.profile.annualBudget = oneIn(2) ? QString() : u"12.50"_s;
        record.profile.missionStatement = someText();
        check(record.jurisdictions);
        check(record.populations);
        check(record.venues);
    }

    template <typename Store, typename Record>
    void save(Store store, bool isNew, RecordKind kind, Record blank,
              std::optional<typename Store::Problem> (Store::*add)(Record&),
              std::optional<RecordConflict> (Store::*change)(Record&))
    {
        const qint64 id = isNew ? 0 : someRecord(kind);
        if (id == 0) {
            fill(blank);
            (void)(store.*add)(blank);
        } else {
            Record record = store.load(id).record;
            fill(record);
            (void)(store.*change)(record);
        }
    }

    void saveRecord(bool isNew)
    {
        switch (upTo(3)) {
        case 0: {
            DocumentStore store(m_session, m_folder, m_clock);
            return save(store, isNew, RecordKind::Document, store.blank(std::nullopt),
                        &DocumentStore::saveDocument, &DocumentStore::updateDocument);
        }
        case 1: {
            EventStore store(m_session, m_clock);
            return save(store, isNew, RecordKind::Event, store.blank(std::nullopt), &EventStore::saveEvent,
                        &EventStore::updateEvent);
        }
        default: {
            OrganizationStore store(m_session, m_folder, m_clock);
            return save(store, isNew, RecordKind::Organization, store.blank(),
                        &OrganizationStore::saveOrganization, &OrganizationStore::updateOrganization);
        }
        }
    }

    void deleteSome()
    {
        JournalStep step;
        EventStore events(m_session, m_clock);
        DocumentStore documents(m_session, m_folder, m_clock);
        for (int i = upTo(3); i >= 0; --i) {
            const bool isEvent = oneIn(2);
            const qint64 id = someRecord(isEvent ? RecordKind::Event : RecordKind::Document);
            if (id != 0) isEvent ? events.deleteEvent(id, &step) : documents.deleteDocument(id, &step);
        }
    }

    /// Brings deleted records back, or makes a record what it was at some moment.
    void restoreOne()
    {
        const RecordKind kind = recordKinds[static_cast<std::size_t>(upTo(recordKinds.size()))];
        const DeletedRecords deleted(m_session, m_clock);
        std::vector<qint64> gone;
        for (const DeletedRecord& each : deleted.read(kind))
            if (oneIn(3)) gone.push_back(each.identifier);
        if (!gone.empty() && oneIn(2)) {
            deleted.restore(kind, gone);
            return;
        }
        const auto rows = HeldRows(m_session).read(
            u"SELECT Number, Identifier, After FROM Journal WHERE Kind = ? AND After IS NOT NULL "
            "ORDER BY Number DESC LIMIT 30"_s,
            {recordNames(kind).record});
        if (rows.empty()) return;
        const HeldRow& row = oneOf(rows);
        const qint64 id = wholeNumberOf(row, u"Identifier");
        const Snapshot present = Snapshots::ofRecord(m_session, kind, id);
        if (present.rows(recordNames(kind).record).empty()) return;
        VersionRestore(m_session, m_clock, m_folder, kind, id)
            .restore({Snapshots::fromJson(valueOf(row, u"After")), true, wholeNumberOf(row, u"Number")},
                     present);
    }

    void goBackOrForth()
    {
        UndoSteps steps(m_session, m_clock, m_folder);
        for (int i = upTo(4); i >= 0; --i)
            (void)steps.undo();
        for (int i = upTo(4); i > 0; --i)
            (void)steps.redo();
    }

    ListKind someList() { return listKinds[static_cast<std::size_t>(upTo(listKinds.size()))]; }

    LookupEntry someEntry(qint64 key)
    {
        LookupEntry entry{key, someText(), oneIn(2) ? u"TX"_s : u"MA"_s, 2 + upTo(2)};
        if (oneIn(2)) entry.position = MapPosition{30.267153000000003, oneIn(2) ? -97.0 : -97.743061};
        return entry;
    }

    void addEntry() { (void)ListStore(m_session, m_clock).add(someList(), someEntry(0)); }

    void changeEntry()
    {
        const ListKind list = someList();
        ListStore store(m_session, m_clock);
        const auto names = store.names(list);
        if (!names.empty()) (void)store.change(list, someEntry(oneOf(names).key));
    }

    void mergeEntries()
    {
        const ListKind list = someList();
        ListStore store(m_session, m_clock);
        const auto names = store.names(list);
        if (names.size() > 2) (void)store.merge(list, oneOf(names).key, oneOf(names).key);
    }

    void removeEntry()
    {
        const ListKind list = someList();
        ListStore store(m_session, m_clock);
        const auto names = store.names(list);
        if (names.size() > 2) (void)store.remove(list, oneOf(names).key);
    }

    DatabaseSession& m_session;
    const ProgramFolder& m_folder;
    const Clock& m_clock;
    QString m_file;
    std::mt19937 m_random;
};
