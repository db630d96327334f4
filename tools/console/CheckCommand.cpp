// SPDX-License-Identifier: GPL-3.0-or-later

#include "Collection.h"
#include "Command.h"
#include "ConsoleWorks.h"
#include "Output.h"
#include "check/CollectionCheck.h"
#include "export/JsonWriter.h"

using namespace Qt::StringLiterals;

namespace console {

namespace {

const QString filesOption = u"--files"_s;

QString stepWord(Finding::Step step)
{
    switch (step) {
    case Finding::Step::ShowRecord:
        return u"show-record"_s;
    case Finding::Step::FindFile:
        return u"find-file"_s;
    case Finding::Step::PutAside:
        return u"put-aside"_s;
    case Finding::Step::None:
        break;
    }
    return u"none"_s;
}

QString referenceOf(const Finding::Record& record)
{
    return u"%1:%2"_s.arg(wordOf(record.kind)).arg(record.identifier);
}

void write(JsonWriter& json, const Finding& finding)
{
    json.beginObject();
    json.member(u"text", finding.text);
    json.member(u"step", stepWord(finding.step));
    if (finding.record) json.member(u"record", referenceOf(*finding.record));
    if (!finding.file.isEmpty()) json.member(u"file", finding.file);
    if (!finding.sha256.isEmpty()) json.member(u"sha256", QString::fromLatin1(finding.sha256.toHex()));
    json.endObject();
}

void writeJson(const QString& database, const CollectionCheck& check, Output& output)
{
    JsonWriter json(output.text());
    json.beginObject();
    json.member(u"database", database);
    json.member(u"sound", check.isSound());
    json.name(u"checks");
    json.beginArray();
    for (const CheckResult& result : check.results()) {
        json.beginObject();
        json.member(u"name", checkName(result.topic));
        json.member(u"title", checkCaption(result.topic));
        json.member(u"done", result.isDone && result.hindrance.isEmpty());
        if (!result.hindrance.isEmpty()) json.member(u"hindrance", result.hindrance);
        if (!result.remark.isEmpty()) json.member(u"remark", result.remark);
        json.member(u"count", result.count());
        json.name(u"findings");
        json.beginArray();
        for (const Finding& finding : result.findings)
            write(json, finding);
        json.endArray();
        json.endObject();
    }
    json.endArray();
    json.endObject();
    json.finish();
}

QString summaryOf(const CheckResult& result)
{
    const int count = result.count();
    const QString found = count == 1 ? u"1 finding"_s : u"%1 findings"_s.arg(count);
    if (result.hindrance.isEmpty()) return count == 0 ? u"nothing found"_s : found;
    return (count == 0 ? u"not checked: "_s : found + u", not finished: "_s) + result.hindrance;
}

void writeText(const CollectionCheck& check, Output& output)
{
    for (const CheckResult& result : check.results()) {
        output.line(u"%1: %2"_s.arg(checkCaption(result.topic), summaryOf(result)));
        for (const Finding& finding : result.findings) {
            const QString record = finding.record ? u" (%1)"_s.arg(referenceOf(*finding.record)) : QString();
            output.line(u"    "_s + finding.text + record);
        }
        if (!result.remark.isEmpty()) output.line(u"    "_s + result.remark);
    }
}

ExitStatus run(const Invocation& called, Output& output)
{
    const QString database = databaseOf(called.operands[0]);
    ConsoleWorks works;
    CollectionCheck check(database, folderOf(database),
                          called.has(filesOption) ? CheckScope::StructureAndFiles : CheckScope::Structure,
                          CollectionCheck::notesOf(database));
    if (!works.run(check)) ConsoleWorks::stop();
    called.isJson ? writeJson(database, check, output) : writeText(check, output);
    return check.isSound() ? ExitStatus::Done : ExitStatus::Findings;
}

} // namespace

Command checkCommand()
{
    return {u"check"_s,
            {u"COLLECTION"_s},
            {{filesOption, u"reads every file, too, and compares it with what was taken in"_s}},
            u"Checks a collection and changes nothing in it"_s,
            u"Each check is one line; what it found follows below. The exit status is 1 if anything\n"
            "was found or could not be checked. It can be made while a window has the collection open."_s,
            run};
}

} // namespace console
