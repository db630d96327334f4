// SPDX-License-Identifier: GPL-3.0-or-later

#include "Collection.h"
#include "Command.h"
#include "Output.h"
#include "RecordRows.h"
#include "export/JsonWriter.h"
#include "views/StandardQueries.h"

using namespace Qt::StringLiterals;

namespace console {

namespace {

ExitStatus run(const Invocation& called, Output& output)
{
    const RecordKind kind = kindOf(called.operands[1]);
    DatabaseSession session;
    openForReading(session, called.operands[0]);
    const SharedQuery query = StandardQueries().of(kind);
    if (!called.isJson) {
        writeRows(session, kind, query, output);
        return ExitStatus::Done;
    }
    JsonWriter json(output.text());
    json.beginObject();
    json.member(u"kind", wordOf(kind));
    json.name(u"records");
    writeRows(session, kind, query, json);
    json.endObject();
    json.finish();
    return ExitStatus::Done;
}

} // namespace

Command listCommand()
{
    return {u"list"_s,
            {u"COLLECTION"_s, u"KIND"_s},
            {},
            u"Lists all records of a kind"_s,
            u"The records come in the order of the window's list, with its columns. JSON holds dates as\n"
            "YYYY-MM-DD and times as HH:MM."_s,
            run};
}

} // namespace console
