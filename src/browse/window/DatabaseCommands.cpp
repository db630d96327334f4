// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/DatabaseCommands.h"

#include "opening/DatabaseName.h"
#include "opening/DatabaseOpener.h"
#include "opening/DatabasePath.h"
#include "opening/RecentDatabases.h"
#include "opening/SampleCollection.h"
#include "opening/StartRequest.h"
#include "opening/frmNewDatabase.h"
#include "platform/FileDialogs.h"
#include "platform/Messages.h"
#include "platform/OtherWindows.h"
#include "platform/Procedure.h"
#include "state/ProgramState.h"
#include "widgets/PlainToolTip.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>

DatabaseCommands::DatabaseCommands(const Platform& platform, DatabaseOpener& opener,
                                   const ProgramState& state, QMenu& recentMenu, QWidget& window)
    : QObject(&window),
      m_platform(platform),
      m_opener(opener),
      m_state(state),
      m_recentMenu(recentMenu),
      m_window(window)
{
}

void DatabaseCommands::openAtStart(const StartRequest& request)
{
    m_isToRead = request.readOnly;
    m_opener.setReadOnly(request.readOnly);
    runProcedure(m_platform.messages, QStringLiteral("Form_Load"), [&] {
        if (request.path.isEmpty())
            m_opener.openNamed();
        else
            static_cast<void>(m_opener.openChosen(databaseAt(request.path)));
    });
    m_opener.setReadOnly(false);
    settle();
}

void DatabaseCommands::openDatabase()
{
    const QString file = m_platform.fileDialogs.openFile(
        tr("Open Database"), tr("Databases") +
                                 QStringLiteral(" (*.mdb *.accdb *.sqlite)|*.mdb *.accdb *.sqlite|") +
                                 tr("All Files") + QStringLiteral(" (*.*)| *.*"));
    if (file.isEmpty()) return;
    open(QStringLiteral("openDatabase"), file, [&] { return m_opener.openChosen(file); });
}

void DatabaseCommands::newDatabase()
{
    frmNewDatabase dialog(m_platform, m_state.home, m_opener.collectionsPlace(), &m_window);
    if (dialog.exec() == QDialog::Accepted) openInPlace(QStringLiteral("newDatabase"), dialog.database());
}

void DatabaseCommands::lookAtSample()
{
    const QString procedure = QStringLiteral("lookAtSample");
    QString file;
    const bool isThere =
        runProcedure(m_platform.messages, procedure, [&] { file = SampleCollection::provide(m_state.home); });
    if (isThere) openInPlace(procedure, file);
}

void DatabaseCommands::openRecent(const QString& name)
{
    const QString file = DatabaseName::fileOf(m_state.home, name);
    if (QFileInfo::exists(file)) {
        openInPlace(QStringLiteral("openDatabase"), file);
        return;
    }
    const bool forget = m_platform.messages.ask(
        tr("%1 is not there any more.\n\nDo you want to remove it from the list of recent databases?")
            .arg(QDir::toNativeSeparators(file)),
        Question::Harmless);
    if (!forget) return;
    RecentDatabases(m_platform.settings).remove(name);
    Q_EMIT recentChanged();
}

void DatabaseCommands::openInPlace(const QString& procedure, const QString& file)
{
    open(procedure, file, [&] {
        m_opener.openAt(file);
        return true;
    });
}

/// Runs what opens a file and returns whether it did. If another window has it open, that comes to the front
/// instead, and this one stays as it is. A failure shows one message.
void DatabaseCommands::open(const QString& procedure, const QString& file, const std::function<bool()>& body)
{
    if (m_platform.otherWindows.call(file, {})) return;
    Q_EMIT opening();
    const QString before = m_state.session.fileName();
    bool isOther = false;
    runProcedure(m_platform.messages, procedure, [&] { isOther = body(); });
    // a database that can only be read is open although its message counts as a failure
    if (!isOther && m_state.session.fileName() == before) return;
    m_isToRead = false;
    settle();
    Q_EMIT opened();
}

/// Notes the database that is open, if there is one, as the one opened last. Other starts of the program
/// reach this window by it.
void DatabaseCommands::settle()
{
    const QString file = m_state.session.fileName();
    if (!file.isEmpty()) RecentDatabases(m_platform.settings).add(DatabaseName::nameOf(m_state.home, file));
    static_cast<void>(m_platform.otherWindows.listen(file));
}

std::vector<DatabaseCommands::Recent> DatabaseCommands::recent() const
{
    const QStringList names = RecentDatabases(m_platform.settings).names();
    QStringList files;
    for (const QString& name : names)
        files << DatabaseName::fileOf(m_state.home, name);
    const QStringList captions = RecentDatabases::captions(files);
    std::vector<Recent> recent;
    for (qsizetype i = 0; i < names.size(); ++i)
        recent.push_back({names[i], files[i], captions[i]});
    return recent;
}

bool DatabaseCommands::isOpen(const Recent& database) const
{
    const QString file = m_state.session.fileName();
    return !file.isEmpty() && database.name == DatabaseName::nameOf(m_state.home, file);
}

void DatabaseCommands::listRecent()
{
    constexpr int widestEntry = 400;
    m_recentMenu.clear();
    int number = 0;
    for (const Recent& database : recent()) {
        ++number;
        QString caption =
            m_recentMenu.fontMetrics().elidedText(database.caption, Qt::ElideMiddle, widestEntry);
        caption.replace(u'&', QStringLiteral("&&"));
        // the tenth is chosen by the key 0
        const QString digit = QString::number(number).insert(number / 10, u'&');
        QAction* entry = m_recentMenu.addAction(QStringLiteral("%1 %2").arg(digit, caption));
        entry->setObjectName(QStringLiteral("mnuRecentDatabases(%1)").arg(number - 1));
        const QString place = QDir::toNativeSeparators(database.file);
        entry->setStatusTip(place);
        entry->setToolTip(PlainToolTip::text(place));
        if (isOpen(database)) {
            entry->setCheckable(true);
            entry->setChecked(true);
            connect(entry, &QAction::triggered, entry, [entry] { entry->setChecked(true); });
        } else {
            connect(entry, &QAction::triggered, this, [this, name = database.name] { openRecent(name); });
        }
    }
    m_recentMenu.setEnabled(number > 0);
}
