// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/commands/MainCommands.h"

#include "browse/commands/ToolBarLabels.h"
#include "widgets/IconSet.h"

#include <QActionGroup>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

MainCommands::MainCommands(QMainWindow& window) : QObject(&window), m_window(window)
{
    makeActions();
    makeMenus();
    makeToolBar();
}

QAction* MainCommands::add(const QString& name, const QString& text, const QString& icon,
                           const QKeySequence& key, const QString& statusTip)
{
    auto* action = new QAction(IconSet::themeIcon(icon), text, &m_window);
    action->setObjectName(name);
    action->setShortcut(key);
    action->setStatusTip(statusTip);
    QString tip = text;
    tip.remove(u'&').remove(QStringLiteral("…"));
    action->setToolTip(
        key.isEmpty() ? tip : QStringLiteral("%1 (%2)").arg(tip, key.toString(QKeySequence::NativeText)));
    return action;
}

void MainCommands::makeRecordActions()
{
    mnuRecordAddNewDocument = add(QStringLiteral("mnuRecordAddNewDocument"), tr("New &Document…"),
                                  QStringLiteral("document-new"), {}, tr("Adds a document"));
    mnuRecordAddNewEvent = add(QStringLiteral("mnuRecordAddNewEvent"), tr("New &Event…"),
                               QStringLiteral("appointment-new"), {}, tr("Adds an event"));
    mnuRecordAddNewOrganization = add(QStringLiteral("mnuRecordAddNewOrganization"), tr("New &Organization…"),
                                      QStringLiteral("contact-new"), {}, tr("Adds an organization"));
    mnuRecordEdit = add(QStringLiteral("mnuRecordEdit"), tr("&Edit…"), QStringLiteral("document-edit"),
                        QKeySequence(Qt::CTRL | Qt::Key_E), tr("Opens the selected record for editing"));
    mnuRecordView = add(QStringLiteral("mnuRecordView"), tr("&View…"), QStringLiteral("view-visible"),
                        QKeySequence(Qt::Key_Return), tr("Shows the selected record"));
    mnuRecordView->setShortcuts({Qt::Key_Return, Qt::Key_Enter});
    mnuRecordDelete = add(QStringLiteral("mnuRecordDelete"), tr("&Delete…"), QStringLiteral("edit-delete"),
                          QKeySequence::Delete, tr("Deletes the selected records"));
    mnuRecordEdit->setIconText(tr("Edit"));
    mnuRecordView->setIconText(tr("View"));
    mnuRecordDelete->setIconText(tr("Delete"));
    mnuRecordAdd = add(QStringLiteral("mnuRecordAdd"), tr("&Add"), QStringLiteral("list-add"),
                       QKeySequence::New, tr("Adds a record of a kind to be chosen"));
    mnuRecordUndo = add(QStringLiteral("mnuRecordUndo"), tr("&Undo"), QStringLiteral("edit-undo"),
                        QKeySequence(Qt::CTRL | Qt::Key_Z), tr("Takes back the last change"));
    mnuRecordRedo =
        add(QStringLiteral("mnuRecordRedo"), tr("&Redo"), QStringLiteral("edit-redo"),
            QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), tr("Does again what was taken back last"));
}

void MainCommands::makeActions()
{
    makeRecordActions();
    mnuRecordOpen = add(QStringLiteral("mnuRecordOpen"), tr("&Open"), QStringLiteral("document-open"),
                        QKeySequence(Qt::CTRL | Qt::Key_Return),
                        tr("Opens the file of the document or the chart of the organization"));
    mnuRecordHistory =
        add(QStringLiteral("mnuRecordHistory"), tr("&History…"), QStringLiteral("document-open-recent"),
            QKeySequence(Qt::CTRL | Qt::Key_H), tr("Shows the versions of the selected record"));
    mnuRecordCopy = add(QStringLiteral("mnuRecordCopy"), tr("&Copy"), QStringLiteral("edit-copy"),
                        QKeySequence::Copy, tr("Copies the selected rows"));
    mnuRecordLists =
        add(QStringLiteral("mnuRecordLists"), tr("&Lists…"), QStringLiteral("format-list-unordered"), {},
            tr("Shows and changes the document types, venues, cities and other lists"));
    makeViewActions();
    makeOutputActions();
    makeSearchActions();
    mnuNavigateBack = add(QStringLiteral("mnuNavigateBack"), tr("&Back"), QStringLiteral("go-previous"),
                          QKeySequence(Qt::ALT | Qt::Key_Left), tr("Shows the view before this one"));
    mnuNavigateForward = add(QStringLiteral("mnuNavigateForward"), tr("&Forward"), QStringLiteral("go-next"),
                             QKeySequence(Qt::ALT | Qt::Key_Right), tr("Shows the view after this one"));
    mnuNavigateHome = add(QStringLiteral("mnuNavigateHome"), tr("&Home"), QStringLiteral("go-home"),
                          QKeySequence(Qt::ALT | Qt::Key_Home), tr("Shows the home page"));
    mnuNavigateGoToDate =
        add(QStringLiteral("mnuNavigateGoToDate"), tr("&Go to Date…"), QStringLiteral("go-jump"),
            QKeySequence(Qt::CTRL | Qt::Key_G), tr("Moves the timeline to a date"));
    mnuNewDatabase =
        add(QStringLiteral("mnuNewDatabase"), tr("&New Database…"), QStringLiteral("folder-new"),
            QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N), tr("Begins a collection of your own"));
    mnuOpenDatabase =
        add(QStringLiteral("mnuOpenDatabase"), tr("&Open Database…"), QStringLiteral("document-open"),
            QKeySequence::Open, tr("Opens an Access file or another database"));
    mnuBackUp = add(QStringLiteral("mnuBackUp"), tr("Back &Up…"), QStringLiteral("archive-insert"), {},
                    tr("Writes the database and its files into one archive"));
    mnuRestore = add(QStringLiteral("mnuRestore"), tr("Res&tore…"), QStringLiteral("document-revert"), {},
                     tr("Makes a new collection of a backup"));
    mnuCheckCollection =
        add(QStringLiteral("mnuCheckCollection"), tr("&Check Collection…"), QStringLiteral("kt-check-data"),
            {}, tr("Looks for faults in the database and for missing, stray and changed files"));
    mnuNavigateSettings = add(QStringLiteral("mnuNavigateSettings"), tr("&Settings…"),
                              QStringLiteral("configure"), QKeySequence(Qt::CTRL | Qt::Key_Comma),
                              tr("Changes how the program starts and what lists look like"));
    mnuNavigateSettings->setMenuRole(QAction::PreferencesRole);
    mnuNavigateExit = add(QStringLiteral("mnuNavigateExit"), tr("E&xit"), QStringLiteral("application-exit"),
                          QKeySequence(Qt::CTRL | Qt::Key_Q), tr("Ends the program"));
    mnuNavigateExit->setMenuRole(QAction::QuitRole);
}

void MainCommands::makeViewActions()
{
    mnuViewDocuments =
        add(QStringLiteral("mnuViewDocuments"), tr("&Documents"), QStringLiteral("view-list-text"),
            QKeySequence(Qt::CTRL | Qt::Key_1), tr("Shows all documents"));
    mnuViewEvents = add(QStringLiteral("mnuViewEvents"), tr("&Events"), QStringLiteral("view-calendar"),
                        QKeySequence(Qt::CTRL | Qt::Key_2), tr("Shows all events"));
    mnuViewOrganizations =
        add(QStringLiteral("mnuViewOrganizations"), tr("&Organizations"), QStringLiteral("view-institution"),
            QKeySequence(Qt::CTRL | Qt::Key_3), tr("Shows all organizations"));
    mnuViewDeleted =
        add(QStringLiteral("mnuViewDeleted"), tr("De&leted Records…"), QStringLiteral("trash-empty"), {},
            tr("Shows the deleted records and puts them back"));
    mnuViewRefresh = add(QStringLiteral("mnuViewRefresh"), tr("&Refresh"), QStringLiteral("view-refresh"),
                         QKeySequence(Qt::Key_F5), tr("Reads the list again"));
    mnuViewGraphicRight =
        add(QStringLiteral("mnuViewGraphicRight"), tr("Graphic to the R&ight"),
            QStringLiteral("view-split-left-right"), {}, tr("Shows the graphic to the right of the list"));
    mnuViewGraphicBelow =
        add(QStringLiteral("mnuViewGraphicBelow"), tr("Graphic &Below"),
            QStringLiteral("view-split-top-bottom"), {}, tr("Shows the graphic below the list"));
    mnuViewHideGraphic =
        add(QStringLiteral("mnuViewHideGraphic"), tr("&Hide Graphic"), QStringLiteral("view-hidden"),
            QKeySequence(Qt::Key_F8), tr("Leaves the room of the graphic to the list"));
    mnuViewHideGraphic->setCheckable(true);
    mnuViewDetails =
        add(QStringLiteral("mnuViewDetails"), tr("De&tails"), QStringLiteral("sidebar-expand-right"),
            QKeySequence(Qt::Key_F4), tr("Shows the selected record beside the list"));
    mnuViewDetails->setCheckable(true);
    auto* sides = new QActionGroup(this);
    for (QAction* side : {mnuViewGraphicRight, mnuViewGraphicBelow}) {
        side->setCheckable(true);
        sides->addAction(side);
    }
}

void MainCommands::makeSearchActions()
{
    mnuSearchKeyword =
        add(QStringLiteral("mnuSearchKeyword"), tr("&Keyword Search…"), QStringLiteral("edit-find"),
            QKeySequence(Qt::CTRL | Qt::Key_F), tr("Finds records by words in their names and descriptions"));
    mnuSearchKeyword->setIconText(tr("Search"));
    mnuSearchAdvanced =
        add(QStringLiteral("mnuSearchAdvanced"), tr("&Advanced Search…"), QStringLiteral("view-filter"),
            QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F), tr("Finds records of this kind by criteria"));
    mnuSearchFilter =
        add(QStringLiteral("mnuSearchFilter"), tr("&Filter the List"), QStringLiteral("view-filter"),
            QKeySequence(Qt::CTRL | Qt::Key_L), tr("Narrows the list to the records with the words typed"));
    mnuSearchShowAll =
        add(QStringLiteral("mnuSearchShowAll"), tr("Show &All"), QStringLiteral("view-list-details"),
            QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A), tr("Shows all records of this kind"));
}

/// The commands that bring out of the program what it shows.
void MainCommands::makeOutputActions()
{
    mnuRecordExport = add(QStringLiteral("mnuRecordExport"), tr("E&xport…"),
                          QStringLiteral("document-export"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_X),
                          tr("Writes records into a file for other programs"));
    mnuRecordPrint = add(QStringLiteral("mnuRecordPrint"), tr("&Print…"), QStringLiteral("document-print"),
                         QKeySequence::Print, tr("Prints the list, its graphic or the selected records"));
    mnuViewCopyPicture =
        add(QStringLiteral("mnuViewCopyPicture"), tr("&Copy Picture"), QStringLiteral("edit-copy"),
            QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), tr("Copies the graphic as a picture"));
    mnuViewSavePicture =
        add(QStringLiteral("mnuViewSavePicture"), tr("&Save Picture…"), QStringLiteral("document-save-as"),
            QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), tr("Saves the graphic as a picture"));
}

void MainCommands::makeMenus()
{
    QMenu* record = m_window.menuBar()->addMenu(tr("&Record"));
    record->setObjectName(QStringLiteral("mnuRecord"));
    record->setToolTipsVisible(true);
    record->addActions({mnuRecordUndo, mnuRecordRedo});
    record->addSeparator();
    QMenu* addNew = record->addMenu(tr("&Add"));
    addNew->setObjectName(QStringLiteral("mnuRecordAddNew"));
    addNew->setToolTipsVisible(true);
    addNew->addActions({mnuRecordAddNewDocument, mnuRecordAddNewEvent, mnuRecordAddNewOrganization});
    record->addActions({mnuRecordEdit, mnuRecordView, mnuRecordDelete});
    record->addSeparator();
    record->addAction(mnuRecordOpen);
    mnuRecordRelated = record->addMenu(tr("Rela&ted Records"));
    mnuRecordRelated->setObjectName(QStringLiteral("mnuRecordRelated"));
    mnuRecordRelated->setToolTipsVisible(true);
    record->addAction(mnuRecordHistory);
    record->addSeparator();
    record->addActions({mnuRecordCopy, mnuRecordExport, mnuRecordPrint});
    record->addSeparator();
    record->addAction(mnuRecordLists);

    QMenu* view = m_window.menuBar()->addMenu(tr("&View"));
    view->setObjectName(QStringLiteral("mnuView"));
    view->setToolTipsVisible(true);
    view->addActions({mnuViewDocuments, mnuViewEvents, mnuViewOrganizations});
    view->addSeparator();
    view->addAction(mnuViewDeleted);
    view->addSeparator();
    view->addAction(mnuViewDetails);
    view->addActions({mnuViewGraphicRight, mnuViewGraphicBelow, mnuViewHideGraphic, mnuViewCopyPicture,
                      mnuViewSavePicture});
    view->addSeparator();
    view->addAction(mnuViewRefresh);

    QMenu* search = m_window.menuBar()->addMenu(tr("&Search"));
    search->setObjectName(QStringLiteral("mnuSearch"));
    search->setToolTipsVisible(true);
    search->addActions({mnuSearchKeyword, mnuSearchAdvanced});
    search->addSeparator();
    search->addActions({mnuSearchFilter, mnuSearchShowAll});

    mnuNavigate = m_window.menuBar()->addMenu(tr("&Navigate"));
    mnuNavigate->setObjectName(QStringLiteral("mnuNavigate"));
    mnuNavigate->setToolTipsVisible(true);
    mnuNavigate->addActions({mnuNavigateBack, mnuNavigateForward, mnuNavigateHome, mnuNavigateGoToDate});
    mnuNavigate->addSeparator();
    mnuHistory = mnuNavigate->addMenu(tr("H&istory"));
    mnuHistory->setObjectName(QStringLiteral("mnuHistory"));
    // it has no upper bound: without scrolling, it would grow column by column out of the screen
    mnuHistory->setStyleSheet(QStringLiteral("QMenu { menu-scrollable: 1; }"));
    mnuNavigate->addSeparator();
    mnuNavigate->addActions({mnuNewDatabase, mnuOpenDatabase});
    mnuRecentDatabases = mnuNavigate->addMenu(tr("&Recent Databases"));
    mnuRecentDatabases->setObjectName(QStringLiteral("mnuRecentDatabases"));
    mnuRecentDatabases->setToolTipsVisible(true);
    mnuNavigate->addSeparator();
    mnuNavigate->addActions({mnuBackUp, mnuRestore, mnuCheckCollection});
    mnuNavigate->addSeparator();
    mnuNavigate->addAction(mnuNavigateSettings);
    mnuNavigate->addSeparator();
    mnuNavigate->addAction(mnuNavigateExit);
}

/// The drop-down of the toolbar's Add button.
void MainCommands::makeAddKinds()
{
    mnuAddKinds = new QMenu(&m_window);
    mnuAddKinds->setObjectName(QStringLiteral("mnuAddKinds"));
    const auto addKind = [this](const char* key, const QString& text, QAction* command) {
        QAction* entry = mnuAddKinds->addAction(command->icon(), text, command, &QAction::trigger);
        entry->setObjectName(QString::fromLatin1(key));
    };
    addKind("NewDocument", tr("New &Document"), mnuRecordAddNewDocument);
    addKind("NewEvent", tr("New &Event"), mnuRecordAddNewEvent);
    addKind("NewOrganization", tr("New &Organization"), mnuRecordAddNewOrganization);
    mnuRecordAdd->setMenu(mnuAddKinds);
    auto* button = qobject_cast<QToolButton*>(tbToolBar->widgetForAction(mnuRecordAdd));
    button->setObjectName(QStringLiteral("Add"));
    button->setPopupMode(QToolButton::InstantPopup);
}

void MainCommands::makeToolBar()
{
    tbToolBar = m_window.addToolBar(tr("Toolbar"));
    tbToolBar->setObjectName(QStringLiteral("tbToolBar"));
    tbToolBar->setMovable(false);
    tbToolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    tbToolBar->setContextMenuPolicy(Qt::PreventContextMenu);
    tbToolBar->addAction(mnuRecordAdd);
    makeAddKinds();
    tbToolBar->addSeparator();
    tbToolBar->addActions({mnuNavigateBack, mnuNavigateForward, mnuNavigateHome});
    tbToolBar->addSeparator();
    tbToolBar->addActions({mnuRecordEdit, mnuRecordView, mnuRecordOpen, mnuRecordDelete});
    tbToolBar->addSeparator();
    tbToolBar->addAction(mnuSearchKeyword);
    tbToolBar->addSeparator();
    tbToolBar->addActions({mnuViewDocuments, mnuViewEvents, mnuViewOrganizations, mnuViewRefresh});
    const auto nameButton = [this](QAction* action, const char* name) {
        tbToolBar->widgetForAction(action)->setObjectName(QString::fromLatin1(name));
    };
    nameButton(mnuNavigateBack, "Back");
    nameButton(mnuNavigateForward, "Forward");
    nameButton(mnuNavigateHome, "Home");
    nameButton(mnuRecordEdit, "Edit");
    nameButton(mnuRecordView, "View");
    nameButton(mnuRecordOpen, "Open");
    nameButton(mnuRecordDelete, "Delete");
    // these have familiar pictures and need no text, so that all buttons fit on a small screen
    for (QAction* action : {mnuNavigateForward, mnuNavigateHome, mnuViewRefresh})
        action->setPriority(QAction::LowPriority);
    // of the others, those with the clearest pictures lose their texts first
    new ToolBarLabels(*tbToolBar,
                      {mnuNavigateBack, mnuRecordDelete, mnuRecordEdit, mnuRecordAdd, mnuSearchKeyword,
                       mnuRecordView, mnuRecordOpen, mnuViewDocuments, mnuViewEvents, mnuViewOrganizations});
}
