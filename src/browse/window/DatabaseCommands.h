// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "browse/window/DamagedDatabase.h"
#include "platform/Platform.h"

#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

class DatabaseOpener;
class Error;
class QMenu;
class QWidget;
struct ProgramState;
struct StartRequest;

/// The commands that open another database: a new one, one that the user chooses, a recent one, the sample.
/// Lives as long as the window.
class DatabaseCommands final : public QObject
{
    Q_OBJECT

public:
    /// `recentMenu` shows the recent databases. All must outlive the object.
    DatabaseCommands(const Platform& platform, DatabaseOpener& opener, const ProgramState& state,
                     QMenu& recentMenu, QWidget& window);

    /// Opens the database that a start of the program asks for or, if none is asked for, the one that the
    /// settings name.
    void openAtStart(const StartRequest& request);

    void openDatabase();
    void newDatabase();
    void lookAtSample();

    /// Opens a database of the program where it is. A failure shows its message under that name.
    void openInPlace(const QString& procedure, const QString& file);

    /// Opens a recent database by its name in the settings. If it is gone, asks whether to forget it.
    void openRecent(const QString& name);

    /// Whether the start asked for no changes in the database that is open.
    [[nodiscard]] bool isToRead() const { return m_isToRead; }

    /// If a statement has met a damaged part of the open database, tells the user once, and opens what they
    /// want instead of it.
    void lookForDamage();

    /// Tells the user that the open database is damaged, and for what reason, and opens it for reading, so
    /// that nothing makes it worse. Returns what the user wants instead of it. Does nothing if the user was
    /// told before.
    [[nodiscard]] std::optional<DamagedDatabase::Instead> tellOfDamage(const QString& cause);

    /// Makes a new collection for the damaged database that is open, and opens that.
    void openInstead(DamagedDatabase::Instead instead);

    /// A database that was opened before.
    struct Recent
    {
        QString name; ///< in the settings
        QString file; ///< path of the machine; need not exist
        QString caption;
    };

    /// All that the settings name, the one opened last first.
    [[nodiscard]] std::vector<Recent> recent() const;
    [[nodiscard]] bool isOpen(const Recent& database) const;

    /// Lists the recent databases in their menu.
    void listRecent();

Q_SIGNALS:
    /// The database that is open may be replaced now.
    void opening();

    /// Another database is open.
    void opened();

    /// The open database can be read but not changed from now on.
    void onlyReadable();

    /// A recent database was forgotten.
    void recentChanged();

private:
    void open(const QString& procedure, const QString& file, const std::function<bool()>& body);
    [[nodiscard]] std::optional<Error> openUnlessDamaged(const QString& file,
                                                         const std::function<void()>& body);
    void openForReading(const QString& file);
    void openInstead(DamagedDatabase::Instead instead, const QString& file);
    [[nodiscard]] std::optional<DamagedDatabase::Made> makeInstead(DamagedDatabase::Instead instead,
                                                                   const QString& file);
    void settle();

    Platform m_platform;
    DatabaseOpener& m_opener;
    const ProgramState& m_state;
    QMenu& m_recentMenu;
    QWidget& m_window;
    DamagedDatabase m_damaged;
    bool m_isToRead = false;
    bool m_isToldOfDamage = false; ///< whether the user knows it of the open database
};
