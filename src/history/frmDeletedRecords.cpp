// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/frmDeletedRecords.h"

#include "data/DatabaseSession.h"
#include "history/DeletedRecordsModel.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "util/ReadableLine.h"
#include "widgets/DialogButtons.h"
#include "widgets/EmptyResultNotice.h"
#include "widgets/LineDelegate.h"
#include "widgets/WaitCursor.h"
#include "widgets/WindowSize.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize firstDeletedSize(860, 560);

QString countText(RecordKind kind, std::size_t count)
{
    const QString text = kind == RecordKind::Document ? frmDeletedRecords::tr("Documents (%1)")
                         : kind == RecordKind::Event  ? frmDeletedRecords::tr("Events (%1)")
                                                      : frmDeletedRecords::tr("Organizations (%1)");
    return text.arg(count);
}

QString noneText(RecordKind kind)
{
    return kind == RecordKind::Document ? frmDeletedRecords::tr("There are no deleted documents.")
           : kind == RecordKind::Event  ? frmDeletedRecords::tr("There are no deleted events.")
                                        : frmDeletedRecords::tr("There are no deleted organizations.");
}

QString restoredText(RecordKind kind, const QString& name)
{
    const QString text = kind == RecordKind::Document ? frmDeletedRecords::tr("Document \"%1\" was restored.")
                         : kind == RecordKind::Event
                             ? frmDeletedRecords::tr("Event \"%1\" was restored.")
                             : frmDeletedRecords::tr("Organization \"%1\" was restored.");
    return text.arg(readableLine(name));
}

QString restoredText(RecordKind kind, int count)
{
    return kind == RecordKind::Document ? frmDeletedRecords::tr("%n Documents were restored.", nullptr, count)
           : kind == RecordKind::Event
               ? frmDeletedRecords::tr("%n Events were restored.", nullptr, count)
               : frmDeletedRecords::tr("%n Organizations were restored.", nullptr, count);
}

} // namespace

frmDeletedRecords::frmDeletedRecords(Surroundings surroundings, QWidget* parent)
    : QDialog(parent),
      m_at(std::move(surroundings)),
      m_records(m_at.session, m_at.platform.clock),
      m_model(new DeletedRecordsModel(this))
{
    setObjectName(QStringLiteral("frmDeletedRecords"));
    setWindowTitle(tr("Deleted Records"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
    makeKinds();
    makeTable();
    auto* buttons = new QVBoxLayout;
    makeButtons(*buttons);
    layOut(buttons);
    WindowSize::restore(*this, m_at.platform.settings, firstDeletedSize);
}

void frmDeletedRecords::makeKinds()
{
    lstKinds = new QListWidget(this);
    lstKinds->setObjectName(QStringLiteral("lstKinds"));
    lstKinds->setAccessibleName(tr("Kinds of Record"));
    for (const RecordKind each : recordKinds)
        lstKinds->addItem(countText(each, 0));
}

void frmDeletedRecords::makeTable()
{
    lvDeleted = new QTreeView(this);
    lvDeleted->setObjectName(QStringLiteral("lvDeleted"));
    lvDeleted->setAccessibleName(tr("Deleted Records"));
    lvDeleted->setRootIsDecorated(false);
    lvDeleted->setItemsExpandable(false);
    lvDeleted->setUniformRowHeights(true);
    lvDeleted->setAllColumnsShowFocus(true);
    lvDeleted->setAlternatingRowColors(true);
    lvDeleted->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lvDeleted->setItemDelegate(new LineDelegate(lvDeleted));
    lvDeleted->header()->setStretchLastSection(false);
    lvDeleted->setModel(m_model);
    lvDeleted->header()->setSectionResizeMode(DeletedRecordsModel::nameColumn, QHeaderView::Stretch);
    lvDeleted->header()->setSortIndicator(DeletedRecordsModel::momentColumn, Qt::DescendingOrder);
    lvDeleted->setSortingEnabled(true);
    lvDeleted->installEventFilter(this);
    m_notice = new EmptyResultNotice(*lvDeleted);
    connect(lstKinds, &QListWidget::currentRowChanged, this, [this] {
        lblOutcome->clear();
        readKind();
    });
    connect(lvDeleted->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &frmDeletedRecords::enableButtons);
    connect(lvDeleted, &QTreeView::doubleClicked, this, [this] { cmdView->click(); });
}

QPushButton* frmDeletedRecords::makeButton(QVBoxLayout& column, const char* name, const QString& text,
                                           const QString& toolTip, void (frmDeletedRecords::*command)())
{
    QPushButton* button = DialogButtons::command(*this, name, text, toolTip);
    column.addWidget(button);
    connect(button, &QPushButton::clicked, this, command);
    return button;
}

void frmDeletedRecords::makeButtons(QVBoxLayout& column)
{
    cmdView = makeButton(column, "cmdView", tr("&View…"), tr("Shows the selected record"),
                         &frmDeletedRecords::viewRecord);
    cmdHistory = makeButton(column, "cmdHistory", tr("&History…"),
                            tr("Shows the versions of the selected record"), &frmDeletedRecords::showHistory);
    column.addSpacing(column.spacing() * 2);
    cmdRestore = makeButton(column, "cmdRestore", tr("&Restore"),
                            tr("Puts the selected records back, with their links"),
                            &frmDeletedRecords::restoreRecords);
    column.addStretch();
}

void frmDeletedRecords::layOut(QVBoxLayout* buttons)
{
    auto* caption = new QLabel(tr("&Kind:"), this);
    caption->setBuddy(lstKinds);
    auto* kinds = new QVBoxLayout;
    kinds->addWidget(caption);
    kinds->addWidget(lstKinds);
    auto* top = new QHBoxLayout;
    top->addLayout(kinds);
    top->addWidget(lvDeleted, 1);
    top->addLayout(buttons);
    lblOutcome = DialogButtons::outcome(*this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(DialogButtons::closingRow(*this, *lblOutcome));
}

void frmDeletedRecords::showDeleted(RecordKind kind)
{
    runProcedure(m_at.platform.messages, QStringLiteral("showDeleted"), [&] {
        const WaitCursor wait;
        for (const RecordKind each : recordKinds)
            if (each != kind) captionKind(each, m_records.count(each));
    });
    lstKinds->setCurrentRow(static_cast<int>(kind));
    lstKinds->setFixedWidth(lstKinds->sizeHintForColumn(0) + lstKinds->sizeHintForRow(0) * 2);
    lvDeleted->setFocus();
    exec();
}

RecordKind frmDeletedRecords::kind() const
{
    return recordKinds.at(static_cast<std::size_t>(std::max(lstKinds->currentRow(), 0)));
}

void frmDeletedRecords::captionKind(RecordKind kind, std::size_t count)
{
    lstKinds->item(static_cast<int>(kind))->setText(countText(kind, count));
}

/// Shows the deleted records as they are now. Those that cannot be read show their message and none.
void frmDeletedRecords::readKind()
{
    std::vector<DeletedRecord> records;
    const bool isRead = runProcedure(m_at.platform.messages, QStringLiteral("showDeleted"), [&] {
        const WaitCursor wait;
        records = m_records.read(kind());
        captionKind(kind(), records.size());
    });
    m_notice->setVisible(false);
    if (isRead && records.empty()) m_notice->showNotice(noneText(kind()), {});
    m_model->setRecords(kind(), std::move(records));
    lvDeleted->resizeColumnToContents(DeletedRecordsModel::momentColumn);
    select(0);
    enableButtons();
}

/// Selects the row or, behind the last one, that.
void frmDeletedRecords::select(int row)
{
    const QModelIndex index = m_model->index(std::min(row, m_model->rowCount() - 1), 0);
    // a key that is held down would make the view add to what is selected, or take away from it
    lvDeleted->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                            QItemSelectionModel::Rows);
    lvDeleted->scrollTo(index);
}

std::vector<qint64> frmDeletedRecords::selected() const
{
    QModelIndexList rows = lvDeleted->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    std::vector<qint64> identifiers;
    for (const QModelIndex& row : rows)
        identifiers.push_back(m_model->record(row.row()).identifier);
    return identifiers;
}

void frmDeletedRecords::enableButtons()
{
    const auto enable = [](QPushButton* button, const QString& hindrance) {
        button->setEnabled(hindrance.isEmpty());
        button->setToolTip(hindrance.isEmpty() ? button->statusTip()
                                               : button->statusTip() + u'\n' + hindrance);
    };
    const qsizetype count = lvDeleted->selectionModel()->selectedRows().size();
    const QString nothing = count == 0 ? tr("Select a record first.") : QString();
    const QString notOne = count > 1 ? tr("Select a single record.") : nothing;
    enable(cmdView, notOne);
    enable(cmdHistory, notOne);
    enable(cmdRestore,
           m_at.session.isReadOnly() ? tr("The database can be read, but not changed.") : nothing);
}

void frmDeletedRecords::viewRecord()
{
    showOver(m_at.view);
}

void frmDeletedRecords::showHistory()
{
    showOver(m_at.history);
}

/// The record may be another one afterwards.
void frmDeletedRecords::showOver(const Shower& shower)
{
    const qint64 identifier = selected().front();
    const int row = m_model->rowOf(identifier);
    shower(kind(), identifier, *this);
    readKind();
    const int now = m_model->rowOf(identifier);
    select(now < 0 ? row : now);
}

void frmDeletedRecords::restoreRecords()
{
    const std::vector<qint64> chosen = selected();
    const int first = m_model->rowOf(chosen.front());
    const QString name = m_model->record(first).name;
    std::vector<qint64> identifiers;
    const bool worked = runProcedure(m_at.platform.messages, QStringLiteral("restoreRecords"), [&] {
        const WaitCursor wait;
        identifiers = m_records.restore(kind(), chosen);
    });
    readKind();
    select(std::max(first, 0));
    if (!worked || identifiers.empty()) return;
    lblOutcome->setText(identifiers.size() == 1 ? restoredText(kind(), name)
                                                : restoredText(kind(), static_cast<int>(identifiers.size())));
    Q_EMIT restored(kind(), identifiers);
}

bool frmDeletedRecords::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == lvDeleted && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            cmdView->click();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmDeletedRecords::done(int result)
{
    WindowSize::save(*this, m_at.platform.settings);
    QDialog::done(result);
}
