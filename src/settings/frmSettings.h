// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backup/KeptBackups.h"
#include "platform/Platform.h"
#include "state/Preferences.h"

#include <QDialog>

#include <optional>

class FolderField;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QSpinBox;

/// The window for what users may have otherwise. It only asks; whoever opens it reads and writes the
/// settings.
class frmSettings final : public QDialog
{
    Q_OBJECT

public:
    struct Surroundings
    {
        Platform platform;                  ///< its doors must outlive the window
        QString home;                       ///< where collections are made if no other place is chosen
        QString openDatabase;               ///< path of the machine, or empty
        std::optional<KeptBackups> backups; ///< of the open database
    };

    frmSettings(const Preferences& preferences, const Surroundings& surroundings, QWidget* parent);

    /// What the controls say now.
    [[nodiscard]] Preferences chosen() const;

private:
    QGroupBox* makeStart();
    QGroupBox* makeLook();
    QGroupBox* makeFolders();
    QWidget* makeStartDatabase(QWidget* parent);
    QWidget* makeBackups(QWidget* parent);
    [[nodiscard]] QString backupsText() const;
    void openBackups();
    void offerStartDatabase(const QString& file);
    void chooseStartDatabase();
    void checkStartDatabase();

    Preferences m_before;
    Surroundings m_at;
    QComboBox* m_startDatabase = nullptr;
    QLabel* m_noStartDatabase = nullptr;
    QComboBox* m_startPage = nullptr;
    QCheckBox* m_asksOnExit = nullptr;
    QSpinBox* m_listTextSize = nullptr;
    QCheckBox* m_fourDigitYears = nullptr;
    QLineEdit* m_backups = nullptr;
    FolderField* m_collectionsPlace = nullptr;
    FolderField* m_dataDisc = nullptr;
    FolderField* m_photosDisc = nullptr;
};
