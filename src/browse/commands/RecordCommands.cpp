// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/commands/RecordCommands.h"

#include "browse/commands/CommandState.h"
#include "browse/commands/MainCommands.h"
#include "browse/list/ListPane.h"
#include "browse/list/RecordListView.h"
#include "editors/FileDrop.h"
#include "editors/RecordEditors.h"

#include <QMenu>
#include <QToolBar>

#include <algorithm>

RecordCommands::RecordCommands(const MainCommands& commands, ListPane& list, RecordEditors& editors,
                               QWidget& window)
    : QObject(&window), m_commands(commands), m_list(list), m_editors(editors)
{
    connectAdditions();
    connectList();
    acceptFiles(window);
}

void RecordCommands::connectAdditions()
{
    connect(m_commands.mnuRecordAddNewDocument, &QAction::triggered, this,
            [this] { m_editors.addDocument(); });
    connect(m_commands.mnuRecordAddNewEvent, &QAction::triggered, this, [this] { m_editors.addEvent(); });
    connect(m_commands.mnuRecordAddNewOrganization, &QAction::triggered, this,
            [this] { m_editors.addOrganization(); });
    connect(m_commands.mnuRecordAdd, &QAction::triggered, this, [this] {
        const QWidget* button = m_commands.tbToolBar->widgetForAction(m_commands.mnuRecordAdd);
        m_commands.mnuAddKinds->popup(button->mapToGlobal(button->rect().bottomLeft()));
    });
}

void RecordCommands::connectList()
{
    connect(m_commands.mnuRecordEdit, &QAction::triggered, this, &RecordCommands::edit);
    connect(m_commands.mnuRecordView, &QAction::triggered, this, &RecordCommands::view);
    connect(m_commands.mnuRecordDelete, &QAction::triggered, this, &RecordCommands::remove);
    connect(m_commands.mnuRecordHistory, &QAction::triggered, this, &RecordCommands::showHistory);
    connect(&m_list.view(), &QAbstractItemView::doubleClicked, m_commands.mnuRecordView, &QAction::trigger);
    // only in the list: these keys have another meaning in text fields
    for (QAction* action : {m_commands.mnuRecordView, m_commands.mnuRecordDelete}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        m_list.view().addAction(action);
    }
}

void RecordCommands::acceptFiles(QWidget& window)
{
    auto* drop = new FileDrop(&window);
    connect(drop, &FileDrop::dropped, this, [this](const QString& file) {
        if (m_commands.mnuRecordAddNewDocument->isEnabled()) m_editors.addDocument({}, file);
    });
    connect(drop, &FileDrop::severalDropped, this, [this] { m_editors.refuseSeveralFiles(); });
}

void RecordCommands::edit()
{
    if (const auto record = m_list.selectedRecord()) m_editors.edit(m_list.kind(), *record);
}

void RecordCommands::view()
{
    if (const auto record = m_list.selectedRecord()) m_editors.view(m_list.kind(), *record);
}

void RecordCommands::showHistory()
{
    if (const auto record = m_list.selectedRecord()) m_editors.showHistory(m_list.kind(), *record);
}

void RecordCommands::remove()
{
    std::vector<ListEntry> records;
    for (const SelectedRecord& record : m_list.selectedRecords())
        records.push_back({record.name, record.identifier});
    m_editors.remove(m_list.kind(), records);
}

void RecordCommands::enable(const QString& unwritable, const QString& hindrance)
{
    for (QAction* action : {m_commands.mnuRecordAdd, m_commands.mnuRecordAddNewDocument,
                            m_commands.mnuRecordAddNewEvent, m_commands.mnuRecordAddNewOrganization}) {
        enableUnless(*action, unwritable);
    }
    const std::size_t count = m_list.selectedCount();
    const QString nothing = count > 0 ? hindrance : tr("Select a record first.");
    const QString notOne = count > 1 ? tr("Select a single record.") : nothing;
    const auto first = [](std::initializer_list<QString> reasons) {
        const auto* const found = std::find_if(reasons.begin(), reasons.end(),
                                               [](const QString& reason) { return !reason.isEmpty(); });
        return found == reasons.end() ? QString() : *found;
    };
    enableUnless(*m_commands.mnuRecordView, first({hindrance, notOne}));
    enableUnless(*m_commands.mnuRecordHistory, first({hindrance, notOne}));
    enableUnless(*m_commands.mnuRecordEdit, first({unwritable, hindrance, notOne}));
    enableUnless(*m_commands.mnuRecordDelete, first({unwritable, hindrance, nothing}));
}

int RecordCommands::selectedRow() const
{
    const QList<int> rows = m_list.view().selectedRows();
    return rows.isEmpty() ? -1 : rows.front();
}

void RecordCommands::selectAfterChange(RecordKind kind, qint64 saved, int row)
{
    if (kind != m_list.kind() || (saved >= 0 && m_list.select(saved))) return;
    if (row < 0 || m_list.selectedRecord()) return;
    const int last = m_list.model().rowCount() - 1;
    if (last >= 0) m_list.select(m_list.model().identifier(std::min(row, last)));
}
