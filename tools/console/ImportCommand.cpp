// SPDX-License-Identifier: GPL-3.0-or-later

#include "Collection.h"
#include "Command.h"
#include "ConsoleConverter.h"
#include "ConsoleWorks.h"
#include "Output.h"
#include "export/JsonWriter.h"
#include "files/DatabaseFile.h"
#include "files/FolderList.h"
#include "opening/CollectionMaker.h"
#include "opening/UnfinishedCollection.h"
#include "util/Error.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace console {

namespace {

CollectionMaker::Made convert(const QString& file, const NewFolder& folder)
{
    ConsoleWorks works;
    ConsoleConverter converter(works);
    FolderList files = CollectionMaker::filesBeside(ProgramFolder(QString()), file);
    if (!works.run(files)) ConsoleWorks::stop();
    UnfinishedCollection::clearLeftOver(folder.place);
    UnfinishedCollection collection(folder.place, folder.name);
    const auto made = CollectionMaker::complete(works, converter, file, &files, collection);
    if (!made) ConsoleWorks::stop();
    return *made;
}

ExitStatus run(const Invocation& called, Output& output)
{
    const QString file = QDir::cleanPath(QDir::current().absoluteFilePath(called.operands[0]));
    if (!QFileInfo(file).isFile()) throw Error(ENOENT, u"There is no such file. (%1)"_s.arg(file));
    if (kindOfDatabaseFile(file) != DatabaseFileKind::Access)
        throw Error(EINVAL, u"This is not an Access file. (%1)"_s.arg(file));
    const CollectionMaker::Made made = convert(file, NewFolder::at(called.operands[1]));
    const QString folder = QDir::cleanPath(QFileInfo(made.database).path() + u"/.."_s);
    if (called.isJson) {
        JsonWriter json(output.text());
        json.beginObject();
        json.member(u"collection", folder);
        json.member(u"database", made.database);
        json.name(u"report");
        json.beginArray();
        for (const QString& line : made.report.join(u'\n').split(u'\n'))
            json.value(line);
        json.endArray();
        json.endObject();
        json.finish();
        return ExitStatus::Done;
    }
    output.line(u"Imported: "_s + folder);
    for (const QString& line : made.report.join(u'\n').split(u'\n'))
        output.line(line);
    return ExitStatus::Done;
}

} // namespace

Command importCommand()
{
    return {u"import"_s,
            {u"FILE.mdb"_s, u"FOLDER"_s},
            {},
            u"Makes a new collection of an Access file"_s,
            u"FOLDER is that of the new collection; there must be nothing of that name. The folders\n"
            "documents and orgcharts beside the Access file are copied into it. The originals stay as\n"
            "they are. What is printed says what became of the tables."_s,
            run};
}

} // namespace console
