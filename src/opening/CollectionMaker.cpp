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

/// What the records of a database name that is not in the folders beside it.
QStringList missingIn(const QString& database)
{
    DatabaseSession session;
    session.open(database);
    return MissingFiles::count(session, ProgramFolder(QString()).ofDatabase(database)).lines();
}

} // namespace

FolderList CollectionMaker::filesBeside(const ProgramFolder& home, const QString& file)
{
    return FolderList::of(home.ofDatabase(file),
                          {ProgramFolders::documents, ProgramFolders::organizationCharts});
}

std::optional<QString> CollectionMaker::make(const QString& file)
{
    FolderList files = filesBeside(m_home, file);
    if (!m_works.run(files)) return std::nullopt;
    const bool takesFiles = files.amount().files > 0 && mayBringAlong(file, files);
    UnfinishedCollection::clearLeftOver(m_place);
    UnfinishedCollection collection(m_place, collectionName(file));
    const auto made = complete(m_works, m_converter, file, takesFiles ? &files : nullptr, collection);
    if (!made) return std::nullopt;
    if (!made->report.isEmpty())
        m_messages.show(AccessConversion::message(file, made->database, made->report.join(u'\n')));
    return made->database;
}

std::optional<CollectionMaker::Made> CollectionMaker::complete(WorkRunner& works,
                                                               DatabaseConverter& converter,
                                                               const QString& file, const FolderList* files,
                                                               UnfinishedCollection& collection)
{
    const bool isAccess = kindOfDatabaseFile(file) == DatabaseFileKind::Access;
    const QString name = isAccess ? AccessConversion::databaseName(file) : VersionCopies::originalName(file);
    const QString unfinished = collection.dataFolder() + name;
    Made made{collection.target() + name, {}};
    if (isAccess) {
        const auto report = AccessConversion::run(converter, file, unfinished, false);
        if (!report) return std::nullopt;
        made.report << report->text();
    } else {
        copyDatabase(file, unfinished);
    }
    if (files != nullptr) {
        FolderCopy copy(*files, collection.dataFolder());
        if (!works.run(copy)) return std::nullopt;
    }
    if (isAccess) made.report << missingIn(unfinished);
    collection.complete();
    return made;
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
