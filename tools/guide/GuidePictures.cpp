// SPDX-License-Identifier: GPL-3.0-or-later

#include "GuidePictures.h"

#include "Screen.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTimer>

#include <stdexcept>

namespace {

constexpr int lookMilliseconds = 50;
constexpr int patienceMilliseconds = 5000;
constexpr int pictureMilliseconds = 3000; ///< in which a program of its own draws a page
constexpr int longestReading = 100;       ///< looks at a reading of the files that has not ended
constexpr QSize editorSize(1000, 700);
constexpr QSize historySize(900, 480);
constexpr int wideWindow = 1400;

} // namespace

using namespace Screen;

QStringList GuidePictures::takeAll()
{
    using Station = void (GuidePictures::*)();
    QStringList failures;
    for (const Station station :
         {&GuidePictures::showLists, &GuidePictures::showFilter, &GuidePictures::showDetails,
          &GuidePictures::showGraphics, &GuidePictures::showRowMenu, &GuidePictures::showNavigateMenu,
          &GuidePictures::showSearch, &GuidePictures::showSearchInFiles, &GuidePictures::showAdvancedSearch,
          &GuidePictures::showEditors, &GuidePictures::showHistory, &GuidePictures::showExport,
          &GuidePictures::showCheck, &GuidePictures::showCollections, &GuidePictures::showAbout}) {
        try {
            (this->*station)();
        } catch (const std::exception& failure) {
            failures << QString::fromUtf8(failure.what());
        }
    }
    return failures;
}

/// Waits until the files were read, which the status line would else tell of in every picture.
void GuidePictures::awaitReading()
{
    const auto& reading = part<QWidget>(m_window, "pnlReading");
    settle(patienceMilliseconds);
    for (int look = 0; reading.isVisible(); ++look) {
        if (look == longestReading) throw std::runtime_error("the files are still being read");
        settle();
    }
}

void GuidePictures::showLists()
{
    awaitReading();
    save(m_window.grab(), "home");
    trigger("mnuViewDocuments");
    select(QStringLiteral("Tropical Cyclone Report: Hurricane Katrina"));
    save(m_window.grab(), "documents");

    // rows with icons that tell the kind of a file, and that one of them is on a disc
    select(QStringLiteral("Turn Around"));
    QTreeView& rows = list();
    const QRect current = rows.visualRect(rows.currentIndex());
    rows.clearSelection();
    settle();
    const QPoint top(0, rows.header()->height() + current.top() - 4 * current.height());
    save(rows.grab(QRect(top, QSize(rows.width(), 9 * current.height()))), "files");
}

void GuidePictures::showFilter()
{
    trigger("mnuViewDocuments");
    auto& words = part<QLineEdit>(m_window, "txtFilter");
    trigger("mnuSearchFilter");
    words.insert(QStringLiteral("hurricane -report"));
    settle();
    save(m_window.grab(), "filter");
    words.clear();
    list().setFocus();
}

void GuidePictures::showDetails()
{
    const QSize size = m_window.size();
    m_window.resize(wideWindow, size.height());
    trigger("mnuViewDocuments");
    trigger("mnuViewDetails");
    select(QStringLiteral("Tropical Cyclone Report: Hurricane Katrina"));
    settle(pictureMilliseconds);
    save(m_window.grab(), "details");
    trigger("mnuViewDetails");
    m_window.resize(size);
}

void GuidePictures::showGraphics()
{
    // wide enough for every type in the chart
    const QSize size = m_window.size();
    m_window.resize(wideWindow, size.height());
    settle();
    save(part<QWidget>(m_window, "ChartPane").grab(), "chart");
    m_window.resize(size);
    trigger("chartHorizontal");
    trigger("chartByNumber");
    save(part<QWidget>(m_window, "ChartPane").grab(), "chart-horizontal");
    trigger("chartHorizontal");
    trigger("chartByNumber");

    trigger("mnuViewEvents");
    for (int zoom = 0; zoom < 7; ++zoom)
        press(m_window, "ZoomOut");
    select(QStringLiteral("Hurricane Katrina"));
    save(m_window.grab(), "timeline");
    trigger("mnuViewOrganizations");
    select(QStringLiteral("Louisiana Governor"));
    save(m_window.grab(), "map");
    trigger("mapGroup");
    trigger("mapFullExtent");
    save(part<QWidget>(m_window, "MapPane").grab(), "map-groups");
}

void GuidePictures::showRowMenu()
{
    trigger("mnuViewDocuments");
    select(QStringLiteral("Tropical Cyclone Report: Hurricane Katrina"));
    QTreeView& rows = list();
    const QPoint at = rows.visualRect(rows.currentIndex()).center();
    bool isOver = false;
    bool isTaken = false;
    QTimer::singleShot(settleMilliseconds, &m_window, [&] {
        isOver = true;
        QWidget* menu = QApplication::activePopupWidget();
        if (menu == nullptr) return;
        save(withPopup(m_window, *menu), "links");
        menu->close();
        isTaken = true;
    });
    Q_EMIT rows.customContextMenuRequested(at);
    // the menu may be open although the signal's handler has returned
    while (!isOver)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    if (!isTaken) throw std::runtime_error("the row has no menu");
}

void GuidePictures::showNavigateMenu()
{
    auto& menu = part<QMenu>(m_window, "mnuNavigate");
    menu.popup(m_window.mapToGlobal(QPoint()));
    menu.setActiveAction(&part<QAction>(m_window, "mnuBackUp"));
    settle();
    save(menu.grab(), "back-up");
    menu.close();
}

void GuidePictures::showSearch()
{
    trigger("mnuNavigateHome");
    inDialog(
        "frmSearch", [this] { trigger("mnuSearchKeyword"); },
        [this](QWidget& dialog) {
            part<QLineEdit>(dialog, "txtKeywords").setText(QStringLiteral("hurricane"));
            settle();
            save(dialog.grab(), "search");
            press(dialog, "cmdGO");
        });
    settle();
    save(m_window.grab(), "search-results");
}

void GuidePictures::showSearchInFiles()
{
    trigger("mnuViewDocuments");
    inDialog(
        "frmSearch", [this] { trigger("mnuSearchKeyword"); },
        [this](QWidget& dialog) {
            part<QLineEdit>(dialog, "txtKeywords").setText(QStringLiteral("levee"));
            part<QAbstractButton>(dialog, "chkFiles").setChecked(true);
            press(dialog, "cmdGO");
        });
    settle();
    save(m_window.grab(), "in-files");
}

void GuidePictures::showAdvancedSearch()
{
    trigger("mnuViewEvents");
    const auto openAdvanced = [this](QWidget& dialog) {
        auto& link = part<QWidget>(dialog, "lblAdvancedSearch");
        inDialog(
            "frmAdvSearch", [&link] { click(link, Qt::LeftButton, link.rect().center()); },
            [this](QWidget& form) {
                part<QAbstractButton>(form, "chkEventVenues").setChecked(true);
                tick(part<QAbstractItemView>(form, "lvEventVenues"),
                     {QStringLiteral("Coast"), QStringLiteral("City")});
                settle();
                save(form.grab(), "advanced-search");
            });
    };
    inDialog(
        "frmSearch", [this] { trigger("mnuSearchKeyword"); }, openAdvanced);
}

void GuidePictures::showEditors()
{
    trigger("mnuViewDocuments");
    select(QStringLiteral("Tropical Cyclone Report: Hurricane Katrina"));
    inDialog(
        "frmDocument", [this] { trigger("mnuRecordEdit"); },
        [this](QWidget& editor) {
            // as on a screen that has room for it
            editor.resize(editorSize);
            settle();
            save(editor.grab(), "document-editor");
            inDialog(
                "frmPicList", [this, &editor] { press(editor, "cmdAddDocType"); },
                [this](QWidget& pickList) { save(pickList.grab(), "pick-list"); });
        });
}

/// Changes an event, shows its history and takes the change back.
void GuidePictures::showHistory()
{
    trigger("mnuViewEvents");
    select(QStringLiteral("Galveston hurricane of 1900"));
    inDialog(
        "frmEvent", [this] { trigger("mnuRecordEdit"); },
        [this](QWidget& editor) {
            auto& description = part<QPlainTextEdit>(editor, "rtbEventDescription");
            const QString text =
                description.toPlainText().replace(QStringLiteral("At least 8,000 people died."),
                                                  QStringLiteral("Some 6,000 to 12,000 people died."));
            description.selectAll();
            description.insertPlainText(text);
            part<QLineEdit>(editor, "dtpEndTime").setText(QStringLiteral("06:00"));
            tick(part<QAbstractItemView>(editor, "lvVenues"), {QStringLiteral("Harbor")});
            press(editor, "cmdOK");
        });
    select(QStringLiteral("Galveston hurricane of 1900"));
    inDialog(
        "frmHistory", [this] { trigger("mnuRecordHistory"); },
        [this](QWidget& history) {
            history.resize(historySize);
            settle();
            save(history.grab(), "history");
        });
    trigger("mnuRecordUndo");
}

void GuidePictures::showExport()
{
    trigger("mnuViewDocuments");
    inDialog(
        "frmExport", [this] { trigger("mnuRecordExport"); },
        [this](QWidget& window) {
            settle();
            save(window.grab(), "export");
        });
}

/// The sample names files of two documents that are not there.
void GuidePictures::showCheck()
{
    inDialog(
        "frmCheck", [this] { trigger("mnuCheckCollection"); },
        [this](QWidget& check) {
            check.resize(historySize);
            auto& checks = part<QTreeView>(check, "tvwChecks");
            const QAbstractItemModel& model = *checks.model();
            // a finding of the sample, so that the button tells what can be done about it
            const QModelIndexList found =
                model.match(model.index(0, 0), Qt::DisplayRole, QStringLiteral("Turn Around"), 1,
                            Qt::MatchContains | Qt::MatchRecursive);
            if (!found.isEmpty()) checks.setCurrentIndex(found.front());
            settle();
            save(check.grab(), "check");
        });
}

void GuidePictures::showCollections()
{
    inDialog(
        "frmNewDatabase", [this] { trigger("mnuNewDatabase"); },
        [this](QWidget& window) {
            part<QLineEdit>(window, "txtName").setText(QStringLiteral("Bridges"));
            settle();
            save(window.grab(), "new-database");
        });
    inDialog(
        "frmSettings", [this] { trigger("mnuNavigateSettings"); },
        [this](QWidget& settings) { save(settings.grab(), "settings"); });
    inDialog(
        "frmLists", [this] { trigger("mnuRecordLists"); },
        [this](QWidget& lists) { save(lists.grab(), "lists"); });
}

void GuidePictures::showAbout()
{
    inDialog(
        "frmAbout", [this] { trigger("mnuHelpAbout"); },
        [this](QWidget& about) { save(about.grab(), "about"); });
}

template <typename Widget>
Widget& GuidePictures::part(QWidget& of, const char* name)
{
    auto* const found = of.findChild<Widget*>(QString::fromUtf8(name));
    if (found == nullptr) throw std::runtime_error(std::string("there is no ") + name);
    return *found;
}

void GuidePictures::trigger(const char* action)
{
    auto* const found = m_window.findChild<QAction*>(QString::fromUtf8(action));
    if (found == nullptr) throw std::runtime_error(std::string("there is no ") + action);
    if (!found->isEnabled()) throw std::runtime_error(std::string(action) + " is disabled");
    found->trigger();
}

void GuidePictures::press(QWidget& of, const char* button)
{
    auto& found = part<QAbstractButton>(of, button);
    if (found.isEnabled()) found.click();
}

/// Selects the first row whose name begins so, and shows it in the middle of the list.
void GuidePictures::select(const QString& beginning)
{
    settle();
    const QAbstractItemModel& model = *list().model();
    const QModelIndexList found = model.match(model.index(0, 0), Qt::DisplayRole, beginning, 1,
                                              Qt::MatchStartsWith | Qt::MatchCaseSensitive);
    if (found.isEmpty()) throw std::runtime_error("no row begins with " + beginning.toStdString());
    list().setCurrentIndex(found.front());
    list().scrollTo(found.front(), QAbstractItemView::PositionAtCenter);
    settle();
}

/// Opens a dialog, visits it when it is shown, and closes it again. Fails if none of that name appears.
void GuidePictures::inDialog(const char* name, const std::function<void()>& opener, const Visit& visit)
{
    const QString dialogName = QString::fromUtf8(name);
    QString failure = QStringLiteral("%1 did not open").arg(dialogName);
    bool isOver = false;
    QTimer look;
    int waited = 0;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        QWidget* dialog = visibleDialog(dialogName);
        waited += lookMilliseconds;
        if (dialog == nullptr && waited < patienceMilliseconds) return;
        look.stop();
        if (dialog != nullptr) {
            failure = visitAndClose(*dialog, visit);
        } else if (QWidget* other = QApplication::activeModalWidget()) {
            other->close();
        }
        isOver = true;
    });
    look.start(lookMilliseconds);
    opener();
    // a dialog may be open although the command that opened it has returned
    while (!isOver)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    if (!failure.isEmpty()) throw std::runtime_error(failure.toStdString());
}

QString GuidePictures::visitAndClose(QWidget& dialog, const Visit& visit)
{
    const QPointer<QWidget> open(&dialog);
    QString failure;
    settle();
    try {
        visit(dialog);
    } catch (const std::exception& error) {
        failure = QString::fromUtf8(error.what());
    }
    if (open != nullptr && open->isVisible()) {
        if (auto* left = qobject_cast<QDialog*>(open.data())) left->done(QDialog::Rejected);
    }
    return failure;
}

void GuidePictures::save(const QPixmap& picture, const char* name)
{
    const QString file = QStringLiteral("%1/%2.png").arg(m_folder, QString::fromUtf8(name));
    const QImage image = picture.toImage().convertToFormat(QImage::Format_RGB32);
    if (!image.save(file)) throw std::runtime_error(file.toStdString() + " cannot be written");
}
