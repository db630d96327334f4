// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class DatabaseOpener;
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

    /// A recent database was forgotten.
    void recentChanged();

private:
    void open(const QString& procedure, const QString& file, const std::function<bool()>& body);
    void settle();

    Platform m_platform;
    DatabaseOpener& m_opener;
    const ProgramState& m_state;
    QMenu& m_recentMenu;
    QWidget& m_window;
    bool m_isToRead = false;
};
