#include "browse/window/frmMain.h"

#include "browse/history/HistoryNavigation.h"
#include "browse/list/ListPane.h"
#include "browse/list/RecordListView.h"
#include "browse/window/BrowsePage.h"
#include "browse/window/CommandState.h"
#include "browse/window/GraphicViews.h"
#include "browse/window/HomePage.h"
#include "browse/window/ListMenus.h"
#include "browse/window/MainCommands.h"
#include "browse/window/OpenCommand.h"
#include "browse/window/RecordCommands.h"
#include "browse/window/RelatedCommands.h"
#include "browse/window/StatusLine.h"
#include "editors/DialogRecordPicker.h"
#include "editors/RecordEditors.h"
#include "help/HelpCommands.h"
#include "opening/DatabaseOpener.h"
#include "platform/FileDialogs.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "search/SearchCommands.h"
#include "search/SearchResultsPage.h"
#include "state/ProgramState.h"
#include "timeline/TimelinePanel.h"
#include "util/ReadableLine.h"
#include "widgets/IconSet.h"
#include "widgets/ReadablePalette.h"
#include "widgets/WaitCursor.h"
#include "widgets/WindowPlace.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QMenu>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>

#include <algorithm>

namespace {

constexpr QSize largestFirstSize(1600, 1000);

} // namespace

frmMain::frmMain(const Platform& platform, ProgramState& state)
    : m_platform(platform),
      m_state(state),
      m_commands(new MainCommands(*this)),
      m_help(new HelpCommands(*this, *m_commands->tbToolBar, platform, state)),
      m_status(new StatusLine(*this)),
      m_pages(new QStackedWidget(this)),
      m_home(new HomePage(this)),
      m_list(new ListPane(state.session, state.history, state.folder.folderPath(ProgramFolders::documents),
                          this)),
      m_browse(new BrowsePage(m_list, platform.settings, this)),
      m_picker(std::make_unique<DialogRecordPicker>(platform, state.session)),
      m_search(new SearchCommands(platform, state, *m_picker, *this)),
      m_related(new RelatedCommands(platform, state, *m_list, this)),
      m_open(std::make_unique<OpenCommand>(platform, state, *m_list)),
      m_editors(new RecordEditors(platform, state.session, state.folder, *this)),
      m_graphics(new GraphicViews(platform, state, *m_list, *m_browse, *this))
{
    setObjectName(QStringLiteral("frmMain"));
    m_pages->addWidget(m_home);
    m_pages->addWidget(m_browse);
    m_search->attachTo(m_list->view());
    setCentralWidget(m_pages);
    connectCommands();
    makeRecordCommands();
    m_state.history.setPresenter(this);
}

frmMain::~frmMain()
{
    m_state.history.setPresenter(nullptr);
}

void frmMain::connectCommands()
{
    const auto on = [this](QAction* action, auto&& handler) {
        connect(action, &QAction::triggered, this, std::forward<decltype(handler)>(handler));
    };
    on(m_commands->mnuViewDocuments, [this] { viewAll(ViewKind::Documents); });
    on(m_commands->mnuViewEvents, [this] { viewAll(ViewKind::Events); });
    on(m_commands->mnuViewOrganizations, [this] { viewAll(ViewKind::Organizations); });
    on(m_commands->mnuSearchShowAll, [this] { viewAll(m_state.history.currentKind()); });
    on(m_commands->mnuSearchKeyword, [this] { m_search->openKeywordSearch(); });
    on(m_commands->mnuSearchAdvanced,
       [this] { m_search->openAdvancedSearch(m_state.history.currentKind()); });
    on(m_commands->mnuViewRefresh, [this] { refresh(); });
    on(m_commands->mnuViewGraphicRight, [this] { m_browse->setSide(Qt::Horizontal); });
    on(m_commands->mnuViewGraphicBelow, [this] { m_browse->setSide(Qt::Vertical); });
    on(m_commands->mnuNavigateBack, [this] {
        if (!m_state.history.goBack()) m_platform.messages.beep();
    });
    on(m_commands->mnuNavigateForward, [this] {
        if (!m_state.history.goForward()) m_platform.messages.beep();
    });
    on(m_commands->mnuNavigateHome, [this] { viewAll(ViewKind::Home); });
    on(m_commands->mnuOpenDatabase, [this] { openDatabase(); });
    on(m_commands->mnuNavigateExit, [this] { close(); });
    on(m_commands->mnuRecordCopy, [this] { m_list->view().copySelection(); });
    connect(m_commands->mnuNavigate, &QMenu::aboutToShow, this, &frmMain::UpdateHistoryList);
    connect(m_home, &HomePage::chosen, this, &frmMain::pressHomeButton);
    connect(m_search, &SearchCommands::recordChosen, m_editors, [this](ViewKind kind, qint64 record) {
        if (const auto records = recordKindOf(kind)) m_editors->view(*records, record);
    });
    new HistoryNavigation(m_state.history, *m_commands->mnuNavigateBack, *m_commands->mnuNavigateForward,
                          *m_commands->tbToolBar, *this);
}

/// The commands that act on the rows of a list, in the menu and in the pop-up menu of each kind.
void frmMain::makeRecordCommands()
{
    m_related->addTo(*m_commands->mnuRecordRelated);
    auto* menus = new ListMenus(*m_commands, *m_related, *this);
    connect(&m_list->view(), &QWidget::customContextMenuRequested, this,
            [this, menus](const QPoint& position) {
                menus->popUp(m_list->kind(), m_list->view().viewport()->mapToGlobal(position));
            });
    connect(m_commands->mnuRecordOpen, &QAction::triggered, this, [this] { m_open->run(); });
    m_records = new RecordCommands(*m_commands, *m_list, *m_editors, *this);
    connect(m_list, &ListPane::selectionChanged, this, &frmMain::enableCommands);
    connect(m_related, &RelatedCommands::additionWanted, m_editors, [this](const RecordAddition& addition) {
        const QString hindrance = unwritable();
        if (hindrance.isEmpty())
            m_editors->add(recordKindOf(addition.kind).value(), addition.preset);
        else
            m_platform.messages.show(hindrance);
    });
    connect(m_editors, &RecordEditors::eventSaved, this, [this](const std::optional<QDateTime>& start) {
        m_graphics->timeline().updateTimeline(start ? std::optional(momentOf(start->date(), start->time()))
                                                    : std::nullopt);
    });
    connect(m_editors, &RecordEditors::changed, this, [this](RecordKind kind, qint64 saved) {
        refresh();
        m_records->selectAfterChange(kind, saved);
    });
    connect(m_editors, &RecordEditors::fileAsked, this,
            [this](RecordKind kind, qint64 record) { m_open->openRecord(viewOf(kind), record); });
    connect(m_editors, &RecordEditors::saved, m_status,
            [this](RecordKind kind, const QString& name) { m_status->showSaved(viewOf(kind), name); });
    connect(&m_graphics->timeline(), &TimelinePanel::eventOpened, this,
            [this](qint64 event) { m_editors->view(RecordKind::Event, event); });
    connect(&m_graphics->timeline(), &TimelinePanel::eventMenuRequested, this,
            [menus](const QPoint& position) { menus->popUp(ViewKind::Events, position); });
}

void frmMain::load(bool hasProgramFolder)
{
    runProcedure(m_platform.messages, QStringLiteral("Form_Load"), [&] {
        if (hasProgramFolder) DatabaseOpener(m_platform, m_state).openNamed();
    });
    showDatabaseName();
    placeOnScreen();
    m_list->restoreWidths(m_platform.settings);
    m_graphics->mainLoad();
    viewAll(ViewKind::Home);
}

/// Lets the user choose another database, and begins afresh with it.
void frmMain::openDatabase()
{
    const QString file = m_platform.fileDialogs.openFile(
        tr("Open Database"), tr("Databases") +
                                 QStringLiteral(" (*.mdb *.accdb *.sqlite)|*.mdb *.accdb *.sqlite|") +
                                 tr("All Files") + QStringLiteral(" (*.*)| *.*"));
    if (file.isEmpty()) return;
    m_list->stop();
    const QString before = m_state.session.fileName();
    bool opened = false;
    runProcedure(m_platform.messages, QStringLiteral("openDatabase"),
                 [&] { opened = DatabaseOpener(m_platform, m_state).openChosen(file); });
    // a database that can only be read is open after its message
    if (!opened && m_state.session.fileName() == before) return;
    m_state.history.clear();
    m_list->forget();
    m_graphics->mainLoad();
    showDatabaseName();
    viewAll(ViewKind::Home);
}

void frmMain::showDatabaseName()
{
    const QString file = m_state.session.fileName();
    m_home->setSubtitle(file.isEmpty() ? tr("No database is open. Navigate, Open Database… opens one.")
                                       : tr("Database: %1").arg(QFileInfo(file).completeBaseName()));
}

/// The window takes most of a small screen, and no more of a large one than its lists can use.
void frmMain::placeOnScreen()
{
    if (WindowPlace::restore(*this, m_platform.settings)) return;
    const QRect available = screen()->availableGeometry();
    // the frame around the window, which the desktop adds, is about as high as these two
    const int bars = m_commands->tbToolBar->sizeHint().height() + statusBar()->sizeHint().height();
    const QSize wanted(available.width() * 9 / 10, available.height() - bars);
    resize(wanted.boundedTo(largestFirstSize));
    move(available.center().x() - width() / 2, available.top() + (available.height() - bars - height()) / 2);
}

void frmMain::viewAll(ViewKind kind)
{
    const StandardQueries& queries = m_state.queries;
    switch (kind) {
    case ViewKind::Documents:
        m_state.history.addView({kind, queries.documents, queries.documentsTitle});
        break;
    case ViewKind::Events:
        m_state.history.addView({kind, queries.events, queries.eventsTitle});
        break;
    case ViewKind::Organizations:
        m_state.history.addView({kind, queries.organizations, queries.organizationsTitle});
        break;
    case ViewKind::Home:
        m_state.history.addView({kind, std::make_shared<const SQLObject>(), tr("Home Page")});
        break;
    case ViewKind::SearchResults:
        break;
    }
}

void frmMain::pressHomeButton(int button)
{
    constexpr int searchButton = 3;
    constexpr int helpButton = 4;
    switch (button) {
    case searchButton:
        m_search->openKeywordSearch();
        break;
    case helpButton:
        m_help->mnuHelpContents->trigger();
        break;
    default:
        viewAll(static_cast<ViewKind>(button));
    }
}

void frmMain::showDocuments(const SharedQuery& query, const QString& caption)
{
    showList(ViewKind::Documents, QStringLiteral("showDocuments"), query, caption);
}

void frmMain::showEvents(const SharedQuery& query, const QString& caption)
{
    showList(ViewKind::Events, QStringLiteral("showEvents"), query, caption);
}

void frmMain::showOrganizations(const SharedQuery& query, const QString& caption)
{
    showList(ViewKind::Organizations, QStringLiteral("showOrganizations"), query, caption);
}

void frmMain::showList(ViewKind kind, const QString& procedure, const SharedQuery& query,
                       const QString& caption)
{
    m_pages->setCurrentWidget(m_browse);
    m_browse->showKind(kind);
    enableCommands();
    m_search->beginList();
    bool stayed = true;
    const bool isListed = runProcedure(m_platform.messages, procedure, [&] {
        const WaitCursor wait;
        m_state.history.setCurrentQuery(m_search->queryFor(query));
        m_graphics->drawBeforeList(kind);
        stayed = m_list->fill(kind, m_state.history.current(), m_state.history.currentQuery()->sqlStr());
    });
    if (!stayed) return;
    showCaption(caption, RecordList::countText(kind, m_list->count()));
    m_list->setFocus();
    m_search->finishList(m_list->count(), isListed);
    m_graphics->drawAfterList(kind, isListed);
}

/// The window is named after what it shows, so that it is found among others on the desktop.
void frmMain::showCaption(const QString& caption, const QString& count)
{
    const QString line = readableLine(caption);
    m_status->showView(line, count);
    QString title = line;
    const QString file = QFileInfo(m_state.session.fileName()).fileName();
    if (!file.isEmpty()) title += QStringLiteral(" - ") + file;
    if (m_state.session.isReadOnly()) title = tr("%1 [read-only]").arg(title);
    // a window takes three of these signs together for the place of a mark of its own
    setWindowTitle(title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

void frmMain::showHome()
{
    m_list->stop();
    m_pages->setCurrentWidget(m_home);
    enableCommands();
    showCaption(m_state.history.view(m_state.history.current()).Caption, QString());
}

void frmMain::showSearchResults()
{
    m_list->stop();
    if (m_pages->indexOf(m_search->page()) < 0) m_pages->addWidget(m_search->page());
    m_pages->setCurrentWidget(m_search->page());
    enableCommands();
    showCaption(m_state.history.view(m_state.history.current()).Caption, QString());
    m_search->showResults();
}

void frmMain::refresh()
{
    const clsView view = m_state.history.view(m_state.history.current());
    switch (view.viewIndex) {
    case ViewKind::Documents:
        showDocuments(view.SQL, view.Caption);
        break;
    case ViewKind::Events:
        showEvents(view.SQL, view.Caption);
        break;
    case ViewKind::Organizations:
        showOrganizations(view.SQL, view.Caption);
        break;
    case ViewKind::SearchResults:
        showSearchResults();
        break;
    case ViewKind::Home:
        break;
    }
}

void frmMain::enableCommands()
{
    const bool showsList = m_pages->currentWidget() == m_browse;
    const QString noList = showsList ? QString() : tr("This page has no list of records.");
    for (QAction* action :
         {m_commands->mnuViewRefresh, m_commands->mnuSearchShowAll, m_commands->mnuSearchAdvanced,
          m_commands->mnuViewGraphicRight, m_commands->mnuViewGraphicBelow}) {
        enableUnless(*action, noList);
    }
    const bool isSelected = showsList && m_list->selectedCount() > 0;
    const QString nothingSelected = isSelected ? QString() : tr("Select a record first.");
    enableUnless(*m_commands->mnuRecordCopy, showsList ? nothingSelected : noList);
    enableUnless(*m_commands->mnuRecordOpen, showsList ? m_open->hindrance() : noList);
    m_related->enable(noList);
    m_records->enable(unwritable(), noList);
    m_status->showSelected(showsList ? m_list->selectedCount() : 0);
    m_commands->mnuViewGraphicRight->setChecked(m_browse->side() == Qt::Horizontal);
    m_commands->mnuViewGraphicBelow->setChecked(m_browse->side() == Qt::Vertical);
}

/// What is in the way of changing the database; empty if nothing is.
QString frmMain::unwritable() const
{
    if (!m_state.session.isOpen()) return tr("No database is open.");
    return m_state.session.isReadOnly() ? tr("The database can be read, but not changed.") : QString();
}

void frmMain::UpdateHistoryList()
{
    QMenu& menu = *m_commands->mnuHistory;
    menu.clear();
    for (std::size_t position = 1; position <= m_state.history.count(); ++position) {
        QAction* entry = HistoryNavigation::addCaption(menu, m_state.history.view(position).Caption);
        connect(entry, &QAction::triggered, this, [this, position] { m_state.history.showView(position); });
        entry->setObjectName(QStringLiteral("mnuHistoryList(%1)").arg(position - 1));
        entry->setCheckable(true);
        entry->setChecked(position == m_state.history.current());
    }
    menu.setEnabled(m_state.history.count() > 0);
}

void frmMain::closeEvent(QCloseEvent* event)
{
    if (!m_platform.messages.ask(tr("Are you sure you want to exit?"), Question::Loss)) {
        event->ignore();
        return;
    }
    m_list->stop();
    m_browse->save();
    m_list->saveWidths(m_platform.settings);
    WindowPlace::save(*this, m_platform.settings);
    event->accept();
}

void frmMain::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || m_list == nullptr) return;
    ReadablePalette::apply();
    IconSet::chooseTheme();
    m_list->refreshIcons();
}
