// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/EditorTest.h"
#include "records/DocumentStore.h"
#include "records/EventStore.h"
#include "records/OrganizationStore.h"

namespace {

constexpr int refused = 1;

/// A table in the order in which a save writes it, and how many rows of the record it gets.
struct Table
{
    QString name;
    QString key;
    int rows;
};

class FailedSave : public EditorTest
{
protected:
    /// Lets each table in turn refuse the record: those before it keep their rows; the next save completes
    /// it.
    void expectCompleted(int id, const std::vector<Table>& tables,
                         const std::function<std::function<bool()>()>& newRecord)
    {
        for (std::size_t failing = 0; failing < tables.size(); ++failing) {
            SCOPED_TRACE(qPrintable(tables[failing].name));
            refuseRows(tables[failing].name, tables[failing].key, id);
            const std::function<bool()> save = newRecord();
            EXPECT_EQ(errorNumberOf([&] { (void)save(); }), refused);
            expectRows(id, tables, failing);
            m_database.run("DROP INDEX refuse");
            EXPECT_TRUE(save());
            expectRows(id, tables, tables.size());
            for (const Table& each : tables)
                m_database.run(
                    qPrintable(u"DELETE FROM %1 WHERE %2 = %3"_s.arg(each.name, each.key).arg(id)));
            m_database.run("DELETE FROM Journal"); // else the identifier would not be given again
        }
    }

    void expectRows(int id, const std::vector<Table>& tables, std::size_t written)
    {
        for (std::size_t i = 0; i < tables.size(); ++i) {
            const QString count =
                u"SELECT count(*) FROM %1 WHERE %2 = %3"_s.arg(tables[i].name, tables[i].key).arg(id);
            EXPECT_EQ(ask(qPrintable(count)).toInt(), i < written ? tables[i].rows : 0)
                << qPrintable(tables[i].name);
        }
    }

    /// A save of a new record by its store; returns whether it was saved.
    template <typename Record, typename Store>
    static std::function<bool()> saving(Record record, Store store,
                                        std::optional<typename Store::Problem> (Store::*save)(Record&))
    {
        return [held = std::make_shared<Record>(std::move(record)), store, save]() mutable {
            return !(store.*save)(*held);
        };
    }
};

TEST_F(FailedSave, LeavesWhatWasWrittenAndIsCompleted)
{
    const QString document = u"DocumentID"_s;
    expectCompleted(5,
                    {{u"Document"_s, document, 1},
                     {u"DocumentTypes"_s, document, 1},
                     {u"DocumentCategories"_s, document, 1},
                     {u"DocumentVenues"_s, document, 1},
                     {u"Document_HIST"_s, document, 1}},
                    [this] {
                        DocumentStore store(m_state.session, m_state.folder, m_clock);
                        DocumentRecord record = store.blank(std::nullopt);
                        record.documentName = u"Storm survey"_s;
                        record.originalFilename = userFile(u"survey.pdf"_s, "%PDF");
                        check(record.venues, {3});
                        return saving(record, store, &DocumentStore::saveDocument);
                    });
    const QString event = u"EventID"_s;
    expectCompleted(4,
                    {{u"Event"_s, event, 1},
                     {u"EventVenues"_s, event, 1},
                     {u"EventFunctions"_s, event, 1},
                     {u"DocumentEvents"_s, event, 1},
                     {u"OrganizationEvents"_s, event, 1},
                     {u"Event_HIST"_s, event, 1}},
                    [this] {
                        EventStore store(m_state.session, m_clock);
                        EventRecord record = store.blank(std::nullopt);
                        record.eventName = u"Ice storm"_s;
                        check(record.venues, {12});
                        return saving(record, store, &EventStore::saveEvent);
                    });
    const QString organization = u"OrganizationID"_s;
    const QString profile = u"OrganizationProfileID"_s;
    expectCompleted(6,
                    {{u"Organization"_s, organization, 1},
                     {u"OrganizationProfile"_s, profile, 1},
                     {u"OrganizationProfileJurisdictions"_s, profile, 3},
                     {u"OrganizationProfilePopulations"_s, profile, 2},
                     {u"OrganizationVenues"_s, organization, 1},
                     {u"Organization_HIST"_s, organization, 1}},
                    [this] {
                        OrganizationStore store(m_state.session, m_state.folder, m_clock);
                        OrganizationRecord record = store.blank();
                        record.organizationName = u"Ridge Patrol"_s;
                        check(record.venues, {2});
                        return saving(record, store, &OrganizationStore::saveOrganization);
                    });
}

} // namespace
