// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/frmMain.h"

#include "browse/commands/ListMenus.h"
#include "browse/commands/MainCommands.h"
#include "browse/commands/OpenCommand.h"
#include "browse/commands/RecordCommands.h"
#include "browse/commands/RelatedCommands.h"
#include "browse/history/HistoryNavigation.h"
#include "browse/home/HomePage.h"
#include "browse/list/ListPane.h"
#include "browse/list/RecordListView.h"
#include "browse/window/BackupCommands.h"
#include "browse/window/BrowsePage.h"
#include "browse/window/CheckCommand.h"
#include "browse/window/CommandStates.h"
#include "browse/window/DatabaseCommands.h"
#include "browse/window/DetailsCommand.h"
#include "browse/window/EmptyList.h"
#include "browse/window/ExportCommand.h"
#include "browse/window/FileReading.h"
#include "browse/window/GraphicViews.h"
#include "browse/window/HomeCommands.h"
#include "browse/window/PictureCommands.h"
#include "browse/window/PrintCommand.h"
#include "browse/window/RecordWindows.h"
#include "browse/window/SettingsCommand.h"
#include "browse/window/ShownView.h"
#include "browse/window/StartCommands.h"
#include "browse/window/StatusLine.h"
#include "browse/window/UndoCommands.h"
#include "browse/window/ViewPages.h"
#include "editors/DialogRecordPicker.h"
#include "editors/RecordEditors.h"
#include "help/HelpCommands.h"
#include "lists/NewEntries.h"
#include "map/frmPosition.h"
#include "opening/DatabaseOpener.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "search/SearchCommands.h"
#include "state/ProgramState.h"
#include "timeline/TimelinePanel.h"
#include "util/ReadableLine.h"
#include "widgets/IconSet.h"
#include "widgets/ReadablePalette.h"
#include "widgets/WindowPlace.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>

#include <algorithm>
#include <utility>

namespace {

constexpr QSize largestFirstSize(1600, 1000);

} // namespace

frmMain::frmMain(const Platform& platform, DatabaseOpener& opener, ProgramState& state)
    : m_platform(platform),
      m_state(state),
      m_database(state.session),
      m_commands(new MainCommands(*this)),
      m_help(new HelpCommands(*this, *m_commands->tbToolBar, state.session, state.home, platform.shell,
                              platform.messages)),
      m_databases(new DatabaseCommands(platform, opener, state, *m_commands->mnuRecentDatabases, *this)),
      m_backups(new BackupCommands(platform, opener, state, *m_databases, *m_commands, *this)),
      m_status(new StatusLine(*this)),
      m_home(new HomePage(this)),
      m_homeCommands(new HomeCommands(*m_home, *m_databases, *m_commands, state, this)),
      m_list(new ListPane(state.session, state.history, state.folder, this)),
      m_browse(new BrowsePage(m_list, platform.settings, this)),
      m_picker(std::make_unique<DialogRecordPicker>(platform, state.session)),
      m_positions(std::make_unique<MapPositionPicker>(platform, state.folder)),
      m_newEntries(std::make_unique<NewEntries>(platform, state.session, *m_positions)),
      m_search(new SearchCommands({platform.messages, state.session, state.history, state.queries}, *m_picker,
                                  *this)),
      m_related(new RelatedCommands(platform.messages, {state.session, state.queries}, state.history, *m_list,
                                    this)),
      m_open(std::make_unique<OpenCommand>(platform, state.session, state.queries, state.folder, *m_list)),
      m_editors(new RecordEditors(platform, state.session, *m_newEntries, state.folder, *this)),
      m_records(new RecordCommands(*m_commands, *m_list, *m_editors, *this)),
      m_undo(new UndoCommands(
          platform, state, *m_commands, [this] { return m_database.unwritable(); }, *this)),
      m_windows(new RecordWindows(platform, state, *m_positions, *m_editors, *this)),
      m_graphics(new GraphicViews({state.session, state.history, state.queries, state.folder, platform.clock,
                                   platform.settings, platform.messages},
                                  *m_list, *m_browse, *this)),
      m_shown(std::make_unique<ShownView>(state, *m_list, *m_graphics, *this)),
      m_details(new DetailsCommand(platform, *m_open, *m_shown, *m_browse, *m_commands, this)),
      m_fileReading(new FileReading(platform, state, *m_status, this)),
      m_export(new ExportCommand(platform, *m_shown, *m_commands, this)),
      m_print(new PrintCommand(platform, *m_shown, *m_commands, this)),
      m_pictures(new PictureCommands(platform, *m_shown, *m_commands, this)),
      m_emptyList(new EmptyList({state.session, state.history, state.queries, *m_search, *m_commands,
                                 [this] { return m_database.unwritable(); }},
                                *m_list, *this)),
      m_pages(new ViewPages(platform.messages, state.history,
                            {*m_home, *m_browse, *m_list, *m_emptyList, *m_search, *m_graphics}, this)),
      m_commandStates(std::make_unique<CommandStates>(
          CommandStates::Parts{state, m_database, *m_pages, *m_browse, *m_list, *m_open, *m_commands,
                               *m_related, *m_records, *m_status})),
      m_navigation(new HistoryNavigation(state.history, *m_commands->mnuNavigateBack,
                                         *m_commands->mnuNavigateForward, *m_commands->tbToolBar, *this)),
      m_settings(std::make_unique<SettingsCommand>(platform, state, *m_list, *m_open)),
      m_check(std::make_unique<CheckCommand>(platform, state, *m_databases, *m_editors,
                                             [this] { return m_database.unwritable(); })),
      m_starts(new StartCommands({platform, state, *m_databases, *m_list, *m_editors, *m_search}, *this))
{
    setObjectName(QStringLiteral("frmMain"));
    m_search->attachTo(m_list->view().marks());
    setCentralWidget(m_pages);
    connectCommands();
    connectViews();
    connectEditors();
    connectRows();
    connect(m_starts, &StartCommands::delayed, m_status, &StatusLine::showNotice);
}

frmMain::~frmMain() = default;

void frmMain::connectCommands()
{
    const auto on = [this](QAction* action, auto&& handler) {
        connect(action, &QAction::triggered, this, std::forward<decltype(handler)>(handler));
    };
    on(m_commands->mnuViewDocuments, [this] { viewAll(RecordKind::Document); });
    on(m_commands->mnuViewEvents, [this] { viewAll(RecordKind::Event); });
    on(m_commands->mnuViewOrganizations, [this] { viewAll(RecordKind::Organization); });
    on(m_commands->mnuSearchShowAll, [this] { viewAll(m_list->kind()); });
    on(m_commands->mnuSearchKeyword, [this] { m_search->openKeywordSearch(); });
    on(m_commands->mnuSearchAdvanced, [this] { m_search->openAdvancedSearch(m_list->kind()); });
    on(m_commands->mnuSearchFilter, [this] { m_list->beginFilter(); });
    on(m_commands->mnuViewRefresh, [this] { m_pages->refresh(); });
    on(m_commands->mnuViewGraphicRight, [this] { m_browse->setSide(Qt::Horizontal); });
    on(m_commands->mnuViewGraphicBelow, [this] { m_browse->setSide(Qt::Vertical); });
    on(m_commands->mnuViewHideGraphic, [this](bool hidden) { m_browse->hideGraphic(hidden); });
    for (const QAction* action :
         {m_commands->mnuViewGraphicRight, m_commands->mnuViewGraphicBelow, m_commands->mnuViewHideGraphic})
        connect(action, &QAction::triggered, this, [this] { m_commandStates->refresh(); });
    on(m_commands->mnuNavigateBack, [this] {
        if (!m_state.history.goBack()) m_platform.messages.beep();
    });
    on(m_commands->mnuNavigateForward, [this] {
        if (!m_state.history.goForward()) m_platform.messages.beep();
    });
    on(m_commands->mnuNavigateHome, [this] { viewHome(); });
    on(m_commands->mnuNavigateGoToDate, [this] { m_graphics->timeline().goToDate(); });
    on(m_commands->mnuNavigateSettings, [this] {
        if (m_settings->change(*this) && m_pages->showsList()) m_pages->refresh();
    });
    on(m_commands->mnuNewDatabase, [this] { m_databases->newDatabase(); });
    on(m_commands->mnuOpenDatabase, [this] { m_databases->openDatabase(); });
    on(m_commands->mnuCheckCollection, [this] { m_check->run(*this); });
    on(m_commands->mnuNavigateExit, [this] { close(); });
    on(m_commands->mnuRecordCopy, [this] { m_list->view().copySelection(); });
    on(m_commands->mnuRecordOpen, [this] { m_open->run(); });
    on(m_commands->mnuRecordLists, [this] { m_windows->openLists(); });
    on(m_commands->mnuViewDeleted, [this] { m_windows->openDeleted(m_list->kind()); });
}

void frmMain::connectViews()
{
    connect(m_home, &HomePage::recordsChosen, this, &frmMain::viewAll);
    connect(m_home, &HomePage::searchChosen, m_search, &SearchCommands::openKeywordSearch);
    connect(m_databases, &DatabaseCommands::opening, m_list, &ListPane::stop);
    connect(m_databases, &DatabaseCommands::opening, m_fileReading, &FileReading::stop);
    connect(m_databases, &DatabaseCommands::opening, m_backups, &BackupCommands::backUpChanges);
    connect(m_backups, &BackupCommands::done, m_status, &StatusLine::showChange);
    connect(m_export, &ExportCommand::done, m_status, &StatusLine::showChange);
    connect(m_print, &PrintCommand::done, m_status, &StatusLine::showChange);
    connect(m_pictures, &PictureCommands::done, m_status, &StatusLine::showChange);
    connect(m_databases, &DatabaseCommands::opened, this, &frmMain::startOver);
    connect(m_databases, &DatabaseCommands::onlyReadable, this, [this] {
        showTitle();
        m_commandStates->refresh();
        m_undo->refresh();
    });
    connect(m_details, &DetailsCommand::fileAsked, this,
            [this](RecordKind kind, qint64 record) { m_open->openRecord(kind, record); });
    connect(m_home, &HomePage::helpChosen, m_help->mnuHelpContents, &QAction::trigger);
    connect(m_list, &ListPane::filtered, m_status,
            [this] { m_status->showCount(RecordList::countText(m_list->kind(), m_list->count())); });
    connect(m_pages, &ViewPages::viewAsked, this, &frmMain::lookForOutsideChange);
    connect(m_pages, &ViewPages::pageChanged, this, [this] { m_commandStates->refresh(); });
    connect(m_pages, &ViewPages::viewShown, this, &frmMain::showCaption);
    connect(m_pages, &ViewPages::viewShown, this, [this] { m_commandStates->refresh(); });
    connect(m_pages, &ViewPages::viewShown, m_undo, &UndoCommands::refresh);
    // queued, since the graphic is drawn after that
    connect(m_pages, &ViewPages::viewShown, this, &frmMain::lookForDamage, Qt::QueuedConnection);
    connect(m_list, &ListPane::selectionChanged, this, [this] { m_commandStates->refresh(); });
    connect(m_commands->mnuNavigate, &QMenu::aboutToShow, this, &frmMain::UpdateHistoryList);
    connect(m_commands->mnuNavigate, &QMenu::aboutToShow, m_databases, &DatabaseCommands::listRecent);
}

void frmMain::connectEditors()
{
    connect(m_search, &SearchCommands::recordChosen, m_editors, &RecordEditors::view);
    connect(m_related, &RelatedCommands::additionWanted, this, &frmMain::add);
    connect(m_editors, &RecordEditors::eventSaved, this, [this](const std::optional<QDateTime>& start) {
        m_graphics->updateTimeline(start ? std::optional(momentOf(start->date(), start->time()))
                                         : std::nullopt);
    });
    connect(m_editors, &RecordEditors::changed, this, [this](RecordKind kind, qint64 saved) {
        const int row = m_records->selectedRow();
        m_pages->refresh();
        m_records->selectAfterChange(kind, saved, row);
        m_undo->refresh();
        m_fileReading->lookForChanges();
    });
    connect(m_editors, &RecordEditors::fileAsked, this,
            [this](RecordKind kind, qint64 record) { m_open->openRecord(kind, record); });
    connect(m_editors, &RecordEditors::saved, this, [this](RecordKind kind, qint64 id, const QString& name) {
        m_status->showSaved(kind, name, m_list->hides(kind, id));
    });
    connect(m_editors, &RecordEditors::deleted, this, [this](RecordKind kind, const QStringList& names) {
        m_status->showDeleted(kind, names, m_undo->undoText());
    });
    connect(m_status, &StatusLine::undoAsked, m_commands->mnuRecordUndo, &QAction::trigger);
    connect(m_windows, &RecordWindows::viewWanted, this,
            [this](const clsView& view) { m_state.history.addView(view); });
    connect(m_windows, &RecordWindows::listsChanged, this, &frmMain::showAgain);
    connect(m_windows, &RecordWindows::restored, m_editors, &RecordEditors::tellOfChange);
    connect(m_undo, &UndoCommands::recordsChanged, m_editors, &RecordEditors::tellOfChange);
    connect(m_undo, &UndoCommands::listsChanged, this, &frmMain::showAgain);
    connect(m_undo, &UndoCommands::outdated, this, &frmMain::showAgain);
    connect(m_undo, &UndoCommands::done, m_status, &StatusLine::showChange);
}

/// Connects what the user does with rows of the list and with events of the timeline.
void frmMain::connectRows()
{
    m_related->addTo(*m_commands->mnuRecordRelated);
    auto* menus = new ListMenus(*m_commands, *m_related, *this);
    connect(&m_list->view(), &QWidget::customContextMenuRequested, this,
            [this, menus](const QPoint& position) {
                menus->popUp(m_list->kind(), m_list->view().viewport()->mapToGlobal(position));
            });
    const TimelinePanel& timeline = m_graphics->timeline();
    connect(&timeline, &TimelinePanel::eventOpened, this,
            [this](qint64 event) { m_editors->view(RecordKind::Event, event); });
    connect(&timeline, &TimelinePanel::eventMenuRequested, this,
            [menus](const QPoint& position) { menus->popUp(RecordKind::Event, position); });
}

void frmMain::load(bool hasProgramFolder, const StartRequest& request)
{
    if (hasProgramFolder) m_databases->openAtStart(request);
    m_homeCommands->showDatabase();
    placeOnScreen();
    m_list->widths().restore(m_platform.settings);
    m_graphics->mainLoad();
    m_settings->apply();
    viewHome();
    showStartPage();
    m_starts->add(request);
    m_fileReading->lookForChanges();
}

/// Shows the page that the settings name after the home page, to which Back leads.
void frmMain::showStartPage()
{
    const std::optional<RecordKind> kind = recordKindOf(m_settings->preferences().startPage);
    if (kind && m_state.session.isOpen()) viewAll(*kind);
}

/// Forgets what was shown of the database before, and begins with the home page.
void frmMain::startOver()
{
    m_database.forget();
    m_state.history.clear();
    m_list->forget();
    m_graphics->mainLoad();
    m_homeCommands->showDatabase();
    viewHome();
    m_fileReading->lookForChanges();
}

/// The views are read anew whenever they are shown; of the rest, only the limits of the timeline are kept.
void frmMain::lookForOutsideChange()
{
    if (m_database.wasChanged()) m_graphics->updateTimeline(std::nullopt);
}

/// Never while something else is going on: the user may be asked, and another database opened.
void frmMain::lookForDamage()
{
    if (!m_list->isFilling() && QApplication::activeModalWidget() == nullptr) m_databases->lookForDamage();
}

/// Shows again what is shown, after a change other than that of a record.
void frmMain::showAgain()
{
    m_pages->refresh();
    m_undo->refresh();
    m_fileReading->lookForChanges();
}

/// Without a place from an earlier run, takes most of a small screen, and of a large one as much as the lists
/// use.
void frmMain::placeOnScreen()
{
    if (WindowPlace::restore(*this, m_platform.settings)) return;
    const QRect available = screen()->availableGeometry();
    // stands for the height of the frame that the desktop adds around the window
    const int bars = m_commands->tbToolBar->sizeHint().height() + statusBar()->sizeHint().height();
    const QSize wanted(available.width() * 9 / 10, available.height() - bars);
    resize(wanted.boundedTo(largestFirstSize));
    move(available.center().x() - width() / 2, available.top() + (available.height() - bars - height()) / 2);
}

void frmMain::viewAll(RecordKind kind)
{
    m_state.history.addView(m_state.queries.all(kind));
}

void frmMain::viewHome()
{
    m_state.history.addView({ViewKind::Home, std::make_shared<const SQLObject>(), tr("Home Page")});
}

/// Adds a record to which a command for related records led, if the database can be changed.
void frmMain::add(const RecordAddition& addition)
{
    const QString hindrance = m_database.unwritable();
    if (hindrance.isEmpty())
        m_editors->add(addition.kind, addition.preset);
    else
        m_platform.messages.show(hindrance);
}

/// The window's title says what it shows, so that the user finds it among others.
void frmMain::showCaption(const QString& caption, const QString& count)
{
    m_status->showView(readableLine(caption), count);
    QString notice = m_database.takeNotice();
    if (notice.isEmpty()) notice = m_search->notice();
    if (!notice.isEmpty()) m_status->showNotice(notice);
    showTitle();
}

void frmMain::showTitle()
{
    QString title = m_database.titleOf(readableLine(m_state.history.view(m_state.history.current()).Caption));
    // Qt replaces a single `[*]` in a window's title by its mark for unsaved changes
    setWindowTitle(title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

void frmMain::UpdateHistoryList()
{
    m_navigation->listAll(*m_commands->mnuHistory);
}

void frmMain::closeEvent(QCloseEvent* event)
{
    if (m_settings->preferences().asksOnExit &&
        !m_platform.messages.ask(tr("Are you sure you want to exit?"), Question::Loss)) {
        event->ignore();
        return;
    }
    m_list->stop();
    m_fileReading->stop();
    m_browse->save();
    m_list->widths().save(m_platform.settings);
    WindowPlace::save(*this, m_platform.settings);
    m_backups->backUpChanges();
    event->accept();
}

void frmMain::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    // what the user was told of by another window
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        QMetaObject::invokeMethod(this, &frmMain::lookForDamage, Qt::QueuedConnection);
    // an event during the construction finds no list yet
    if (event->type() != QEvent::PaletteChange || centralWidget() == nullptr) return;
    ReadablePalette::apply();
    IconSet::chooseTheme();
    m_list->refreshIcons();
}
