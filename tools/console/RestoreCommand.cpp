// SPDX-License-Identifier: GPL-3.0-or-later

#include "Collection.h"
#include "Command.h"
#include "ConsoleWorks.h"
#include "JsonWriter.h"
#include "Output.h"
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
    const auto database = RestoredCollection::make(works, archive, folder.place, folder.name);
    if (!database) ConsoleWorks::stop();
    const QString made = QDir::cleanPath(QFileInfo(*database).path() + u"/.."_s);
    if (called.isJson) {
        JsonWriter json(output.text());
        json.beginObject();
        json.member(u"collection", made);
        json.member(u"database", *database);
        json.endObject();
        json.finish();
    } else {
        output.line(u"Restored and verified: "_s + made);
    }
    return ExitStatus::Done;
}

} // namespace

Command restoreCommand()
{
    return {u"restore"_s,
            {u"ARCHIVE"_s, u"FOLDER"_s},
            {},
            u"Makes a new collection of a backup"_s,
            u"FOLDER is that of the new collection; there must be nothing of that name. It appears once all\n"
            "that was unpacked was compared with the list in the archive, or not at all."_s,
            run};
}

} // namespace console
