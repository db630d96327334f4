#pragma once

#include <QDialog>

class DatabaseSession;
class Shell;

/// The about box: the program, its licence and its parts, and the database that is open.
class frmAbout final : public QDialog
{
    Q_OBJECT

public:
    /// Counts the records of the session as it is made. The door must outlive the box, the session need not.
    frmAbout(DatabaseSession& session, Shell& shell, QWidget* parent);

private:
    [[nodiscard]] QWidget* makeHeading();
    [[nodiscard]] QWidget* makeDatabaseLine(DatabaseSession& session);
    [[nodiscard]] QWidget* makeLicences(Shell& shell);
};
