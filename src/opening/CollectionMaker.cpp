// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/CollectionMaker.h"

#include "data/DatabaseSession.h"
#include "files/DatabaseFile.h"
#include "files/FolderCopy.h"
#include "files/FolderList.h"
#include "files/ProgramFolder.h"
#include "files/VersionCopies.h"
#include "opening/AccessConversion.h"
#include "opening/DatabaseConverter.h"
#include "opening/MissingFiles.h"
#include "opening/OpeningTexts.h"
#include "opening/UnfinishedCollection.h"
#include "platform/Messages.h"
#include "platform/WorkRunner.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <filesystem>

namespace {

QString collectionName(const QString& file)
{
    const QString name = QFileInfo(VersionCopies::originalName(file)).completeBaseName().trimmed();
    return name.isEmpty() ? OpeningTexts::tr("Collection") : name;
}

/// The folders beside a database that hold files of its records.
FolderList foldersBeside(const ProgramFolder& folder)
{
    FolderList list;
    const std::pair<QString, const char*> folders[] = {
        {folder.folderPath(ProgramFolders::documents), "documents"},
        {folder.folderPath(ProgramFolders::organizationCharts), "orgcharts"}};
    for (const auto& [path, name] : folders) {
        if (QFileInfo(path).isDir()) list.add(path, name);
    }
    return list;
}

} // namespace

std::optional<QString> CollectionMaker::make(const QString& file)
{
    FolderList files = foldersBeside(m_home.ofDatabase(file));
    if (!m_works.run(files)) return std::nullopt;
    const bool takesFiles = files.amount().files > 0 && mayBringAlong(file, files);
    const bool isAccess = kindOfDatabaseFile(file) == DatabaseFileKind::Access;
    const QString name = isAccess ? AccessConversion::databaseName(file) : VersionCopies::originalName(file);

    UnfinishedCollection::clearLeftOver(m_place);
    UnfinishedCollection collection(m_place, collectionName(file));
    const QString unfinished = collection.dataFolder() + name;
    std::optional<ImportReport> report;
    if (isAccess) {
        report = AccessConversion::run(m_converter, file, unfinished, false);
        if (!report) return std::nullopt;
    } else {
        copyDatabase(file, unfinished);
    }
    if (takesFiles) {
        FolderCopy copy(files, collection.dataFolder());
        if (!m_works.run(copy)) return std::nullopt;
    }
    const QStringList missing = isAccess ? missingIn(unfinished) : QStringList();
    collection.complete();

    const QString database = collection.target() + name;
    if (isAccess) {
        const QStringList lines = QStringList(report->text()) + missing;
        m_messages.show(AccessConversion::message(file, database, lines.join(u'\n')));
    }
    return database;
}

bool CollectionMaker::mayBringAlong(const QString& file, const FolderList& files)
{
    QStringList names;
    for (const FolderList::Entry& entry : files.entries()) {
        const std::filesystem::path to = entry.to;
        const std::filesystem::path from = entry.from;
        if (!to.has_parent_path()) names << QFile::decodeName(from.filename().c_str());
    }
    const QString beside = QFileInfo(file).fileName();
    const FolderList::Amount amount = files.amount();
    const QString size = amount.sizeText();
    const QString number = QLocale().toString(amount.files);
    const QString found =
        names.size() > 1 ? OpeningTexts::tr("The folders %1 and %2 beside %3 hold %4 files (%5).")
                               .arg(names[0], names[1], beside, number, size)
        : amount.files == 1
            ? OpeningTexts::tr("The folder %1 beside %2 holds 1 file (%3).").arg(names[0], beside, size)
            : OpeningTexts::tr("The folder %1 beside %2 holds %3 files (%4).")
                  .arg(names[0], beside, number, size);
    const QString question =
        amount.files == 1
            ? OpeningTexts::tr(
                  "Do you want to copy it into the new collection? The original stays unchanged.")
            : OpeningTexts::tr(
                  "Do you want to copy them into the new collection? The originals stay unchanged.");
    return m_messages.ask(found + QStringLiteral("\n\n") + question, Question::Harmless);
}

/// What the records of a database name that is not in the folders beside it.
QStringList CollectionMaker::missingIn(const QString& database) const
{
    DatabaseSession session;
    session.open(database);
    return MissingFiles::count(session, m_home.ofDatabase(database)).lines();
}
