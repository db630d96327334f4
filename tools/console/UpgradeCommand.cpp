// SPDX-License-Identifier: GPL-3.0-or-later

#include "Collection.h"
#include "Command.h"
#include "Output.h"
#include "export/JsonWriter.h"
#include "opening/DatabaseUpgrade.h"
#include "platform/WindowDoor.h"
#include "util/Error.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace console {

namespace {

SchemaVersion::Age ageOf(const QString& database)
{
    DatabaseSession session;
    session.open(database, Access::Read);
    if (session.age() == SchemaVersion::Age::Newer) session.requireWritable();
    return session.age();
}

void bringUpToDate(const QString& database)
{
    // no window can open the database until it is done
    WindowDoor door(WindowDoor::folder(), database);
    door.take();
    if (door.isOfAnother()) {
        throw Error(SQLITE_BUSY,
                    u"The collection is open in a window; please close that first. (%1)"_s.arg(database));
    }
    if (const auto hindrance = DatabaseUpgrade::bringUpToDate(database)) throw *hindrance;
    // a file that cannot be changed is left as it is without a word
    DatabaseSession session;
    session.open(database);
    if (session.age() != SchemaVersion::Age::Current) session.requireWritable();
}

ExitStatus run(const Invocation& called, Output& output)
{
    const QString database = databaseOf(called.operands[0]);
    const bool isNeeded = ageOf(database) != SchemaVersion::Age::Current;
    if (isNeeded) bringUpToDate(database);
    if (called.isJson) {
        JsonWriter json(output.text());
        json.beginObject();
        json.member(u"database", database);
        json.member(u"upgraded", isNeeded);
        json.member(u"version", SchemaVersion::current);
        json.endObject();
        json.finish();
        return ExitStatus::Done;
    }
    output.line((isNeeded ? u"Brought up to date: "_s : u"Up to date already: "_s) + database);
    return ExitStatus::Done;
}

} // namespace

Command upgradeCommand()
{
    return {u"upgrade"_s,
            {u"COLLECTION"_s},
            {},
            u"Brings a database of an earlier version up to date"_s,
            u"A copy of the database as it was is kept beside it. A collection that is open in a window is\n"
            "left alone."_s,
            run};
}

} // namespace console
