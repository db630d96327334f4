// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/DocumentColumns.h"
#include "records/EventColumns.h"
#include "records/OrganizationColumns.h"
#include "support/TestDatabase.h"

namespace {

/// The columns that the editors know: all of a table, or those that its history has too.
template <typename Record, std::size_t count>
QStringList known(const RecordColumn<Record> (&columns)[count], bool isHistory)
{
    QStringList names;
    for (const RecordColumn<Record>& each : columns) {
        if (!isHistory || each.history == History::Copied) names << each.column.toString();
    }
    return names;
}

QStringList sorted(const QStringList& names)
{
    QStringList all;
    for (const QString& name : names)
        all << name.toLower();
    all.sort();
    return all;
}

TEST(Columns, OfEveryTableAreKnownToItsEditorOrFilledByItsStore)
{
    const TestDatabase database;
    const struct
    {
        QString table;
        QStringList known;
        QString own; ///< those that no control shows
    } tables[] = {
        {u"Document"_s, known(documentColumns, false),
         u"DocumentID ReleaseForm dStatus UserID POCID Status"_s},
        {u"Document_HIST"_s, known(documentColumns, true),
         u"DocumentID ReleaseForm dStatus UserID POCID Status UpdateTime"_s},
        {u"Event"_s, known(eventColumns, false), u"EventID Status UserID"_s},
        {u"Event_HIST"_s, known(eventColumns, true), u"EventID Status UserID UpdateTime"_s},
        {u"Organization"_s, known(organizationColumns, false),
         u"OrganizationID Lat Lon Status UserID ParentID"_s},
        {u"Organization_HIST"_s, known(organizationColumns, true),
         u"OrganizationID Lat Lon Status UserID ParentID UpdateTime"_s},
        {u"OrganizationProfile"_s, known(profileColumns, false), u"OrganizationProfileID"_s},
    };
    for (const auto& [table, known, own] : tables) {
        const QString statement = u"SELECT name FROM pragma_table_info('%1')"_s.arg(table);
        EXPECT_EQ(sorted(database.ask(qPrintable(statement)).split(u'\n')), sorted(known + own.split(u' ')))
            << qPrintable(table);
    }
    EXPECT_TRUE(known(profileColumns, true).isEmpty()) << "profiles have no history";
}

} // namespace
