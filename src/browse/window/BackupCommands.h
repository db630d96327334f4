// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/ProgramFolder.h"
#include "platform/Platform.h"

#include <QObject>
#include <QString>

#include <optional>

class DatabaseCommands;
class DatabaseOpener;
class MainCommands;
class QWidget;
struct Manifest;
struct ProgramState;

/// The commands that back up the open collection into an archive and make a new collection of one, and the
/// backup of a database that is left. Lives as long as the window.
class BackupCommands final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the object.
    BackupCommands(const Platform& platform, DatabaseOpener& opener, ProgramState& state,
                   DatabaseCommands& databases, const MainCommands& commands, QWidget& window);

    void backUp();
    void restore();

    /// Backs up the database that is open, if it was changed and there is no backup of today yet.
    void backUpChanges();

Q_SIGNALS:
    /// Says which backup was written; the text is empty if none was.
    void done(const QString& text);

private:
    /// The collection whose files are copied into one that is restored, and how many.
    struct Along
    {
        std::optional<ProgramFolder> folder;
        int files = 0;
    };

    [[nodiscard]] QString chooseTarget() const;
    [[nodiscard]] bool askForFiles(const QString& archive, Along& along) const;
    [[nodiscard]] QString restoredText(const QString& archive, const Manifest& manifest,
                                       const Along& along) const;

    Platform m_platform;
    DatabaseOpener& m_opener;
    ProgramState& m_state;
    DatabaseCommands& m_databases;
};
