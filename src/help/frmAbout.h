// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>

class DatabaseSession;
class Shell;

/// The about box: the program, its licence and its parts, and the database that is open.
class frmAbout final : public QDialog
{
    Q_OBJECT

public:
    /// The records of the session are counted once, here. The shell must outlive the box.
    frmAbout(DatabaseSession& session, Shell& shell, QWidget* parent);

private:
    [[nodiscard]] QWidget* makeHeading();
    [[nodiscard]] QWidget* makeDatabaseLine(DatabaseSession& session);
    [[nodiscard]] QWidget* makeLicences(Shell& shell);
};
