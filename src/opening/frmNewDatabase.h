// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"

#include <QDialog>

class LineEdit;
class NewCollection;
class ProgramFolder;
class QGridLayout;
class QLabel;
class QLayout;
class QPushButton;
class QRadioButton;

/// Makes a collection under a name, in a place and with the lists that the user chooses, or provides the
/// sample to look at. What was typed stays if the collection cannot be made.
class frmNewDatabase final : public QDialog
{
    Q_OBJECT

public:
    /// `home` is the program's folder, `place` the one that the window offers for the collection. `home` and
    /// the doors of the platform must outlive the window.
    frmNewDatabase(const Platform& platform, const ProgramFolder& home, const QString& place,
                   QWidget* parent);

    /// The database to open, once the window was accepted.
    [[nodiscard]] const QString& database() const { return m_database; }

    void accept() override;

private:
    void addPlaceTo(QGridLayout& form);
    void addListsTo(QGridLayout& form);
    [[nodiscard]] QLayout* makeButtons();
    void choosePlace();
    void lookAtSample();
    void showFolder();
    [[nodiscard]] NewCollection collection() const;

    Platform m_platform;
    const ProgramFolder& m_home;
    QString m_database;
    LineEdit* m_name;
    LineEdit* m_place;
    QRadioButton* m_listsOfSample;
    QLabel* m_folder;
    QPushButton* m_ok;
};
