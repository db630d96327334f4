#pragma once

#include "opening/DatabaseConverter.h"

#include <QByteArray>
#include <QDialog>
#include <QProcess>

class QLabel;
class QProgressBar;
class QPushButton;

/// Shows how the conversion of an Access file goes on, and lets the user stop it. The work is done by a
/// process of its own, so that no file, however damaged, can take the program with it.
class frmImport final : public QDialog
{
    Q_OBJECT

public:
    /// `tool` is the path of the program that converts.
    frmImport(QString tool, QWidget* parent);
    ~frmImport() override;

    /// Runs a conversion to its end, modally.
    DatabaseConverter::Result run(const QString& source, const QString& target, bool replace);

public Q_SLOTS:
    void reject() override;

private:
    void readOutput();
    void finish(int status, QProcess::ExitStatus exit);
    void fail(QProcess::ProcessError error);

    QString m_tool;
    QProcess m_process;
    QByteArray m_rest;
    DatabaseConverter::Result m_result;
    bool m_cancelled = false;
    QLabel* m_title;
    QLabel* m_step;
    QProgressBar* m_bar;
    QPushButton* m_cancel;
};

/// Converts by the program's own tool, under a window that shows the progress.
class DesktopDatabaseConverter final : public DatabaseConverter
{
public:
    explicit DesktopDatabaseConverter(QString tool) : m_tool(std::move(tool)) {}

    [[nodiscard]] Result convert(const QString& source, const QString& target, bool replace) override;

private:
    QString m_tool;
};
