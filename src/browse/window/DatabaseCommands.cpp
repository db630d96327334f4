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
#include "util/Error.h"
#include "widgets/PlainToolTip.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>

#include <utility>

DatabaseCommands::DatabaseCommands(const Platform& platform, DatabaseOpener& opener,
                                   const ProgramState& state, QMenu& recentMenu, QWidget& window)
    : QObject(&window),
      m_platform(platform),
      m_opener(opener),
      m_state(state),
      m_recentMenu(recentMenu),
      m_window(window),
      m_damaged(platform, opener, state)
{
}

void DatabaseCommands::openAtStart(const StartRequest& request)
{
    m_isToRead = request.readOnly;
    m_opener.setReadOnly(request.readOnly);
    const QString procedure = QStringLiteral("Form_Load");
    QString file;
    std::optional<Error> damage;
    runProcedure(m_platform.messages, procedure, [&] {
        file = request.path.isEmpty() ? m_opener.namedFile() : databaseAt(request.path);
        damage = openUnlessDamaged(file, [&] {
            if (request.path.isEmpty())
                m_opener.openNamed();
            else
                static_cast<void>(m_opener.openChosen(file));
        });
    });
    m_opener.setReadOnly(false);
    settle();
    if (!damage) return;
    m_isToldOfDamage = true;
    const auto instead = m_damaged.ask(file, damage->description());
    const auto made = instead ? makeInstead(*instead, file) : std::nullopt;
    if (!made) return;
    // the window is not there yet that would begin with another database
    if (!runProcedure(m_platform.messages, procedure, [&] { m_opener.openAt(made->database); })) return;
    m_isToRead = false;
    m_isToldOfDamage = false;
    settle();
    m_platform.messages.show(made->text);
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
    std::optional<Error> damage;
    runProcedure(m_platform.messages, procedure,
                 [&] { damage = openUnlessDamaged(file, [&] { isOther = body(); }); });
    if (damage && m_state.session.fileName() == file) isOther = true;
    // a database that can only be read is open although its message counts as a failure
    if (isOther || m_state.session.fileName() != before) {
        m_isToRead = false;
        m_isToldOfDamage = damage.has_value();
        settle();
        Q_EMIT opened();
    }
    if (!damage) return;
    if (const auto instead = m_damaged.ask(file, damage->description())) openInstead(*instead, file);
}

/// Runs what opens a file. If that is damaged, and there is something to have instead, opens it for reading
/// as far as it can be read, and returns what is wrong with it.
std::optional<Error> DatabaseCommands::openUnlessDamaged(const QString& file,
                                                         const std::function<void()>& body)
{
    try {
        body();
        return std::nullopt;
    } catch (const Error& error) {
        if (!error.isOfDamage() || !m_damaged.hasOffer(file)) throw;
        openForReading(file);
        return error;
    }
}

/// A file that cannot be read at all leaves open what was.
void DatabaseCommands::openForReading(const QString& file)
{
    m_opener.setReadOnly(true);
    try {
        m_opener.openAt(file);
    } catch (const Error&) {
        // the user is told of the damage
    }
    m_opener.setReadOnly(false);
}

void DatabaseCommands::lookForDamage()
{
    if (!m_state.session.isDamaged()) return;
    if (const auto instead = tellOfDamage({})) openInstead(*instead);
}

std::optional<DamagedDatabase::Instead> DatabaseCommands::tellOfDamage(const QString& cause)
{
    if (std::exchange(m_isToldOfDamage, true)) return std::nullopt;
    const QString file = m_state.session.fileName();
    openForReading(file);
    Q_EMIT onlyReadable();
    return m_damaged.ask(file, cause);
}

void DatabaseCommands::openInstead(DamagedDatabase::Instead instead)
{
    openInstead(instead, m_state.session.fileName());
}

void DatabaseCommands::openInstead(DamagedDatabase::Instead instead, const QString& file)
{
    const auto made = makeInstead(instead, file);
    if (!made) return;
    openInPlace(QStringLiteral("openDatabase"), made->database);
    if (m_state.session.fileName() == made->database) m_platform.messages.show(made->text);
}

std::optional<DamagedDatabase::Made> DatabaseCommands::makeInstead(DamagedDatabase::Instead instead,
                                                                   const QString& file)
{
    const bool isBackup = instead == DamagedDatabase::Instead::Backup;
    std::optional<DamagedDatabase::Made> made;
    runProcedure(m_platform.messages,
                 isBackup ? QStringLiteral("restoreBackup") : QStringLiteral("rescueDatabase"),
                 [&] { made = m_damaged.make(instead, file); });
    return made;
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
