// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/DetailsCommand.h"

#include "browse/commands/MainCommands.h"
#include "browse/commands/OpenCommand.h"
#include "browse/list/ListPane.h"
#include "browse/window/BrowsePage.h"
#include "browse/window/ShownView.h"
#include "details/DetailsPane.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "platform/Shell.h"
#include "state/ProgramState.h"
#include "views/ShowOnlyViews.h"
#include "widgets/WaitCursor.h"

#include <QUrl>

using namespace std::chrono_literals;

namespace {

/// A key that is held down repeats itself sooner than that.
constexpr auto repeat = 60ms;
constexpr auto delay = 40ms;

} // namespace

DetailsCommand::DetailsCommand(const Platform& platform, const OpenCommand& open, ShownView& view,
                               BrowsePage& page, const MainCommands& commands, QObject* parent)
    : QObject(parent), m_platform(platform), m_open(open), m_view(view), m_page(page)
{
    m_page.setDetails([this](QWidget* pane) { return makePane(pane); });
    m_pause.setSingleShot(true);
    m_pause.callOnTimeout(this, &DetailsCommand::showSelected);
    connect(commands.mnuViewDetails, &QAction::triggered, this, [this](bool shown) {
        m_page.showDetails(shown);
        showSelected();
    });
    connect(&m_view.list(), &ListPane::selectionChanged, this, [this] {
        if (m_page.showsDetails()) showSoon();
    });
}

/// Shows the selected record once what waits is done: the list comes first. If the selection changes quickly,
/// as under a key that is held down, waits for its end.
void DetailsCommand::showSoon()
{
    const bool isDue = m_pause.isActive() && m_pause.intervalAsDuration() == 0ms;
    const bool isQuick = m_lastChange.isValid() && !m_lastChange.hasExpired(repeat.count());
    m_lastChange.start();
    if (!isDue) m_pause.start(isQuick ? delay : 0ms);
}

QWidget* DetailsCommand::makePane(QWidget* parent)
{
    m_pane = new DetailsPane(m_platform.programs, parent);
    connect(m_pane, &DetailsPane::linkFollowed, this, &DetailsCommand::follow);
    connect(m_pane, &DetailsPane::fileAsked, this, &DetailsCommand::fileAsked);
    return m_pane;
}

void DetailsCommand::showSelected()
{
    if (!m_page.showsDetails() || m_pane == nullptr) return;
    const ListPane& list = m_view.list();
    const std::size_t selected = list.selectedCount();
    if (selected == 1) return showRecord(list.selectedRecords().front());
    // the record that was selected in this view is found again at the end
    if (list.isFilling()) return m_pause.start(delay);
    m_pane->showText(selected == 0 ? tr("Select a record to see its details.")
                                   : tr("%n records are selected.", nullptr, static_cast<int>(selected)));
}

void DetailsCommand::showRecord(const SelectedRecord& record)
{
    const RecordKind kind = m_view.kind();
    try {
        const auto file = m_open.fileInFolder(kind, record);
        m_pane->showRecord({{kind, record.identifier},
                            recordPage(m_view.state().session, kind, record.identifier),
                            OpenCommand::hasFile(kind, record),
                            file.value_or(QString())});
    } catch (const Error& error) {
        m_pane->showText(tr("The record cannot be read: %1").arg(error.description()));
    }
}

void DetailsCommand::follow(const QUrl& address)
{
    const std::optional<LinkedRecord> linked = linkedRecord(address);
    if (!linked) {
        if (!m_platform.shell.open(address))
            m_platform.messages.show(
                tr("There is no program to open this address: %1").arg(address.toString()));
        return;
    }
    std::optional<clsView> view;
    const bool isRead = runProcedure(m_platform.messages, QStringLiteral("showRecord"), [&] {
        const WaitCursor wait;
        ProgramState& state = m_view.state();
        view = ShowOnlyViews(state.session, state.queries).record(linked->kind, linked->identifier);
    });
    if (!isRead) return;
    if (!view) return m_platform.messages.show(tr("This record was deleted."));
    m_view.state().history.addView(*view);
    m_view.list().goTo(linked->identifier);
}
