// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/RecordListModel.h"

#include "browse/list/ListTexts.h"
#include "widgets/IconSet.h"
#include "widgets/PlainToolTip.h"

#include <algorithm>
#include <iterator>

RecordListModel::RecordListModel(std::shared_ptr<const RecordList> list, RowIconKeys& iconKeys,
                                 IconSet& icons, QObject* parent)
    : QAbstractTableModel(parent), m_iconKeys(iconKeys), m_icons(icons), m_list(std::move(list))
{
}

void RecordListModel::setList(std::shared_ptr<const RecordList> list)
{
    beginResetModel();
    m_list = std::move(list);
    m_published = 0;
    m_order.clear();
    m_folded.clear();
    m_left.clear();
    m_sorted.clear();
    m_iconKeys.clear();
    endResetModel();
}

void RecordListModel::publish()
{
    if (m_published == 0 || m_list->count() >= 2 * static_cast<std::size_t>(m_published)) publishAll();
}

void RecordListModel::publishAll()
{
    const int count = static_cast<int>(m_list->count());
    if (count == m_published) return;
    if (m_filter.isEmpty()) {
        beginInsertRows({}, m_published, count - 1);
        m_published = count;
        endInsertRows();
        return;
    }
    const std::vector<std::uint32_t> more = matching(m_published, count);
    m_published = count;
    if (more.empty()) return;
    const int shown = rowCount();
    beginInsertRows({}, shown, shown + static_cast<int>(more.size()) - 1);
    m_left.insert(m_left.end(), more.begin(), more.end());
    endInsertRows();
}

/// Returns those rows of the list from `first` to before `last` that the filter leaves.
std::vector<std::uint32_t> RecordListModel::matching(int first, int last)
{
    m_folded.follow(*m_list);
    std::vector<std::uint32_t> rows;
    for (auto row = static_cast<std::uint32_t>(first); row < static_cast<std::uint32_t>(last); ++row) {
        if (m_filter.match(m_folded.row(row))) rows.push_back(row);
    }
    return rows;
}

void RecordListModel::setFilter(const FilterWords& words)
{
    beginResetModel();
    m_filter = words;
    m_left = m_filter.isEmpty() ? std::vector<std::uint32_t>() : matching(0, m_published);
    arrange();
    endResetModel();
}

/// Puts the rows that the filter leaves into the user's order.
void RecordListModel::arrange()
{
    m_sorted.clear();
    if (m_filter.isEmpty() || m_order.empty()) return;
    std::vector<bool> isLeft(m_list->count());
    for (const std::uint32_t row : m_left)
        isLeft[row] = true;
    m_sorted.reserve(m_left.size());
    std::copy_if(m_order.begin(), m_order.end(), std::back_inserter(m_sorted),
                 [&isLeft](std::uint32_t row) { return isLeft[row]; });
}

void RecordListModel::order(const std::optional<ListSort>& sort)
{
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<std::size_t> sources;
    sources.reserve(static_cast<std::size_t>(before.size()));
    for (const QModelIndex& index : before)
        sources.push_back(source(index.row()));

    m_order = sort ? m_list->sorted(sort->column, sort->descending) : std::vector<std::uint32_t>();
    arrange();

    std::vector<int> rows(m_list->count());
    for (int row = 0; row < rowCount(); ++row)
        rows[source(row)] = row;
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i) {
        after << index(rows[sources[static_cast<std::size_t>(i)]], before[i].column());
    }
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

std::size_t RecordListModel::source(int row) const
{
    const auto index = static_cast<std::size_t>(row);
    if (!m_filter.isEmpty()) return m_order.empty() ? m_left[index] : m_sorted[index];
    return m_order.empty() ? index : m_order[index];
}

int RecordListModel::rowOf(qint64 identifier) const
{
    for (int row = 0; row < rowCount(); ++row) {
        if (this->identifier(row) == identifier) return row;
    }
    return -1;
}

QString RecordListModel::iconKey(int row) const
{
    return m_iconKeys.key(*m_list, source(row));
}

int RecordListModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid()) return 0;
    return m_filter.isEmpty() ? m_published : static_cast<int>(m_left.size());
}

int RecordListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_list->columns().size());
}

bool RecordListModel::marksKeys(int column) const
{
    return m_list->columns()[static_cast<std::size_t>(column)].marksKeys;
}

FilePassage RecordListModel::passage(std::size_t source) const
{
    return m_passages ? m_passages(m_list->identifier(source)) : FilePassage();
}

QString RecordListModel::accessibleText(std::size_t source, int column) const
{
    if (marksKeys(column)) return m_list->toolTip(source, column);
    const QString text = m_list->text(source, column);
    const QString below = column == 0 ? passage(source).text : QString();
    return below.isEmpty() ? text : text + u'\n' + below;
}

QVariant RecordListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const std::size_t row = source(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return m_list->text(row, index.column());
    case Qt::ToolTipRole:
        return PlainToolTip::text(m_list->toolTip(row, index.column()));
    case Qt::AccessibleTextRole:
        return accessibleText(row, index.column());
    case PassageRole:
        return QVariant::fromValue(passage(row));
    case Qt::DecorationRole:
        if (index.column() == 0) return m_icons.icon(m_list->drawnIcon(row, m_iconKeys.key(*m_list, row)));
        if (marksKeys(index.column()) && m_list->isKey(row)) return m_icons.icon(QStringLiteral("isKey"));
        return {};
    default:
        return {};
    }
}

QVariant RecordListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section >= columnCount()) return {};
    if (role == Qt::DisplayRole)
        return ListTexts::tr(m_list->columns()[static_cast<std::size_t>(section)].title);
    if (!marksKeys(section)) return {};
    if (role == Qt::DecorationRole) return m_icons.icon(QStringLiteral("isKey"));
    if (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole) return tr("Key records");
    return {};
}
