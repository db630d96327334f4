// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "help/HelpFile.h"

#include <QObject>

class DatabaseSession;
class Messages;
class QAction;
class QMainWindow;
class QToolBar;

/// The Help menu with its commands, the Help button of the toolbar, and the F1 key in dialogs, which opens
/// the chapter about the dialog. Lives as long as the main window.
class HelpCommands final : public QObject
{
    Q_OBJECT

public:
    /// Adds the menu and the button after those that the window has. The about box tells of `session`; the
    /// guide is in `folder`. The references must outlive the window.
    HelpCommands(QMainWindow& window, QToolBar& toolBar, DatabaseSession& session,
                 const ProgramFolder& folder, Shell& shell, Messages& messages);
    ~HelpCommands() override;

    QAction* mnuHelpContents;
    QAction* mnuSearchForHelpOn;
    QAction* mnuHelpAbout;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAction* add(const QString& name, const QString& text, const QString& icon, const QString& statusTip);
    void makeMenu();
    void makeButton(QToolBar& toolBar);
    void open(const QString& procedure, HelpChapter chapter);
    void showAbout();

    QMainWindow& m_window;
    DatabaseSession& m_session;
    Shell& m_shell;
    Messages& m_messages;
    HelpFile m_help;
};
