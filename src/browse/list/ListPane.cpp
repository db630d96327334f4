// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/ListPane.h"

#include "browse/list/FilterField.h"
#include "browse/list/RecordListView.h"
#include "data/DatabaseSession.h"
#include "views/ViewHistory.h"
#include "widgets/MarkingDelegate.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int rowsBetweenYields = 500;

} // namespace

ListPane::ListPane(DatabaseSession& session, ViewHistory& history, const ProgramFolder& folder,
                   QWidget* parent)
    : QWidget(parent),
      m_session(session),
      m_history(history),
      m_list(std::make_shared<RecordList>(RecordKind::Document)),
      m_iconKeys(session, folder),
      m_model(new RecordListModel(m_list, m_iconKeys, m_icons, this)),
      m_filter(new FilterField(this)),
      m_view(new RecordListView(this)),
      m_widths(*m_view)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_filter);
    layout->addWidget(m_view);
    m_view->setModel(m_model);
    m_view->marks().addMarker(
        [this](const QModelIndex&, const QString& text) { return m_model->filter().in(text); });
    connect(m_filter, &FilterField::typed, this, &ListPane::narrow);
    connect(m_filter, &FilterField::left, this, &ListPane::goToRows);
    setFocusProxy(m_view);
    connect(m_view->header(), &QHeaderView::sectionClicked, this, &ListPane::sortBy);
    connect(m_view, &RecordListView::widthChosen, this,
            [this](int column, int width) { m_widths.choose(kind(), column, width); });
    connect(m_view, &QAbstractItemView::pressed, this, &ListPane::announce);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ListPane::noteSelected);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                const bool isSelected = m_view->selectionModel()->isSelected(current);
                if (isSelected && m_history.selected() != m_model->identifier(current.row())) noteSelected();
                // presses are announced by `pressed`, also on a row that is current already
                if (QGuiApplication::mouseButtons() == Qt::NoButton) announce(current);
            });
}

bool ListPane::fill(RecordKind kind, std::size_t entry, const QString& statement)
{
    begin(kind, entry);
    const std::uint64_t token = m_token;
    const auto list = m_list;
    try {
        if (!readRows(statement, list)) return false;
    } catch (...) {
        if (token == m_token) finish();
        throw;
    }
    finish();
    return true;
}

bool ListPane::readRows(const QString& statement, const std::shared_ptr<RecordList>& list)
{
    const std::uint64_t token = m_token;
    RecordSet rows = m_session.read(statement);
    list->beginReading(rows);
    int counter = 0;
    while (rows.next()) {
        list->append(rows);
        if (counter < rowsBetweenYields) {
            ++counter;
            continue;
        }
        counter = 0;
        m_model->publish();
        QCoreApplication::processEvents();
        if (token != m_token) return false;
    }
    return true;
}

void ListPane::setPassages(FilePassages passages)
{
    m_view->setShowsPassages(passages != nullptr);
    m_model->setPassages(std::move(passages));
}

void ListPane::stop()
{
    ++m_token;
    m_filling = false;
}

void ListPane::forget()
{
    stop();
    m_remembered.clear();
    m_entry = 0;
}

void ListPane::begin(RecordKind kind, std::size_t entry)
{
    if (!m_filling && m_entry != 0) rememberPlace();
    ++m_token;
    m_filling = true;
    // the words that were typed belong to the view before
    if (m_entry != entry && m_filter->isTypedIn()) m_view->setFocus();
    m_entry = entry;
    m_list = std::make_shared<RecordList>(kind, m_years);
    m_model->setList(m_list);
    m_filter->setWords(m_history.filter());
    const FilterWords words(m_history.filter());
    if (words != m_model->filter()) m_model->setFilter(words);
    m_filter->setCount({}, {});
    Q_EMIT selectionChanged();
    m_view->scrollToTop();
    m_widths.apply(kind);
    const auto& sort = m_remembered[entry].sort;
    m_view->header()->setSortIndicatorShown(sort.has_value());
    if (sort)
        m_view->header()->setSortIndicator(sort->column,
                                           sort->descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void ListPane::finish()
{
    m_model->publishAll();
    m_widths.fitTexts(kind());
    if (m_remembered[m_entry].sort) applySort();
    restorePlace();
    showCount();
    m_filling = false;
    // a record that the list does not show cannot stay selected
    tellHistory(selectedRecord());
}

void ListPane::rememberPlace()
{
    Remembered& remembered = m_remembered[m_entry];
    const QModelIndex top = m_view->indexAt({0, 0});
    remembered.top = top.isValid() ? std::optional(m_model->identifier(top.row())) : std::nullopt;
}

/// Goes back to the user's place in this view, unless they selected or scrolled while it was read.
void ListPane::restorePlace()
{
    const Remembered remembered = m_remembered[m_entry];
    const int scrolledTo = m_view->verticalScrollBar()->value();
    if (selectedRecord()) return;
    showSelected();
    if (scrolledTo != 0) {
        m_view->verticalScrollBar()->setValue(scrolledTo);
        return;
    }
    const int top = remembered.top ? m_model->rowOf(*remembered.top) : -1;
    if (top >= 0) m_view->scrollTo(m_model->index(top, 0), QAbstractItemView::PositionAtTop);
}

void ListPane::sortBy(int column)
{
    std::optional<ListSort>& sort = m_remembered[m_entry].sort;
    sort = ListSort{column, sort && sort->column == column && !sort->descending};
    m_view->header()->setSortIndicatorShown(true);
    m_view->header()->setSortIndicator(column, sort->descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    // a list that is still being read is sorted at its end
    if (!m_filling) applySort();
}

void ListPane::applySort()
{
    m_model->order(m_remembered[m_entry].sort);
    if (m_view->currentIndex().isValid()) m_view->scrollTo(m_view->currentIndex());
}

std::optional<qint64> ListPane::selectedRecord() const
{
    const QModelIndex current = m_view->currentIndex();
    // a list that gets the focus makes its first row current, but does not select it
    if (current.isValid() && m_view->selectionModel()->isSelected(current))
        return m_model->identifier(current.row());
    const QItemSelection selection = m_view->selectionModel()->selection();
    if (selection.isEmpty()) return std::nullopt;
    const auto first = std::min_element(
        selection.begin(), selection.end(),
        [](const QItemSelectionRange& a, const QItemSelectionRange& b) { return a.top() < b.top(); });
    return m_model->identifier(first->top());
}

/// Does nothing while a page is shown in the list's place: the history is at another entry then.
void ListPane::tellHistory(std::optional<qint64> selected)
{
    if (m_entry != 0 && m_entry == m_history.current()) m_history.select(selected);
}

void ListPane::noteSelected()
{
    if (!m_selecting) tellHistory(selectedRecord());
    Q_EMIT selectionChanged();
}

bool ListPane::select(qint64 identifier)
{
    const int row = m_model->rowOf(identifier);
    if (row < 0) return false;
    tellHistory(identifier);
    const QScopedValueRollback selecting(m_selecting, true);
    const QModelIndex index = m_model->index(row, 0);
    m_view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                         QItemSelectionModel::Rows);
    m_view->scrollTo(index);
    return true;
}

void ListPane::goTo(qint64 identifier)
{
    if (select(identifier)) announce(m_view->currentIndex());
}

void ListPane::select(const std::vector<qint64>& identifiers)
{
    selectShown({identifiers.begin(), identifiers.end()}, std::nullopt);
}

/// Selects those of the records that are shown, and makes one of them, else the first, the current one.
void ListPane::selectShown(const std::unordered_set<qint64>& records, std::optional<qint64> current)
{
    QItemSelection selection;
    std::optional<int> goal;
    for (int row = 0; row < m_model->rowCount() && !records.empty(); ++row) {
        const qint64 identifier = m_model->identifier(row);
        if (!records.contains(identifier)) continue;
        if (!goal || identifier == current) goal = row;
        const QModelIndex index = m_model->index(row, 0);
        if (!selection.isEmpty() && selection.last().bottom() == row - 1) {
            selection.last() = QItemSelectionRange(selection.last().topLeft(), index);
        } else {
            selection.append(QItemSelectionRange(index));
        }
    }
    if (!goal) return clearSelection();
    tellHistory(m_model->identifier(*goal));
    const QScopedValueRollback selecting(m_selecting, true);
    const QModelIndex index = m_model->index(*goal, 0);
    m_view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    m_view->selectionModel()->select(selection,
                                     QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_view->scrollTo(index);
}

void ListPane::clearSelection()
{
    tellHistory(std::nullopt);
    const QScopedValueRollback selecting(m_selecting, true);
    m_view->clearSelection();
    Q_EMIT selectionChanged();
}

void ListPane::showSelected()
{
    const std::optional<qint64> selected = m_history.selected();
    if (selected && select(*selected)) return;
    clearSelection();
    // a list that is still being read may show it later
    if (m_filling) tellHistory(selected);
}

void ListPane::announce(const QModelIndex& index)
{
    if (m_selecting || m_filling || !index.isValid()) return;
    if (m_view->selectionModel()->isSelected(index)) Q_EMIT chosen(m_model->identifier(index.row()));
}

std::size_t ListPane::selectedCount() const
{
    std::size_t count = 0;
    for (const QItemSelectionRange& range : m_view->selectionModel()->selection())
        count += static_cast<std::size_t>(range.height());
    return count;
}

std::vector<SelectedRecord> ListPane::selectedRecords() const
{
    std::vector<SelectedRecord> records;
    for (const int row : m_view->selectedRows()) {
        const std::size_t source = m_model->source(row);
        records.push_back({m_model->identifier(row), m_list->text(source, 0), m_list->fileLocation(source),
                           m_model->iconKey(row)});
    }
    return records;
}

void ListPane::refreshIcons()
{
    m_icons.clear();
    m_view->viewport()->update();
}

void ListPane::setTextSize(int percent)
{
    m_view->setTextSize(percent);
    m_widths.setTextSize(percent);
    m_widths.apply(kind());
    m_widths.fitTexts(kind());
}
