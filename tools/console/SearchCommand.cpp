// SPDX-License-Identifier: GPL-3.0-or-later

#include "Collection.h"
#include "Command.h"
#include "Output.h"
#include "RecordRows.h"
#include "export/JsonWriter.h"
#include "filetext/FileTextIndex.h"
#include "search/SearchResults.h"
#include "util/Error.h"
#include "views/StandardQueries.h"

#include <QFileInfo>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace console {

namespace {

const QString inFilesOption = u"--in-files"_s;

void writeJson(DatabaseSession& session, const SearchResults& results, Output& output)
{
    JsonWriter json(output.text());
    json.beginObject();
    json.member(u"words", results.keywords);
    for (const SearchResults::Kind& kind : results.kinds) {
        json.name(wordOf(kind.kind));
        writeRows(session, kind.kind, kind.query, json);
    }
    if (results.inFiles) {
        json.name(u"files");
        writeRows(session, RecordKind::Document, results.inFiles->query, json);
        if (!results.inFiles->note.isEmpty()) json.member(u"note", results.inFiles->note);
    }
    json.endObject();
    json.finish();
}

/// Writes the records found by one of the searches; nothing if there are none.
void writeFound(DatabaseSession& session, const QString& label, RecordKind kind, const SharedQuery& query,
                qint64 count, Output& output)
{
    if (count == 0) return;
    if (!output.text().empty()) output.line();
    output.line(label);
    writeRows(session, kind, query, output);
}

void writeText(DatabaseSession& session, const SearchResults& results, Output& output)
{
    for (const SearchResults::Kind& kind : results.kinds)
        writeFound(session, kind.label(), kind.kind, kind.query, kind.count, output);
    const auto& files = results.inFiles;
    if (files) writeFound(session, files->label(), RecordKind::Document, files->query, files->count, output);
    if (output.text().empty()) output.line(u"Nothing was found."_s);
    if (files && !files->note.isEmpty()) output.line(files->note);
}

/// An index that is not there is no search without a result.
void requireIndex(const QString& database)
{
    if (QFileInfo::exists(FileTextIndex::pathOf(database))) return;
    throw Error(ENOENT, u"No window has read the files of this collection yet. (%1)"_s.arg(database));
}

ExitStatus run(const Invocation& called, Output& output)
{
    DatabaseSession session;
    openForReading(session, called.operands[0]);
    const bool isInFiles = called.has(inFilesOption);
    if (isInFiles) requireIndex(session.fileName());
    const StandardQueries queries;
    const SearchResults results = SearchResults::read(session, queries, called.operands[1], isInFiles);
    called.isJson ? writeJson(session, results, output) : writeText(session, results, output);
    return ExitStatus::Done;
}

} // namespace

Command searchCommand()
{
    return {u"search"_s,
            {u"COLLECTION"_s, u"WORDS..."_s},
            {{inFilesOption, u"finds documents by the words in their files, too"_s}},
            u"Searches documents, events and organizations"_s,
            u"Finds the records that have all of up to four words in their name, or all of them in their\n"
            "description, as the window's keyword search does: in any letter case, with % for any\n"
            "characters and _ for one. Words beyond the fourth do not count.\n"
            "In a file, each begins a word. Files that the window has not read yet are not searched."_s,
            run};
}

} // namespace console
