// SPDX-License-Identifier: GPL-3.0-or-later

#include "Collection.h"
#include "Command.h"
#include "Output.h"
#include "RecordContent.h"
#include "export/JsonWriter.h"
#include "history/RecordVersions.h"
#include "util/DateTimeText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace console {

namespace {

/// A version of a record beside the one before it.
struct Change
{
    RecordVersion version;
    bool isFirst = false; ///< whether there is none before it
    VersionContent older;
    VersionContent newer;
    std::vector<ComparedField> fields; ///< that differ
};

QString originWord(VersionOrigin origin)
{
    switch (origin) {
    case VersionOrigin::Added:
        return u"added"_s;
    case VersionOrigin::Changed:
        return u"changed"_s;
    case VersionOrigin::Deleted:
        return u"deleted"_s;
    case VersionOrigin::Restored:
        return u"restored"_s;
    case VersionOrigin::Saved:
        return u"saved"_s;
    case VersionOrigin::ChangedElsewhere:
        return u"changed-elsewhere"_s;
    case VersionOrigin::FirstKnown:
        break;
    }
    return u"first-known"_s;
}

Change changeAt(const RecordVersions& versions, std::size_t index, VersionContent newer)
{
    Change change;
    change.version = versions.found()[index];
    change.newer = std::move(newer);
    change.isFirst = index + 1 == versions.found().size();
    if (change.isFirst) return change;
    change.older = versions.content(index + 1);
    change.fields = versions.fields().compare(change.older, change.newer);
    std::erase_if(change.fields, [](const ComparedField& each) { return !each.isDifferent(); });
    return change;
}

/// Calls `write` for each version, newest first. Only two are held at a time.
template <typename Write>
void forEach(const RecordVersions& versions, Write&& write)
{
    VersionContent newer = versions.content(0);
    for (std::size_t i = 0; i < versions.found().size(); ++i) {
        Change change = changeAt(versions, i, std::move(newer));
        write(change);
        newer = std::move(change.older);
    }
}

/// The links that one of the two has and the other has not.
std::vector<NamedLink> missingIn(const std::vector<NamedLink>& links, const std::vector<NamedLink>& others)
{
    std::vector<NamedLink> missing;
    std::copy_if(links.begin(), links.end(), std::back_inserter(missing), [&others](const NamedLink& link) {
        return std::none_of(others.begin(), others.end(),
                            [&link](const NamedLink& other) { return other.key == link.key; });
    });
    return missing;
}

void writeText(const Change& change, Output& output)
{
    output.line(u"%1 %2"_s.arg(change.version.moment, change.version.what()).trimmed());
    const auto write = [&output](QChar sign, const QString& text) {
        QStringList lines = text.split(u'\n');
        for (const QString& line : lines)
            output.line(u"      %1 %2"_s.arg(sign).arg(line));
    };
    for (const ComparedField& each : change.fields) {
        output.line(u"    "_s + each.field.caption + u':');
        if (!each.hasLinks()) {
            if (!each.older->text.isEmpty()) write(u'-', each.older->text);
            if (!each.newer->text.isEmpty()) write(u'+', each.newer->text);
            continue;
        }
        for (const NamedLink& link : missingIn(each.older->links, each.newer->links))
            write(u'-', link.name);
        for (const NamedLink& link : missingIn(each.newer->links, each.older->links))
            write(u'+', link.name);
    }
}

/// A moment in held form, which sorts and which programs read; null if it is not known.
Value momentOf(const RecordVersion& version)
{
    const QStringList parts = version.moment.split(u' ');
    const auto date = DateTimeText::readDate(parts.value(0));
    if (!date) return version.moment.isEmpty() ? Value() : Value(version.moment);
    return (DateTimeText::heldDate(*date) + u' ' + parts.sliced(1).join(u' ')).trimmed();
}

void writeJson(const Change& change, JsonWriter& json)
{
    json.beginObject();
    json.member(u"moment", momentOf(change.version));
    json.member(u"what", originWord(change.version.origin));
    json.member(u"undo", change.version.isUndo);
    json.member(u"redo", change.version.isRedo);
    json.name(u"changes");
    json.beginArray();
    for (const ComparedField& each : change.fields) {
        json.beginObject();
        json.member(u"field", memberOf(each.field, change.newer));
        json.member(u"title", each.field.caption);
        if (each.hasLinks()) {
            json.name(u"removed");
            writeLinks(missingIn(each.older->links, each.newer->links), json);
            json.name(u"added");
            writeLinks(missingIn(each.newer->links, each.older->links), json);
        } else {
            json.name(u"older");
            writeValue(each.field, *each.older, change.older, json);
            json.name(u"newer");
            writeValue(each.field, *each.newer, change.newer, json);
        }
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

ExitStatus run(const Invocation& called, Output& output)
{
    const RecordReference reference = recordOf(called.operands[1]);
    DatabaseSession session;
    openForReading(session, called.operands[0]);
    RecordVersions versions(session, reference.kind, reference.identifier);
    while (versions.hasMore())
        versions.findMore();
    if (versions.found().size() == 1 && versions.present().isEmpty()) refuseMissing(reference);
    if (!called.isJson) {
        forEach(versions, [&output](const Change& change) { writeText(change, output); });
        return ExitStatus::Done;
    }
    JsonWriter json(output.text());
    json.beginObject();
    json.member(u"kind", wordOf(reference.kind));
    json.member(u"id", reference.identifier);
    json.name(u"versions");
    json.beginArray();
    forEach(versions, [&json](const Change& change) { writeJson(change, json); });
    json.endArray();
    json.endObject();
    json.finish();
    return ExitStatus::Done;
}

} // namespace

Command historyCommand()
{
    return {u"history"_s,
            {u"COLLECTION"_s, u"KIND:ID"_s},
            {},
            u"Shows the versions of a record, newest first"_s,
            u"Each version has its moment, how it came about, and what differs from the one before it."_s,
            run};
}

} // namespace console
