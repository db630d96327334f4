// SPDX-License-Identifier: GPL-3.0-or-later

#include "Collection.h"
#include "Command.h"
#include "ConsoleWorks.h"
#include "ManifestOutput.h"
#include "Output.h"
#include "export/JsonWriter.h"
#include "opening/RestoredCollection.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace console {

namespace {

ExitStatus run(const Invocation& called, Output& output)
{
    const QString archive = called.operands[0];
    const NewFolder folder = NewFolder::at(called.operands[1]);
    ConsoleWorks works;
    const auto restored = RestoredCollection::make(works, archive, folder.place,
                                                   {folder.name, RestoredCollection::filesFor(archive)});
    if (!restored) ConsoleWorks::stop();
    const QString made = QDir::cleanPath(QFileInfo(restored->database).path() + u"/.."_s);
    if (called.isJson) {
        JsonWriter json(output.text());
        json.beginObject();
        json.member(u"collection", made);
        json.member(u"database", restored->database);
        writeAmount(restored->manifest, json);
        json.endObject();
        json.finish();
    } else {
        output.line(u"Restored and verified: "_s + made);
        writeAmount(restored->manifest, output);
    }
    return ExitStatus::Done;
}

} // namespace

Command restoreCommand()
{
    return {
        u"restore"_s,
        {u"ARCHIVE"_s, u"FOLDER"_s},
        {},
        u"Makes a new collection of a backup"_s,
        u"FOLDER is that of the new collection; there must be nothing of that name. It appears once all\n"
        "that was unpacked was compared with the list in the archive, or not at all. If the archive holds\n"
        "the database alone and lies where a collection keeps such backups, the files of that\n"
        "collection are copied, too."_s,
        run};
}

} // namespace console
