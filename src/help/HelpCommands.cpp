// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/HelpCommands.h"

#include "help/frmAbout.h"
#include "platform/Procedure.h"
#include "widgets/IconSet.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

HelpCommands::HelpCommands(QMainWindow& window, QToolBar& toolBar, DatabaseSession& session,
                           const ProgramFolder& folder, Shell& shell, Messages& messages)
    : QObject(&window),
      mnuHelpContents(nullptr),
      mnuSearchForHelpOn(nullptr),
      mnuHelpAbout(nullptr),
      m_window(window),
      m_session(session),
      m_shell(shell),
      m_messages(messages),
      m_help(folder, shell)
{
    makeMenu();
    makeButton(toolBar);
    QCoreApplication::instance()->installEventFilter(this);
}

HelpCommands::~HelpCommands() = default;

QAction* HelpCommands::add(const QString& name, const QString& text, const QString& icon,
                           const QString& statusTip)
{
    auto* action = new QAction(IconSet::themeIcon(icon), text, &m_window);
    action->setObjectName(name);
    action->setStatusTip(statusTip);
    return action;
}

void HelpCommands::makeMenu()
{
    mnuHelpContents = add(QStringLiteral("mnuHelpContents"), tr("&Contents"), QStringLiteral("help-contents"),
                          tr("Opens the user's guide"));
    mnuHelpContents->setShortcut(QKeySequence::HelpContents);
    mnuSearchForHelpOn = add(QStringLiteral("mnuSearchForHelpOn"), tr("&Search for Help On…"),
                             QStringLiteral("help-hint"), tr("Opens the user's guide to look up a subject"));
    mnuHelpAbout = add(QStringLiteral("mnuHelpAbout"), tr("&About Orvik Database"),
                       QStringLiteral("help-about"), tr("Shows the version, the licence and the database"));
    mnuHelpAbout->setMenuRole(QAction::AboutRole);

    QMenu* help = m_window.menuBar()->addMenu(tr("&Help"));
    help->setObjectName(QStringLiteral("mnuHelp"));
    help->addActions({mnuHelpContents, mnuSearchForHelpOn});
    help->addSeparator();
    help->addAction(mnuHelpAbout);

    connect(mnuHelpContents, &QAction::triggered, this,
            [this] { open(QStringLiteral("mnuHelpContents"), HelpChapter::Contents); });
    connect(mnuSearchForHelpOn, &QAction::triggered, this,
            [this] { open(QStringLiteral("mnuSearchForHelpOn"), HelpChapter::Subjects); });
    connect(mnuHelpAbout, &QAction::triggered, this, &HelpCommands::showAbout);
}

void HelpCommands::makeButton(QToolBar& toolBar)
{
    mnuHelpContents->setIconText(tr("Help"));
    mnuHelpContents->setToolTip(
        tr("Help (%1)").arg(mnuHelpContents->shortcut().toString(QKeySequence::NativeText)));
    toolBar.addSeparator();
    toolBar.addAction(mnuHelpContents);
    toolBar.widgetForAction(mnuHelpContents)->setObjectName(QStringLiteral("Help"));
}

void HelpCommands::open(const QString& procedure, HelpChapter chapter)
{
    runProcedure(m_messages, procedure, [&] { m_help.open(chapter); });
}

void HelpCommands::showAbout()
{
    frmAbout about(m_session, m_shell, &m_window);
    about.exec();
}

/// The key of the menu works in the main window alone. Here it works in every dialog, without each of them
/// having to know the guide.
bool HelpCommands::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && watched->isWidgetType()) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const QWidget* dialog = static_cast<QWidget*>(watched)->window();
        if (key.matches(QKeySequence::HelpContents) && dialog != &m_window && dialog->isModal()) {
            open(QStringLiteral("Help"), HelpFile::chapterOf(dialog->objectName()));
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}
