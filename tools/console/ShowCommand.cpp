// SPDX-License-Identifier: GPL-3.0-or-later

#include "Collection.h"
#include "Command.h"
#include "Output.h"
#include "RecordContent.h"
#include "export/JsonWriter.h"
#include "journal/Snapshot.h"

using namespace Qt::StringLiterals;

namespace console {

namespace {

void writeText(const std::vector<ComparedField>& fields, Output& output)
{
    for (const ComparedField& each : fields) {
        if (each.newer) writeField(each.field, *each.newer, output);
    }
}

void writeJson(const RecordReference& reference, const VersionContent& record,
               const std::vector<ComparedField>& fields, Output& output)
{
    JsonWriter json(output.text());
    json.beginObject();
    json.member(u"kind", wordOf(reference.kind));
    json.member(u"id", reference.identifier);
    json.member(u"name", Snapshots::titleOf(reference.kind, record.snapshot));
    json.name(u"fields");
    json.beginObject();
    for (const ComparedField& each : fields) {
        if (!each.newer || each.hasLinks()) continue;
        json.name(memberOf(each.field, record));
        writeValue(each.field, *each.newer, record, json);
    }
    json.endObject();
    json.name(u"links");
    json.beginObject();
    for (const ComparedField& each : fields) {
        if (!each.newer || !each.hasLinks()) continue;
        json.name(memberOf(each.field, record));
        writeLinks(each.newer->links, json);
    }
    json.endObject();
    json.endObject();
    json.finish();
}

ExitStatus run(const Invocation& called, Output& output)
{
    const RecordReference reference = recordOf(called.operands[1]);
    DatabaseSession session;
    openForReading(session, called.operands[0]);
    const VersionContent record{Snapshots::ofRecord(session, reference.kind, reference.identifier)};
    if (record.snapshot.rows(recordNames(reference.kind).record).empty()) refuseMissing(reference);
    const std::vector<ComparedField> fields = ComparedFields(reference.kind).compare(record, record);
    called.isJson ? writeJson(reference, record, fields, output) : writeText(fields, output);
    return ExitStatus::Done;
}

} // namespace

Command showCommand()
{
    return {u"show"_s,
            {u"COLLECTION"_s, u"KIND:ID"_s},
            {},
            u"Shows a record with its links"_s,
            u"Each field has its title; one that is empty is left out. In JSON, fields are named as the\n"
            "columns of the database and links as its tables, with the identifiers that they hold."_s,
            run};
}

} // namespace console
