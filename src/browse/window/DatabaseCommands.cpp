// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/DatabaseCommands.h"

#include "opening/DatabaseName.h"
#include "opening/DatabaseOpener.h"
#include "opening/RecentDatabases.h"
#include "opening/SampleCollection.h"
#include "opening/frmNewDatabase.h"
#include "platform/FileDialogs.h"
#include "platform/Messages.h"
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

void DatabaseCommands::openDatabase()
{
    const QString file = m_platform.fileDialogs.openFile(
        tr("Open Database"), tr("Databases") +
                                 QStringLiteral(" (*.mdb *.accdb *.sqlite)|*.mdb *.accdb *.sqlite|") +
                                 tr("All Files") + QStringLiteral(" (*.*)| *.*"));
    if (file.isEmpty()) return;
    open(QStringLiteral("openDatabase"), [&] { return m_opener.openChosen(file); });
}

void DatabaseCommands::newDatabase()
{
    frmNewDatabase dialog(m_platform, m_state.home, m_opener.collectionsPlace(), &m_window);
    if (dialog.exec() != QDialog::Accepted) return;
    open(QStringLiteral("newDatabase"), [&] {
        m_opener.openAt(dialog.database());
        return true;
    });
}

void DatabaseCommands::lookAtSample()
{
    open(QStringLiteral("lookAtSample"), [&] {
        m_opener.openAt(SampleCollection::provide(m_state.home));
        return true;
    });
}

void DatabaseCommands::openRecent(const QString& name)
{
    const QString file = DatabaseName::fileOf(m_state.home, name);
    if (QFileInfo::exists(file)) {
        open(QStringLiteral("openDatabase"), [&] {
            m_opener.openAt(file);
            return true;
        });
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

/// Runs what opens another database and returns whether it did. A failure shows one message.
void DatabaseCommands::open(const QString& procedure, const std::function<bool()>& body)
{
    Q_EMIT opening();
    const QString before = m_state.session.fileName();
    bool isOther = false;
    runProcedure(m_platform.messages, procedure, [&] { isOther = body(); });
    // a database that can only be read is open although its message counts as a failure
    if (!isOther && m_state.session.fileName() == before) return;
    remember();
    Q_EMIT opened();
}

void DatabaseCommands::remember()
{
    const QString file = m_state.session.fileName();
    if (!file.isEmpty()) RecentDatabases(m_platform.settings).add(DatabaseName::nameOf(m_state.home, file));
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
