// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/ListsView.h"

#include "lists/ListsModel.h"
#include "widgets/LineDelegate.h"
#include "widgets/LineEdit.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTreeView>
#include <QVBoxLayout>

ListsView::ListsView(QWidget* parent)
    : QWidget(parent),
      m_model(new ListsModel(this)),
      m_sorted(new SortedLists(*m_model, this)),
      m_filter(new LineEdit(this)),
      m_table(new QTreeView(this))
{
    m_filter->setObjectName(QStringLiteral("txtFilter"));
    m_filter->setAccessibleName(tr("Filter"));
    m_filter->setPlaceholderText(tr("Show only rows with these words"));
    m_filter->setClearButtonEnabled(true);
    m_filter->installEventFilter(this);
    auto* caption = new QLabel(tr("&Filter:"), this);
    caption->setBuddy(m_filter);
    makeTable();
    auto* top = new QHBoxLayout;
    top->addWidget(caption);
    top->addWidget(m_filter);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    layout->addWidget(m_table);
    setFocusProxy(m_table);
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        const LookupRow* before = selected();
        const qint64 key = before == nullptr ? 0 : before->entry.key;
        m_sorted->setFilter(text);
        selectShown(key);
    });
}

void ListsView::makeTable()
{
    m_table->setObjectName(QStringLiteral("lvEntries"));
    m_table->setModel(m_sorted);
    m_table->setRootIsDecorated(false);
    m_table->setItemsExpandable(false);
    m_table->setUniformRowHeights(true);
    m_table->setAllColumnsShowFocus(true);
    m_table->setAlternatingRowColors(true);
    m_table->setSortingEnabled(true);
    m_table->setItemDelegate(new LineDelegate(m_table));
    m_table->header()->setStretchLastSection(false);
    m_table->installEventFilter(this);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ListsView::selectionChanged);
    connect(m_table, &QTreeView::doubleClicked, this, &ListsView::activated);
}

void ListsView::setMarker(std::function<QPixmap(qint64)> marker)
{
    m_model->marker = std::move(marker);
}

void ListsView::setRows(ListKind list, std::vector<LookupRow> rows)
{
    const bool isOther = m_isEmpty || list != m_list;
    m_isEmpty = false;
    m_list = list;
    m_model->setRows(list, std::move(rows));
    m_table->setAccessibleName(listTitle(list));
    if (isOther) {
        m_filter->clear();
        // the sub-types of a type stand together
        m_table->sortByColumn(list == ListKind::OrganizationSubTypes ? 1 : 0, Qt::AscendingOrder);
    }
    giveColumnsTheirWidths();
    selectShown(0);
}

void ListsView::giveColumnsTheirWidths()
{
    QHeaderView* header = m_table->header();
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    for (int column = 1; column < m_model->columnCount(); ++column)
        m_table->resizeColumnToContents(column);
}

const LookupRow* ListsView::selected() const
{
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    return rows.isEmpty() ? nullptr : &m_model->row(m_sorted->mapToSource(rows.front()).row());
}

void ListsView::select(qint64 key)
{
    selectShown(key);
    if (m_filter->text().isEmpty() || (selected() != nullptr && selected()->entry.key == key)) return;
    m_filter->clear();
    selectShown(key);
}

/// Selects the entry of that key; the first one if there is none, or if the filter hides it.
void ListsView::selectShown(qint64 key)
{
    QModelIndex found = m_sorted->index(0, 0);
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (m_model->row(row).entry.key != key) continue;
        const QModelIndex shown = m_sorted->mapFromSource(m_model->index(row, 0));
        if (shown.isValid()) found = shown;
    }
    m_table->setCurrentIndex(found);
    m_table->scrollTo(found);
    Q_EMIT selectionChanged();
}

bool ListsView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (watched == m_filter && key == Qt::Key_Down) {
        m_table->setFocus();
        return true;
    }
    if (watched == m_table && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        Q_EMIT activated();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
