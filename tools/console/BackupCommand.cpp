// SPDX-License-Identifier: GPL-3.0-or-later

#include "Collection.h"
#include "Command.h"
#include "ConsoleWorks.h"
#include "ManifestOutput.h"
#include "Output.h"
#include "backup/CollectionBackup.h"
#include "export/JsonWriter.h"
#include "files/Archive.h"
#include "util/Error.h"

#include <QDateTime>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace console {

namespace {

ExitStatus run(const Invocation& called, Output& output)
{
    const QString database = databaseOf(called.operands[0]);
    const QString archive = newFileAt(called.operands[1]);
    if (!archiveFormatOf(archive))
        throw Error(EINVAL, u"The name of the archive has to end in .zip or .tar.zst. (%1)"_s.arg(archive));
    ConsoleWorks works;
    CollectionBackup backup(database, folderOf(database), archive, QDateTime::currentDateTime());
    if (!works.run(backup)) ConsoleWorks::stop();
    if (called.isJson) {
        JsonWriter json(output.text());
        json.beginObject();
        json.member(u"archive", archive);
        writeAmount(backup.manifest(), json);
        json.endObject();
        json.finish();
    } else {
        output.line(u"Backed up: "_s + archive);
        writeAmount(backup.manifest(), output);
    }
    return ExitStatus::Done;
}

} // namespace

Command backupCommand()
{
    return {u"backup"_s,
            {u"COLLECTION"_s, u"ARCHIVE"_s},
            {},
            u"Backs a collection up into a new archive"_s,
            u"ARCHIVE is a new file whose name ends in .zip or .tar.zst. It holds the database as it is at\n"
            "one moment, all files beside it, and a list of it all. The collection is only read, also\n"
            "while a window has it open."_s,
            run};
}

} // namespace console
