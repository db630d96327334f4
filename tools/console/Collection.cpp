// SPDX-License-Identifier: GPL-3.0-or-later

#include "Collection.h"

#include "files/CollectionNames.h"
#include "files/DatabaseFile.h"
#include "opening/DatabasePath.h"
#include "records/DocumentStore.h"
#include "records/EventStore.h"
#include "records/OrganizationStore.h"
#include "util/Error.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace console {

QString databaseOf(const QString& collection)
{
    QString file = QDir::cleanPath(QDir::current().absoluteFilePath(databaseAt(collection)));
    if (kindOfDatabaseFile(file) != DatabaseFileKind::Access) return file;
    throw Error(EINVAL,
                u"This is an Access file; orvik-tool import makes a collection of it. (%1)"_s.arg(file));
}

ProgramFolder folderOf(const QString& database)
{
    return ProgramFolder(QString()).ofDatabase(database);
}

void openForReading(DatabaseSession& session, const QString& collection)
{
    session.open(databaseOf(collection), Access::Read);
}

NewFolder NewFolder::at(const QString& path)
{
    const QFileInfo folder(QDir::cleanPath(QDir::current().absoluteFilePath(path)));
    NewFolder made{folder.absolutePath(), folder.fileName()};
    if (made.name.isEmpty() || folder.exists() || CollectionNames::isTaken(made.place, made.name)) {
        throw Error(EEXIST,
                    u"There is a file or a folder of that name already; a new collection needs one of "
                    "its own. (%1)"_s.arg(path));
    }
    return made;
}

QString newFileAt(const QString& path)
{
    QString file = QDir::cleanPath(QDir::current().absoluteFilePath(path));
    const QFileInfo found(file);
    if (found.exists() || found.isSymLink())
        throw Error(EEXIST, u"There is a file or a folder of that name already. (%1)"_s.arg(file));
    if (const QFileInfo folder(found.path()); !folder.isDir())
        throw Error(ENOENT, u"There is no such folder. (%1)"_s.arg(folder.filePath()));
    return file;
}

QString wordOf(RecordKind kind)
{
    return recordNames(kind).record.toLower() + u's';
}

RecordKind kindOf(const QString& word)
{
    const auto* const kind = std::find_if(recordKinds.begin(), recordKinds.end(),
                                          [&word](RecordKind each) { return wordOf(each) == word; });
    if (kind == recordKinds.end())
        throw Error(EINVAL, u"%1 is no kind of record: documents, events or organizations."_s.arg(word));
    return *kind;
}

RecordReference recordOf(const QString& text)
{
    const qsizetype colon = text.indexOf(u':');
    bool isNumber = false;
    const qint64 identifier = text.mid(colon + 1).toLongLong(&isNumber);
    if (colon < 0 || !isNumber || identifier < 1)
        throw Error(EINVAL, u"%1 is no record such as documents:12 or events:7."_s.arg(text));
    return {kindOf(text.left(colon)), identifier};
}

void refuseMissing(const RecordReference& record)
{
    switch (record.kind) {
    case RecordKind::Document:
        throw Error(ENOENT, DocumentStore::notFoundMessage(record.identifier));
    case RecordKind::Event:
        throw Error(ENOENT, EventStore::notFoundMessage(record.identifier));
    case RecordKind::Organization:
        break;
    }
    throw Error(ENOENT, OrganizationStore::notFoundMessage(record.identifier));
}

} // namespace console
