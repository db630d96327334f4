#pragma once

#include "platform/Platform.h"
#include "views/ViewHistory.h"

#include <QMainWindow>

#include <memory>

class BrowsePage;
class DatabaseOpener;
class GraphicViews;
class HelpCommands;
class HomePage;
class ListMenus;
class ListPane;
class MainCommands;
class OpenCommand;
class RecordPicker;
class SearchCommands;
class QStackedWidget;
class RecordCommands;
class RecordEditors;
class RelatedCommands;
class StatusLine;
struct ProgramState;

/// The main window: shows one view of the history at a time, the home page or a list, and runs the commands
/// of its menus and its toolbar. There is one, from start-up to the end of the program.
class frmMain final : public QMainWindow, private ViewPresenter
{
    Q_OBJECT

public:
    /// All must outlive the window.
    frmMain(const Platform& platform, DatabaseOpener& opener, ProgramState& state);
    ~frmMain() override;

    /// The second half of start-up: opens the database that the settings name, and shows the home page. A
    /// failure shows its message; the window then has no data, and its commands say so. Without a program
    /// folder, of which the user was told, nothing is opened.
    void load(bool hasProgramFolder);

    /// Builds the menu of the views shown so far.
    void UpdateHistoryList();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showDocuments(const SharedQuery& query, const QString& caption) override;
    void showEvents(const SharedQuery& query, const QString& caption) override;
    void showOrganizations(const SharedQuery& query, const QString& caption) override;
    void showHome() override;
    void showSearchResults() override;

    void connectCommands();
    void makeRecordCommands();
    void placeOnScreen();
    void openDatabase();
    void showDatabaseName();
    void showList(ViewKind kind, const QString& procedure, const SharedQuery& query, const QString& caption);
    void viewAll(ViewKind kind);
    void pressHomeButton(int button);
    void refresh();
    void enableCommands();
    void showCaption(const QString& caption, const QString& count);
    [[nodiscard]] QString unwritable() const;

    Platform m_platform;
    DatabaseOpener& m_opener;
    ProgramState& m_state;
    MainCommands* m_commands;
    HelpCommands* m_help;
    StatusLine* m_status;
    QStackedWidget* m_pages;
    HomePage* m_home;
    ListPane* m_list;
    BrowsePage* m_browse;
    std::unique_ptr<RecordPicker> m_picker;
    SearchCommands* m_search;
    RelatedCommands* m_related;
    std::unique_ptr<OpenCommand> m_open;
    RecordEditors* m_editors;
    RecordCommands* m_records = nullptr;
    GraphicViews* m_graphics;
};
