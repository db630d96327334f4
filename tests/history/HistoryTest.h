// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "history/RecordVersions.h"
#include "records/EventStore.h"
#include "records/OrganizationStore.h"
#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"

/// A database with records of every kind, whose clock goes on by a minute with each save.
class HistoryTest : public testing::Test
{
protected:
    HistoryTest()
    {
        database.runFile("editors/rows/Editor.sql");
        clock.moment = QDateTime(QDate(2005, 6, 15), QTime(12, 0));
    }

    /// Changes the event 2 as its editor does.
    template <typename Change>
    void changeEvent(Change change)
    {
        clock.moment = clock.moment.addSecs(60);
        EventRecord event = events.load(2).record;
        change(event);
        ASSERT_FALSE(events.updateEvent(event));
    }

    void changeTitle(const QString& title)
    {
        changeEvent([&](EventRecord& event) { event.eventName = title; });
    }

    static void tick(std::vector<CheckEntry>& entries, std::initializer_list<qint64> keys)
    {
        for (CheckEntry& entry : entries)
            entry.isChecked = std::find(keys.begin(), keys.end(), entry.entry.key) != keys.end();
    }

    RecordVersions versionsOf(RecordKind kind, qint64 identifier)
    {
        return {database.session(), kind, identifier};
    }

    /// The versions of a record, one a line: moment, what and fields.
    std::string listed(RecordKind kind, qint64 identifier)
    {
        RecordVersions versions = versionsOf(kind, identifier);
        while (versions.hasMore())
            versions.findMore();
        QStringList lines;
        for (std::size_t i = 0; i < versions.found().size(); ++i) {
            const RecordVersion& version = versions.found()[i];
            lines << version.moment + u'|' + version.what() + u'|' +
                         versions.changedFields(i).join(QStringLiteral(", "));
        }
        return lines.join(u'\n').toStdString();
    }

    TestDatabase database;
    ScriptedClock clock;
    ProgramFolder folder{database.folder()};
    EventStore events{database.session(), clock};
};
