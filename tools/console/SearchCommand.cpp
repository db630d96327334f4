// SPDX-License-Identifier: GPL-3.0-or-later

#include "Collection.h"
#include "Command.h"
#include "Output.h"
#include "RecordRows.h"
#include "export/JsonWriter.h"
#include "search/SearchResults.h"
#include "views/StandardQueries.h"

using namespace Qt::StringLiterals;

namespace console {

namespace {

void writeJson(DatabaseSession& session, const SearchResults& results, Output& output)
{
    JsonWriter json(output.text());
    json.beginObject();
    json.member(u"words", results.keywords);
    for (const SearchResults::Kind& kind : results.kinds) {
        json.name(wordOf(kind.kind));
        writeRows(session, kind.kind, kind.query, json);
    }
    json.endObject();
    json.finish();
}

void writeText(DatabaseSession& session, const SearchResults& results, Output& output)
{
    bool isFirst = true;
    for (const SearchResults::Kind& kind : results.kinds) {
        if (kind.count == 0) continue;
        if (!isFirst) output.line();
        isFirst = false;
        output.line(kind.label());
        writeRows(session, kind.kind, kind.query, output);
    }
    if (isFirst) output.line(u"Nothing was found."_s);
}

ExitStatus run(const Invocation& called, Output& output)
{
    DatabaseSession session;
    openForReading(session, called.operands[0]);
    const StandardQueries queries;
    const SearchResults results = SearchResults::read(session, queries, called.operands[1]);
    called.isJson ? writeJson(session, results, output) : writeText(session, results, output);
    return ExitStatus::Done;
}

} // namespace

Command searchCommand()
{
    return {u"search"_s,
            {u"COLLECTION"_s, u"WORDS..."_s},
            {},
            u"Searches documents, events and organizations"_s,
            u"Finds the records that have all of up to four words in their name, or all of them in their\n"
            "description, as the window's keyword search does: in any letter case, with % for any\n"
            "characters and _ for one. Words beyond the fourth do not count."_s,
            run};
}

} // namespace console
