// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/DatabaseOpener.h"

#include "backup/AutomaticBackups.h"
#include "data/DatabaseSession.h"
#include "files/DatabaseFile.h"
#include "files/FileUpload.h"
#include "files/ProgramFolder.h"
#include "files/SplitPlanner.h"
#include "files/VersionCopies.h"
#include "journal/FormerFiles.h"
#include "opening/AccessConversion.h"
#include "opening/CollectionMaker.h"
#include "opening/DatabaseName.h"
#include "opening/DatabaseUpgrade.h"
#include "opening/OpeningTexts.h"
#include "opening/RecentDatabases.h"
#include "opening/SharedFolders.h"
#include "opening/UnfinishedCollection.h"
#include "platform/FileAttributes.h"
#include "platform/Messages.h"
#include "platform/StdREG.h"
#include "state/Preferences.h"
#include "util/Error.h"
#include "util/Logging.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

namespace {

QString settingName()
{
    return QStringLiteral("DBFile");
}

/// Whether a file lies in a folder as that of a collection's database.
bool isInDataFolder(const QString& file)
{
    const QString folder = QFileInfo(QFileInfo(file).absolutePath()).fileName();
    return folder.compare(QStringLiteral("data"), Qt::CaseInsensitive) == 0;
}

} // namespace

QString DatabaseOpener::namedFile() const
{
    const QString chosen = Preferences::read(m_platform.settings).startDatabase;
    const QString name =
        chosen.isEmpty() ? StdREG(m_platform.settings).GetRegString(QString(), settingName()) : chosen;
    return DatabaseName::fileOf(m_at.home, name);
}

void DatabaseOpener::openNamed()
{
    const QString name = StdREG(m_platform.settings).GetRegString(QString(), settingName());
    QString file = namedFile();
    UnfinishedCollection::clearLeftOver(collectionsPlace());
    if (kindOfDatabaseFile(file) == DatabaseFileKind::Access) {
        file = convertNamed(file);
        nameInSettings(file);
    }
    open(file);
    if (DatabaseName::fileOf(m_at.home, name) != m_at.session.fileName())
        nameInSettings(m_at.session.fileName());
    requireWritable();
}

/// Converts the Access file that the settings name, unless that was done before and the user keeps it.
/// Returns the database. Throws Error.
QString DatabaseOpener::convertNamed(const QString& source)
{
    QString target = QFileInfo(source).path() + u'/' + AccessConversion::databaseName(source);
    const bool exists = QFileInfo::exists(target);
    const bool replace =
        exists && m_platform.messages.ask(
                      OpeningTexts::tr("%1 was converted before, to %2.\n\nDo you want to convert it "
                                       "again and replace that database? Whatever was added to it "
                                       "since is then lost. No opens it as it is.")
                          .arg(QFileInfo(source).fileName(), AccessConversion::databaseName(source)),
                      Question::Loss);
    const bool isNeeded = !exists || replace;
    if (!isNeeded) return target;
    if (replace) AutomaticBackups(m_platform, target, m_at.home.ofDatabase(target)).beforeReplacement();
    const auto report = AccessConversion::run(m_at.converter, source, target, replace);
    if (!report) throw Error(ECANCELED, OpeningTexts::tr("The conversion was cancelled. (%1)").arg(source));
    m_platform.messages.show(AccessConversion::message(source, target, report->text()));
    return target;
}

bool DatabaseOpener::openChosen(const QString& file)
{
    const DatabaseFileKind kind = kindOfDatabaseFile(file);
    // says what is wrong with it, and leaves the attributes of somebody's file alone
    if (kind == DatabaseFileKind::Other) DatabaseSession().open(file);
    const bool isAccess = kind == DatabaseFileKind::Access;
    const auto database = isAccess ? CollectionMaker(m_platform.messages, m_platform.works, m_at.converter,
                                                     m_at.home, collectionsPlace())
                                         .make(file)
                                   : placeOf(file);
    if (database) openAt(*database);
    return database.has_value();
}

/// Where a database of the program is to be opened; std::nullopt if the user does not want it opened.
std::optional<QString> DatabaseOpener::placeOf(const QString& file)
{
    // the files of a database are beside the file itself, not beside a link to it
    for (const QString& path : {file, QFileInfo(file).canonicalFilePath()}) {
        if (isInDataFolder(path) && (m_isReadOnly || !VersionCopies::isCopy(path))) return path;
    }
    const QString open = QFileInfo(m_at.session.fileName()).canonicalFilePath();
    if (!open.isEmpty() && QFileInfo(file).canonicalFilePath() == open) return m_at.session.fileName();

    const std::optional<bool> copies = asksForCopy(QFileInfo(file));
    if (!copies) return std::nullopt;
    if (!*copies) return file;
    return CollectionMaker(m_platform.messages, m_platform.works, m_at.converter, m_at.home,
                           collectionsPlace())
        .make(file);
}

/// Asks whether a database is to be copied into a collection of its own or used where it is; std::nullopt for
/// neither. Beside another database it can only be copied, since they would share a folder of files.
std::optional<bool> DatabaseOpener::asksForCopy(const QFileInfo& file)
{
    const QString path = file.absoluteFilePath();
    const SplitPlanner planner(file.absolutePath() + u'/', collectionsPlace());
    if (VersionCopies::isCopy(path) || (planner.mayBeNeeded() && !planner.plan(path, path).moves.empty())) {
        const bool yes = m_platform.messages.ask(
            OpeningTexts::tr("%1 is in a folder with other databases, where the files of one could replace "
                             "those of another.\n\nDo you want to copy it into a new collection?")
                .arg(file.fileName()),
            Question::Harmless);
        return yes ? std::optional(true) : std::nullopt;
    }
    const auto answer = m_platform.messages.choose(
        OpeningTexts::tr("%1 is not in a collection of its own.\n\nDo you want to copy it into a new "
                         "collection, or to use it where it is? If it is used there, the program keeps the "
                         "files of its documents and charts beside it, in the folder %2.")
            .arg(file.fileName(), file.absolutePath()),
        {OpeningTexts::tr("&Copy It"), OpeningTexts::tr("&Use It There")});
    return answer ? std::optional(*answer == 0) : std::nullopt;
}

QString DatabaseOpener::collectionsPlace() const
{
    const QString named = Preferences::read(m_platform.settings).collectionsPlace;
    return named.isEmpty() ? m_at.home.root() : named;
}

void DatabaseOpener::openAt(const QString& file)
{
    open(file);
    nameInSettings(m_at.session.fileName());
    requireWritable();
}

void DatabaseOpener::open(const QString& chosen)
{
    // who only reads changes nothing in the folder either
    const QString file = !m_isReadOnly && isInDataFolder(chosen) ? separated(chosen) : chosen;
    if (!m_isReadOnly) m_platform.fileAttributes.makeWritable(file);
    qCInfo(startLog).noquote() << "open database:" << file;
    const auto hindrance = m_isReadOnly ? std::nullopt : DatabaseUpgrade::bringUpToDate(file);
    m_at.session.open(file, m_isReadOnly ? Access::Read : Access::Write);
    m_upgradeHindrance = hindrance;
    m_at.folder = m_at.home.ofDatabase(file);
    if (m_isReadOnly) return;
    FileUpload(m_at.folder).clearUnfinished();
    FormerFiles::settle(m_at.session, m_at.folder);
}

/// Sees to it that no other database has its files in the folder of one that is to be opened. Returns where
/// that lies now.
QString DatabaseOpener::separated(const QString& file)
{
    const SharedFolders::Outcome outcome =
        SharedFolders::separate(m_platform, m_at.home, collectionsPlace(), file);
    RecentDatabases recent(m_platform.settings);
    for (const MovedDatabase& database : outcome.moved)
        recent.add(DatabaseName::nameOf(m_at.home, database.to));
    return outcome.file;
}

/// A user who asked to read the file knows that it cannot be changed.
void DatabaseOpener::requireWritable() const
{
    if (m_isReadOnly) return;
    if (m_upgradeHindrance) {
        throw Error(
            m_upgradeHindrance->number(),
            OpeningTexts::tr("The database was made by an earlier version of the program and cannot be "
                             "brought up to date: %1\n\nIt can be read, but not changed.")
                .arg(m_upgradeHindrance->description()));
    }
    m_at.session.requireWritable();
}

void DatabaseOpener::nameInSettings(const QString& file)
{
    StdREG(m_platform.settings)
        .WriteRegString(QString(), settingName(), DatabaseName::nameOf(m_at.home, file));
}
