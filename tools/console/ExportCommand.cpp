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

/// The formats that are for one kind alone or, without one, for all.
QStringList namesFor(std::optional<RecordKind> kind)
{
    QStringList names;
    for (const ExportFormat& format : exportFormats())
        if (format.kind == kind) names << format.name;
    return names;
}

QString anyOf(QStringList names)
{
    const QString last = names.takeLast();
    return names.isEmpty() ? last : names.join(u", "_s) + u" or "_s + last;
}

/// Such as "csv or json, for documents also bibtex", a line for each kind.
QString formatsText(const QString& separator)
{
    QStringList lines{anyOf(namesFor(std::nullopt))};
    for (const RecordKind kind : recordKinds) {
        const QStringList names = namesFor(kind);
        if (!names.isEmpty()) lines << u"for %1 also %2"_s.arg(wordOf(kind), anyOf(names));
    }
    return lines.join(u',' + separator);
}

/// Throws Error if there is no such format, or if it is not for that kind.
const ExportFormat& formatOf(const QString& name, RecordKind kind)
{
    const ExportFormat* format = exportFormat(name);
    if (format == nullptr) throw Error(EINVAL, u"%1 is no format: %2."_s.arg(name, formatsText(u" "_s)));
    if (!format->isFor(kind))
        throw Error(EINVAL, u"The format %1 is for %2 only."_s.arg(name, wordOf(*format->kind)));
    return *format;
}

ExportOptions optionsOf(const Invocation& called, const ExportFormat& format, RecordKind kind)
{
    ExportOptions options;
    options.forSpreadsheet = called.has(spreadsheetOption);
    options.caption = StandardQueries().all(kind).Caption;
    if (options.forSpreadsheet && !format.hasChoiceOfSpreadsheet)
        throw Error(EINVAL, u"The format %1 has no option %2."_s.arg(format.name, spreadsheetOption));
    return options;
}

ExitStatus run(const Invocation& called, Output& output)
{
    const RecordKind kind = kindOf(called.operands[1]);
    const ExportFormat& format = formatOf(called.operands[2], kind);
    ExportOptions options = optionsOf(called, format, kind);
    const QString file = newFileAt(called.operands[3]);
    DatabaseSession session;
    openForReading(session, called.operands[0]);
    const SharedQuery query = StandardQueries().of(kind);
    ConsoleWorks works; // before there is a file that an interruption could leave
    ExportWork work(session, kind, ExportWork::every(session, kind, query->sqlStr()), format,
                    std::move(options), file);
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
            {{spreadsheetOption, u"makes csv for spreadsheets: no text becomes a formula"_s}},
            u"Exports all records of a kind into a new file"_s,
            u"FORMAT is "_s + formatsText(u"\n"_s) +
                u".\n\nFILE has every record that is not deleted, in the order of the window's list, with\n"
                "all fields and links, and names in place of numbers. The collection is only read,\n"
                "also while a window has it open."_s,
            run};
}

} // namespace console
