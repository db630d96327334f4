// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "browse/window/OpenDatabase.h"
#include "data/RecordKind.h"
#include "platform/Platform.h"

#include <QMainWindow>

#include <memory>

class BackupCommands;
class BrowsePage;
class CheckCommand;
class CommandStates;
class DatabaseCommands;
class DatabaseOpener;
class DetailsCommand;
class EmptyList;
class ExportCommand;
class FileReading;
class GraphicViews;
class HelpCommands;
class HistoryNavigation;
class HomeCommands;
class HomePage;
class ListMenus;
class ListPane;
class MainCommands;
class NewEntries;
class OpenCommand;
class PictureCommands;
class PositionPicker;
class PrintCommand;
class RecordPicker;
class SearchCommands;
class SettingsCommand;
class ShownView;
class StartCommands;
class RecordCommands;
class RecordEditors;
class RecordWindows;
class RelatedCommands;
class StatusLine;
class UndoCommands;
class ViewPages;
struct ProgramState;
struct RecordAddition;
struct StartRequest;

/// The main window: puts together the pages that show the views, the commands and the status bar. There is
/// one, from start-up to the end of the program.
class frmMain final : public QMainWindow
{
    Q_OBJECT

public:
    /// All must outlive the window.
    frmMain(const Platform& platform, DatabaseOpener& opener, ProgramState& state);
    ~frmMain() override;

    /// The second half of start-up: opens the database that is asked for or, if none is, the one that the
    /// settings name, and shows the home page, or the page that they name. A failure shows its message; the
    /// window then has no data, and its commands say so. Without a program folder, which start-up has
    /// reported, opens no database. What else is asked for is done once the window is shown.
    void load(bool hasProgramFolder, const StartRequest& request);

    /// Rebuilds the menu of the views opened so far.
    void UpdateHistoryList();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void connectCommands();
    void connectViews();
    void connectEditors();
    void connectRows();
    void placeOnScreen();
    void showStartPage();
    void startOver();
    void showAgain();
    void lookForOutsideChange();
    void lookForDamage();
    void viewAll(RecordKind kind);
    void viewHome();
    void add(const RecordAddition& addition);
    void showCaption(const QString& caption, const QString& count);
    void showTitle();

    Platform m_platform;
    ProgramState& m_state;
    OpenDatabase m_database;
    MainCommands* m_commands;
    HelpCommands* m_help;
    DatabaseCommands* m_databases;
    BackupCommands* m_backups;
    StatusLine* m_status;
    HomePage* m_home;
    HomeCommands* m_homeCommands;
    ListPane* m_list;
    BrowsePage* m_browse;
    std::unique_ptr<RecordPicker> m_picker;
    std::unique_ptr<PositionPicker> m_positions;
    std::unique_ptr<NewEntries> m_newEntries;
    SearchCommands* m_search;
    RelatedCommands* m_related;
    std::unique_ptr<OpenCommand> m_open;
    RecordEditors* m_editors;
    RecordCommands* m_records;
    UndoCommands* m_undo;
    RecordWindows* m_windows;
    GraphicViews* m_graphics;
    std::unique_ptr<ShownView> m_shown;
    DetailsCommand* m_details;
    FileReading* m_fileReading;
    ExportCommand* m_export;
    PrintCommand* m_print;
    PictureCommands* m_pictures;
    EmptyList* m_emptyList;
    ViewPages* m_pages;
    std::unique_ptr<CommandStates> m_commandStates;
    HistoryNavigation* m_navigation;
    std::unique_ptr<SettingsCommand> m_settings;
    std::unique_ptr<CheckCommand> m_check;
    StartCommands* m_starts;
};
