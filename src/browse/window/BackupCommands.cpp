// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/BackupCommands.h"

#include "backup/AutomaticBackups.h"
#include "backup/BackupTarget.h"
#include "backup/CollectionBackup.h"
#include "backup/CollectionRestore.h"
#include "browse/commands/MainCommands.h"
#include "browse/window/DatabaseCommands.h"
#include "help/AboutText.h"
#include "opening/DatabaseOpener.h"
#include "opening/RestoredCollection.h"
#include "platform/Clock.h"
#include "platform/FileDialogs.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
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
    runProcedure(m_platform.messages, QStringLiteral("backUp"), [&] {
        CollectionBackup work(m_state.session.fileName(), m_state.folder, archive, m_platform.clock.now());
        if (!m_platform.works.run(work)) return;
        const FolderList::Amount written{static_cast<int>(work.manifest().files.size()),
                                         QFileInfo(archive).size()};
        const QString name = QFileInfo(archive).fileName();
        Q_EMIT done(written.files == 1
                        ? tr("Backed up: %1 (1 file, %2)").arg(name, written.sizeText())
                        : tr("Backed up: %1 (%2 files, %3)")
                              .arg(name, QLocale().toString(written.files), written.sizeText()));
    });
}

/// Returns the file that the user wants to be written; an empty text if there is none.
QString BackupCommands::chooseTarget() const
{
    const QString proposed = QStringLiteral("%1 %2.zip")
                                 .arg(QFileInfo(m_state.folder.root()).fileName(),
                                      m_platform.clock.now().toString(QStringLiteral("yyyy-MM-dd")));
    const QString chosen = m_platform.fileDialogs.saveFile(tr("Back Up"), proposed, backupFilter());
    if (chosen.isEmpty()) return {};
    const QString archive = BackupTarget::withEnding(chosen);
    if (BackupTarget::isInside(m_state.folder, archive)) {
        m_platform.messages.show(tr("A backup in the folder that it is made of would be lost with it. Please "
                                    "choose another place, best on another disk."));
        return {};
    }
    // the dialog has asked about the name that was typed
    const bool isNew = archive == chosen || !QFileInfo::exists(archive);
    const bool mayReplace =
        isNew ||
        m_platform.messages.ask(
            tr("%1 already exists.\n\nDo you want to replace it?").arg(QDir::toNativeSeparators(archive)),
            Question::Loss);
    return mayReplace ? archive : QString();
}

void BackupCommands::restore()
{
    const QString procedure = QStringLiteral("restoreBackup");
    const QString archive = m_platform.fileDialogs.openFile(tr("Restore"), backupFilter() + tr("All Files") +
                                                                               QStringLiteral(" (*.*)| *.*"));
    if (archive.isEmpty()) return;
    std::optional<QString> database;
    Manifest manifest;
    runProcedure(m_platform.messages, procedure, [&] {
        manifest = CollectionRestore::manifestOf(archive);
        database = RestoredCollection::make(m_platform.works, archive, m_opener.collectionsPlace(),
                                            manifest.collection);
    });
    if (!database) return;
    m_databases.openInPlace(procedure, *database);
    if (m_state.session.fileName() == *database) m_platform.messages.show(restoredText(archive, manifest));
}

/// What a message says about the collection that is open and was made of a backup.
QString BackupCommands::restoredText(const QString& archive, const Manifest& manifest) const
{
    const int count = static_cast<int>(manifest.files.size());
    const QDateTime made = manifest.made.toLocalTime();
    const QString files =
        count == 1 ? tr("1 file was compared and is as it was when it was backed up, on %1 at %2.")
                   : tr("%n files were compared and are as they were when they were backed up, on %1 at %2.",
                        nullptr, count);
    return tr("%1 was restored into a new collection in the folder %2.\n\nIt holds %3. %4")
        .arg(QFileInfo(archive).fileName(), QDir::toNativeSeparators(m_state.folder.root()),
             AboutText::records(m_state.session),
             files.arg(DateTimeText::programDate(made.date()), DateTimeText::programTime(made.time())));
}

void BackupCommands::backUpChanges()
{
    AutomaticBackups(m_platform, m_state.session.fileName(), m_state.folder).atExit(m_state.session);
}
