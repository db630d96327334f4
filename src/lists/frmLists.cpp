// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/frmLists.h"

#include "backup/AutomaticBackups.h"
#include "data/DatabaseSession.h"
#include "lists/ListViews.h"
#include "lists/ListsView.h"
#include "lists/frmListEntry.h"
#include "lists/frmMergeEntry.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "util/ReadableLine.h"
#include "widgets/DialogButtons.h"
#include "widgets/WaitCursor.h"
#include "widgets/WindowSize.h"

#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize firstSize(860, 560);

} // namespace

frmLists::frmLists(Surroundings surroundings, QWidget* parent)
    : QDialog(parent), m_at(std::move(surroundings)), m_store(m_at.session, m_at.platform.clock)
{
    setObjectName(QStringLiteral("frmLists"));
    setWindowTitle(tr("Lists"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
    makeLists();
    auto* buttons = new QVBoxLayout;
    makeButtons(*buttons);
    layOut(buttons);
    WindowSize::restore(*this, m_at.platform.settings, firstSize);
}

void frmLists::makeLists()
{
    lstLists = new QListWidget(this);
    lstLists->setObjectName(QStringLiteral("lstLists"));
    lstLists->setAccessibleName(tr("Lists"));
    for (const ListKind each : listKinds)
        lstLists->addItem(listTitle(each));
    lstLists->setFixedWidth(lstLists->sizeHintForColumn(0) + lstLists->sizeHintForRow(0) * 2);
    m_entries = new ListsView(this);
    m_entries->setMarker(m_at.marker);
    lblOutcome = DialogButtons::outcome(*this);
    connect(lstLists, &QListWidget::currentRowChanged, this, [this] {
        tell({});
        readList();
    });
    connect(m_entries, &ListsView::selectionChanged, this, &frmLists::enableButtons);
    connect(m_entries, &ListsView::activated, this, [this] { cmdRename->click(); });
}

QPushButton* frmLists::makeButton(QVBoxLayout& column, const char* name, const QString& text,
                                  const QString& toolTip, void (frmLists::*command)())
{
    QPushButton* button = DialogButtons::command(*this, name, text, toolTip);
    column.addWidget(button);
    connect(button, &QPushButton::clicked, this, command);
    return button;
}

void frmLists::makeButtons(QVBoxLayout& column)
{
    cmdAdd = makeButton(column, "cmdAdd", tr("&Add…"), tr("Adds an entry to the list"), &frmLists::addEntry);
    cmdRename = makeButton(column, "cmdRename", tr("&Rename…"),
                           tr("Gives the selected entry another name, and a city another position"),
                           &frmLists::renameEntry);
    cmdMerge = makeButton(column, "cmdMerge", tr("&Merge…"),
                          tr("Lets all that uses the selected entry use another one"), &frmLists::mergeEntry);
    cmdDelete = makeButton(column, "cmdDelete", tr("&Delete…"), tr("Deletes the selected entry"),
                           &frmLists::removeEntry);
    column.addSpacing(column.spacing() * 2);
    cmdShowRecords = makeButton(column, "cmdShowRecords", tr("&Show Records"),
                                tr("Shows the records that use the selected entry"), &frmLists::showRecords);
    m_users = new QMenu(this);
    m_users->setObjectName(QStringLiteral("mnuUsers"));
    column.addStretch();
}

void frmLists::layOut(QVBoxLayout* buttons)
{
    auto* caption = new QLabel(tr("&List:"), this);
    caption->setBuddy(lstLists);
    auto* lists = new QVBoxLayout;
    lists->addWidget(caption);
    lists->addWidget(lstLists);
    auto* top = new QHBoxLayout;
    top->addLayout(lists);
    top->addWidget(m_entries, 1);
    top->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(DialogButtons::closingRow(*this, *lblOutcome));
}

void frmLists::showLists()
{
    lstLists->setCurrentRow(0);
    m_entries->setFocus();
    exec();
}

ListKind frmLists::list() const
{
    return listKinds.at(static_cast<std::size_t>(std::max(lstLists->currentRow(), 0)));
}

/// Shows the entries as they are now. A list that cannot be read shows its message and no entries.
void frmLists::readList(qint64 selected)
{
    m_rows.clear();
    runProcedure(m_at.platform.messages, QStringLiteral("showLists"), [this] {
        const WaitCursor wait;
        m_rows = m_store.read(list());
    });
    m_entries->setRows(list(), m_rows);
    if (selected > 0) m_entries->select(selected);
    enableButtons();
}

void frmLists::enableButtons()
{
    const LookupRow* row = m_entries->selected();
    const auto enable = [](QPushButton* button, const QString& hindrance) {
        button->setEnabled(hindrance.isEmpty());
        button->setToolTip(hindrance.isEmpty() ? button->statusTip()
                                               : button->statusTip() + u'\n' + hindrance);
    };
    const QString unwritable =
        m_at.session.isReadOnly() ? tr("The database can be read, but not changed.") : QString();
    const QString nothing = row == nullptr ? tr("Select an entry first.") : QString();
    const QString reason = unwritable.isEmpty() ? nothing : unwritable;
    const QString used = row == nullptr ? QString() : ListStore::hindranceOfRemoval(list(), *row);
    const QString unused = row != nullptr && row->shown() == 0 ? tr("No record uses this entry.") : nothing;
    enable(cmdAdd, unwritable);
    enable(cmdRename, reason);
    enable(cmdMerge, reason);
    enable(cmdDelete, reason.isEmpty() ? used : reason);
    enable(cmdShowRecords, unused);
}

void frmLists::addEntry()
{
    frmListEntry dialog(m_at.platform, m_at.session, m_at.positions, list(), this);
    const auto added = dialog.addEntry();
    if (!added) return;
    m_hasChanged = true;
    readList(added->key);
    tell(tr("\"%1\" was added.").arg(entryLabel(list(), *added)));
}

void frmLists::renameEntry()
{
    const LookupEntry entry = m_entries->selected()->entry;
    frmListEntry dialog(m_at.platform, m_at.session, m_at.positions, list(), this);
    const auto outcome = dialog.changeEntry(entry);
    if (!outcome) return;
    m_hasChanged = true;
    readList(outcome->key);
    const LookupRow* renamed = m_entries->selected(); // null if the list could not be read again
    const QString name = entryLabel(list(), renamed == nullptr ? entry : renamed->entry);
    tell(withRecords(tr("\"%1\" was changed.").arg(name), outcome->records));
}

void frmLists::mergeEntry()
{
    const LookupRow from = *m_entries->selected();
    std::vector<LookupRow> others;
    for (const LookupRow& each : m_rows) {
        const bool isOfType =
            list() != ListKind::OrganizationSubTypes || each.entry.typeId == from.entry.typeId;
        if (each.entry.key != from.entry.key && isOfType) others.push_back(each);
    }
    const QString label = entryLabel(list(), from.entry);
    if (others.empty()) {
        m_at.platform.messages.show(tr("There is no other entry to merge \"%1\" into.").arg(label));
        return;
    }
    const auto into =
        frmMergeEntry(m_at.platform, m_at.marker, this).choose(list(), from.entry, std::move(others));
    if (!into) return;
    const auto target = std::find_if(m_rows.begin(), m_rows.end(),
                                     [&](const LookupRow& row) { return row.entry.key == *into; });
    const QString name = entryLabel(list(), target->entry);
    if (!m_at.platform.messages.ask(tr("Are you sure you want to merge \"%1\" into \"%2\"?").arg(label, name),
                                    Question::Loss)) {
        return;
    }
    AutomaticBackups(m_at.platform, m_at.session.fileName(), m_at.folder).beforeChange(from.records());
    ListOutcome outcome;
    if (!write("mergeEntries", [&] { return outcome = m_store.merge(list(), from.entry.key, *into); }))
        return;
    tell(withRecords(tr("\"%1\" was merged into \"%2\".").arg(label, name), outcome.records));
}

void frmLists::removeEntry()
{
    const LookupEntry entry = m_entries->selected()->entry;
    const QString label = entryLabel(list(), entry);
    if (!m_at.platform.messages.ask(tr("Are you sure you want to delete \"%1\"?").arg(label),
                                    Question::Loss)) {
        return;
    }
    if (write("deleteEntry", [&] { return m_store.remove(list(), entry.key); }))
        tell(tr("\"%1\" was deleted.").arg(label));
}

/// Writes a change and shows the list again; a problem and a failure show their message.
bool frmLists::write(const char* procedure, const std::function<ListOutcome()>& change)
{
    ListOutcome outcome;
    const bool worked = runProcedure(m_at.platform.messages, QString::fromLatin1(procedure), [&] {
        const WaitCursor wait;
        outcome = change();
    });
    if (worked && !outcome.problem.isEmpty()) m_at.platform.messages.show(outcome.problem);
    const bool isWritten = worked && outcome.problem.isEmpty();
    m_hasChanged = m_hasChanged || isWritten;
    readList(outcome.key);
    return isWritten;
}

/// Adds how many records changed to what is told of a change.
QString frmLists::withRecords(const QString& text, qint64 records)
{
    if (records == 0) return text;
    const int count = static_cast<int>(records);
    return text + u' ' +
           (count == 1 ? tr("1 record was changed.") : tr("%n records were changed.", nullptr, count));
}

void frmLists::tell(const QString& text)
{
    lblOutcome->setText(readableLine(text));
}

/// Shows the records at once if they are of one kind; else lets the user choose the kind.
void frmLists::showRecords()
{
    const LookupRow row = *m_entries->selected();
    const auto& references = listTable(list()).references;
    m_users->clear();
    for (std::size_t i = 0; i < references.size(); ++i) {
        const int count = static_cast<int>(row.uses[i].shown);
        if (count == 0) continue;
        const ListReference& reference = references[i];
        QString text;
        switch (reference.kind) {
        case RecordKind::Document:
            text = count == 1 ? tr("1 &Document") : tr("%n &Documents", nullptr, count);
            break;
        case RecordKind::Event:
            text = count == 1 ? tr("1 &Event") : tr("%n &Events", nullptr, count);
            break;
        case RecordKind::Organization:
            text = count == 1 ? tr("1 &Organization") : tr("%n &Organizations", nullptr, count);
            break;
        }
        QAction* action = m_users->addAction(text, this, [this, &reference] { showUsers(reference); });
        action->setObjectName(QStringLiteral("show") + recordNames(reference.kind).record);
    }
    if (m_users->actions().size() == 1) {
        m_users->actions().constFirst()->trigger();
    } else {
        m_users->popup(cmdShowRecords->mapToGlobal(cmdShowRecords->rect().bottomLeft()));
    }
}

void frmLists::showUsers(const ListReference& reference)
{
    const bool worked = runProcedure(m_at.platform.messages, QStringLiteral("showRecords"), [&] {
        clsView view = viewOfUsers(list(), reference, m_entries->selected()->entry, m_at.queries);
        // read once before it is shown: if that fails, the current view stays
        (void)m_at.session.read(view.SQL->sqlStr());
        m_wantedView = std::move(view);
    });
    if (worked) accept();
}

void frmLists::done(int result)
{
    WindowSize::save(*this, m_at.platform.settings);
    QDialog::done(result);
}
