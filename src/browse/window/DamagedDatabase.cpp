// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/DamagedDatabase.h"

#include "backup/KeptBackups.h"
#include "check/RescuedCollection.h"
#include "files/DatabaseFile.h"
#include "opening/DatabaseOpener.h"
#include "opening/RestoredCollection.h"
#include "platform/Messages.h"
#include "state/ProgramState.h"
#include "util/DateTimeText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <vector>

namespace {

QString programMoment(const QDateTime& moment)
{
    return DateTimeText::programDate(moment.date()) + u' ' + DateTimeText::programTime(moment.time());
}

/// The folder of a collection, as the user knows it.
QString folderOf(const QString& database)
{
    return QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(database).path() + QStringLiteral("/..")));
}

/// Whether the head of a file says that it is a database of this program.
bool mayBeRescued(const QString& file)
{
    constexpr qint64 headLength = 72;
    constexpr qsizetype markPlace = 68; // of what SQLite calls the application
    QFile content(file);
    if (!content.open(QIODevice::ReadOnly)) return false;
    const QByteArray head = content.read(headLength);
    return head.startsWith("SQLite format 3") && head.mid(markPlace) == "ORVD";
}

} // namespace

bool DamagedDatabase::hasOffer(const QString& file) const
{
    return kindOfDatabaseFile(file) != DatabaseFileKind::Access &&
           (mayBeRescued(file) || !KeptBackups(m_state.home.ofDatabase(file)).list().empty());
}

std::optional<DamagedDatabase::Instead> DamagedDatabase::ask(const QString& file, const QString& cause) const
{
    const bool isOpen = m_state.session.fileName() == file;
    const QString place = QStringLiteral("(%1)").arg(file);
    const QString what = cause.isEmpty() || cause.contains(place) ? cause : cause + u' ' + place;
    QString text = what.isEmpty() ? tr("The database is damaged. %1").arg(place)
                                  : tr("The database is damaged: %1").arg(what);
    text += QStringLiteral("\n\n");
    text += isOpen ? tr("It is open for reading, as far as it can be read.") : tr("It cannot be opened.");
    text += QStringLiteral("\n\n");

    const auto backups = KeptBackups(m_state.home.ofDatabase(file)).list();
    std::vector<Instead> choices;
    QStringList answers;
    if (!backups.empty()) {
        choices.push_back(Instead::Backup);
        answers << tr("Restore the &Backup");
        text += tr("Its newest backup was made on %1.").arg(programMoment(backups.front().made)) + u' ';
    }
    if (mayBeRescued(file)) {
        choices.push_back(Instead::Rescue);
        answers << tr("&Rescue What Can Be Read");
    }
    text += choices.size() > 1
                ? tr("Do you want to restore that, or to rescue what can still be read? Either becomes a new "
                     "collection; the damaged one stays as it is.")
            : choices.front() == Instead::Backup
                ? tr("Do you want to restore that? It becomes a new collection; the damaged one stays as it "
                     "is.")
                : tr("Do you want to rescue what can still be read? It becomes a new collection; the damaged "
                     "one stays as it is.");
    const auto answer = m_platform.messages.choose(text, answers);
    if (!answer) return std::nullopt;
    return choices[static_cast<std::size_t>(*answer)];
}

std::optional<DamagedDatabase::Made> DamagedDatabase::make(Instead instead, const QString& file) const
{
    return instead == Instead::Backup ? restore(file) : rescue(file);
}

std::optional<DamagedDatabase::Made> DamagedDatabase::restore(const QString& file) const
{
    const ProgramFolder folder = m_state.home.ofDatabase(file);
    const auto backups = KeptBackups(folder).list();
    if (backups.empty()) return std::nullopt;
    const auto made = RestoredCollection::make(m_platform.works, backups.front().file,
                                               m_opener.collectionsPlace(), {{}, folder});
    if (!made) return std::nullopt;
    return Made{made->database, tr("The backup of %1 was restored into a new collection in the folder %2.")
                                    .arg(programMoment(backups.front().made), folderOf(made->database))};
}

std::optional<DamagedDatabase::Made> DamagedDatabase::rescue(const QString& file) const
{
    const ProgramFolder folder = m_state.home.ofDatabase(file);
    const auto made = RescuedCollection::make(m_platform.works, file, folder, m_opener.collectionsPlace(),
                                              QDir(folder.collection()).dirName());
    if (!made) return std::nullopt;
    return Made{made->database,
                tr("What could be read was rescued into a new collection in the folder %1.\n\n%2")
                    .arg(folderOf(made->database), made->lines.join(u'\n'))};
}
