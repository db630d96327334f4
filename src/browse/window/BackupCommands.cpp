// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/BackupCommands.h"

#include "backup/AutomaticBackups.h"
#include "backup/CollectionBackup.h"
#include "browse/commands/MainCommands.h"
#include "browse/window/DatabaseCommands.h"
#include "help/AboutText.h"
#include "opening/DatabaseOpener.h"
#include "opening/RestoredCollection.h"
#include "platform/Clock.h"
#include "platform/FileDialogs.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "platform/SaveTarget.h"
#include "platform/WorkRunner.h"
#include "state/ProgramState.h"
#include "util/DateTimeText.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QWidget>

#include <optional>

namespace {

QString backupFilter()
{
    return BackupCommands::tr("Backups") + QStringLiteral(" (*.zip *.tar.zst)|*.zip *.tar.zst|");
}

} // namespace

BackupCommands::BackupCommands(const Platform& platform, DatabaseOpener& opener, ProgramState& state,
                               DatabaseCommands& databases, const MainCommands& commands, QWidget& window)
    : QObject(&window), m_platform(platform), m_opener(opener), m_state(state), m_databases(databases)
{
    connect(commands.mnuBackUp, &QAction::triggered, this, &BackupCommands::backUp);
    connect(commands.mnuRestore, &QAction::triggered, this, &BackupCommands::restore);
}

void BackupCommands::backUp()
{
    const QString archive = chooseTarget();
    if (archive.isEmpty()) return;
    QString outcome;
    runProcedure(m_platform.messages, QStringLiteral("backUp"), [&] {
        CollectionBackup work(m_state.session.fileName(), m_state.folder, archive, m_platform.clock.now());
        if (!m_platform.works.run(work)) return;
        const FolderList::Amount written{static_cast<int>(work.manifest().files.size()),
                                         QFileInfo(archive).size()};
        const QString name = QFileInfo(archive).fileName();
        outcome = written.files == 1 ? tr("Backed up: %1 (1 file, %2)").arg(name, written.sizeText())
                                     : tr("Backed up: %1 (%2 files, %3)")
                                           .arg(name, QLocale().toString(written.files), written.sizeText());
    });
    Q_EMIT done(outcome);
}

/// Returns the file that the user wants to be written; an empty text if there is none.
QString BackupCommands::chooseTarget() const
{
    const QString proposed = QStringLiteral("%1 %2.zip")
                                 .arg(QFileInfo(m_state.folder.collection()).fileName(),
                                      m_platform.clock.now().toString(QStringLiteral("yyyy-MM-dd")));
    return SaveTarget::choose(m_platform, tr("Back Up"), proposed, backupFilter(),
                              {QStringLiteral(".zip"), QStringLiteral(".tar.zst")});
}

void BackupCommands::restore()
{
    const QString procedure = QStringLiteral("restoreBackup");
    const QString archive = m_platform.fileDialogs.openFile(tr("Restore"), backupFilter() + tr("All Files") +
                                                                               QStringLiteral(" (*.*)| *.*"));
    if (archive.isEmpty()) return;
    std::optional<RestoredCollection::Made> made;
    Along along;
    runProcedure(m_platform.messages, procedure, [&] {
        if (!askForFiles(archive, along)) return;
        made = RestoredCollection::make(m_platform.works, archive, m_opener.collectionsPlace(),
                                        {{}, along.folder});
    });
    if (!made) return;
    m_databases.openInPlace(procedure, made->database);
    if (m_state.session.fileName() == made->database)
        m_platform.messages.show(restoredText(archive, made->manifest, along));
}

/// For a backup of the database alone that a collection keeps, asks whether to copy that one's files. Returns
/// false if the user cancelled it.
bool BackupCommands::askForFiles(const QString& archive, Along& along) const
{
    const auto keeper = RestoredCollection::filesFor(archive);
    if (!keeper) return true;
    FolderList files = FolderList::of(*keeper, ProgramFolders::ofFiles);
    if (!m_platform.works.run(files)) return false;
    const FolderList::Amount amount = files.amount();
    if (amount.files == 0) return true;
    const QString folder = QDir::toNativeSeparators(keeper->collection());
    const QString text =
        amount.files == 1
            ? tr("The backup holds the database alone. Its collection in the folder %1 has 1 file "
                 "(%2).\n\nDo "
                 "you want to copy it into the new collection? The original stays unchanged.")
                  .arg(folder, amount.sizeText())
            : tr("The backup holds the database alone. Its collection in the folder %1 has %2 files (%3).\n\n"
                 "Do you want to copy them into the new collection? The originals stay unchanged.")
                  .arg(folder, QLocale().toString(amount.files), amount.sizeText());
    if (m_platform.messages.ask(text, Question::Harmless)) along = {keeper, amount.files};
    return true;
}

/// What a message says about the collection that is open and was made of a backup.
QString BackupCommands::restoredText(const QString& archive, const Manifest& manifest,
                                     const Along& along) const
{
    const int count = static_cast<int>(manifest.files.size());
    const QDateTime made = manifest.made.toLocalTime();
    const QString compared =
        (count == 1 ? tr("The database was compared and is as it was when it was backed up, on %1 at %2.")
                    : tr("%n files were compared and are as they were when they were backed up, on %1 at %2.",
                         nullptr, count))
            .arg(DateTimeText::programDate(made.date()), DateTimeText::programTime(made.time()));
    QString text =
        tr("%1 was restored into a new collection in the folder %2.\n\nIt holds %3. %4")
            .arg(QFileInfo(archive).fileName(), QDir::toNativeSeparators(m_state.folder.collection()),
                 AboutText::records(m_state.session), compared);
    if (!along.folder) return text;
    const QString from = QDir::toNativeSeparators(along.folder->collection());
    return text + u' ' +
           (along.files == 1 ? tr("1 file was copied from %1.").arg(from)
                             : tr("%n files were copied from %1.", nullptr, along.files).arg(from));
}

void BackupCommands::backUpChanges()
{
    AutomaticBackups(m_platform, m_state.session.fileName(), m_state.folder).atExit(m_state.session);
}
