// SPDX-License-Identifier: GPL-3.0-or-later

#include "Collection.h"
#include "Command.h"
#include "ConsoleWorks.h"
#include "Output.h"
#include "export/ExportFormats.h"
#include "export/ExportWork.h"
#include "export/JsonWriter.h"
#include "util/Error.h"
#include "views/StandardQueries.h"

#include <cerrno>

using namespace Qt::StringLiterals;

namespace console {

namespace {

const QString spreadsheetOption = u"--spreadsheet"_s;

QString names()
{
    QStringList all;
    for (const ExportFormat& format : exportFormats())
        all << format.name;
    return all.join(u", "_s);
}

/// Throws Error if there is no such format, or if it is not for that kind.
const ExportFormat& formatOf(const QString& name, RecordKind kind)
{
    const ExportFormat* format = exportFormat(name);
    if (format == nullptr)
        throw Error(EINVAL, u"There is no format %1, only %2."_s.arg(Output::printable(name), names()));
    if (!format->isFor(kind))
        throw Error(EINVAL, u"The format %1 is for %2 only."_s.arg(name, wordOf(*format->kind)));
    return *format;
}

ExitStatus run(const Invocation& called, Output& output)
{
    const RecordKind kind = kindOf(called.operands[1]);
    const ExportFormat& format = formatOf(called.operands[2], kind);
    const QString file = newFileAt(called.operands[3]);
    DatabaseSession session;
    openForReading(session, called.operands[0]);
    const SharedQuery query = StandardQueries().of(kind);
    ExportOptions options;
    options.forSpreadsheet = called.has(spreadsheetOption);
    options.caption = StandardQueries().all(kind).Caption;
    ExportWork work(session, kind, ExportWork::every(session, kind, query->sqlStr()), format, options, file);
    ConsoleWorks works;
    if (!works.run(work)) ConsoleWorks::stop();
    if (called.isJson) {
        JsonWriter json(output.text());
        json.beginObject();
        json.member(u"file", file);
        json.member(u"records", static_cast<qint64>(work.count()));
        json.endObject();
        json.finish();
    } else {
        output.line(u"Exported: "_s + file);
        output.line(u"Records: "_s + QString::number(work.count()));
    }
    return ExitStatus::Done;
}

} // namespace

Command exportCommand()
{
    return {u"export"_s,
            {u"COLLECTION"_s, u"KIND"_s, u"FORMAT"_s, u"FILE"_s},
            {{spreadsheetOption, u"csv for programs that calculate: with a byte-order mark"_s}},
            u"Writes all records of a kind into a file"_s,
            u"FORMAT is csv, xlsx, html or json; bibtex or ris for documents, ics for events, kml\n"
            "for organizations."_s,
            run};
}

} // namespace console
