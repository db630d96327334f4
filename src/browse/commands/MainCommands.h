// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAction>
#include <QObject>

class QMainWindow;
class QMenu;
class QToolBar;

/// The commands of the main window: its menus, its toolbar and their keys. The actions live as long as the
/// window, which connects them to what they do.
class MainCommands final : public QObject
{
    Q_OBJECT

public:
    explicit MainCommands(QMainWindow& window);

    QAction* mnuViewDocuments;
    QAction* mnuViewEvents;
    QAction* mnuViewOrganizations;
    QAction* mnuViewDeleted;
    QAction* mnuViewRefresh;
    QAction* mnuViewGraphicRight;
    QAction* mnuViewGraphicBelow;
    QAction* mnuViewHideGraphic;
    QAction* mnuViewDetails;
    QAction* mnuViewCopyPicture;
    QAction* mnuViewSavePicture;
    QAction* mnuSearchKeyword;
    QAction* mnuSearchAdvanced;
    QAction* mnuSearchFilter;
    QAction* mnuSearchShowAll;
    QAction* mnuNavigateBack;
    QAction* mnuNavigateForward;
    QAction* mnuNavigateHome;
    QAction* mnuNavigateGoToDate;
    QAction* mnuNewDatabase;
    QAction* mnuOpenDatabase;
    QAction* mnuBackUp;
    QAction* mnuRestore;
    QAction* mnuCheckCollection;
    QAction* mnuNavigateSettings;
    QAction* mnuNavigateExit;
    QAction* mnuRecordAdd; ///< of the toolbar: drops down `mnuAddKinds`
    QAction* mnuRecordAddNewDocument;
    QAction* mnuRecordAddNewEvent;
    QAction* mnuRecordAddNewOrganization;
    QAction* mnuRecordUndo; ///< named after the step that it takes back
    QAction* mnuRecordRedo;
    QAction* mnuRecordEdit;
    QAction* mnuRecordView;
    QAction* mnuRecordDelete;
    QAction* mnuRecordOpen;
    QAction* mnuRecordHistory;
    QAction* mnuRecordCopy;
    QAction* mnuRecordExport;
    QAction* mnuRecordPrint;
    QAction* mnuRecordLists;
    QMenu* mnuAddKinds; ///< the kinds of record that can be added
    QMenu* mnuRecordRelated;
    QMenu* mnuNavigate;
    QMenu* mnuHistory;
    QMenu* mnuRecentDatabases;
    QToolBar* tbToolBar;

private:
    QAction* add(const QString& name, const QString& text, const QString& icon, const QKeySequence& key,
                 const QString& statusTip);
    void makeActions();
    void makeRecordActions();
    void makeViewActions();
    void makeSearchActions();
    void makeOutputActions();
    void makeAddKinds();
    void makeMenus();
    void makeToolBar();

    QMainWindow& m_window;
};
