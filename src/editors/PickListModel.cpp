// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/PickListModel.h"

#include "util/TextCompare.h"
#include "widgets/PlainToolTip.h"

#include <QSet>

#include <algorithm>
#include <numeric>

void PickListModel::setRows(std::vector<PickListRow> rows, PickListKind kind, const PickedItems& chosen)
{
    beginResetModel();
    m_kind = kind;
    m_headers = pickListHeaders(kind);
    m_rows = std::move(rows);
    QSet<qint64> identifiers;
    for (const clsPickListItem& item : chosen)
        identifiers.insert(item.itemID);
    m_ticks.assign(m_rows.size(), 0);
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        m_ticks[row] = identifiers.contains(m_rows[row].identifier) ? 1 : 0;
    }
    m_tickedCount = static_cast<std::size_t>(std::count(m_ticks.begin(), m_ticks.end(), 1));
    m_order.resize(m_rows.size());
    std::iota(m_order.begin(), m_order.end(), 0U);
    m_folded.clear();
    m_words.clear();
    m_shown = m_order;
    endResetModel();
    Q_EMIT ticksChanged();
}

void PickListModel::setFilter(const QString& text)
{
    m_words.clear();
    const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
    for (const QString& word : words)
        TextCompare::fold(word.toStdString(), m_words.emplace_back());
    if (!m_words.empty() && m_folded.empty()) foldTexts();
    beginResetModel();
    m_shown = passing();
    endResetModel();
}

void PickListModel::foldTexts()
{
    m_folded.resize(m_rows.size());
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        TextCompare::fold((m_rows[row].name + u' ' + m_rows[row].state).toStdString(), m_folded[row]);
    }
}

std::vector<std::uint32_t> PickListModel::passing() const
{
    if (m_words.empty()) return m_order;
    std::vector<std::uint32_t> rows;
    std::copy_if(m_order.begin(), m_order.end(), std::back_inserter(rows), [this](std::uint32_t row) {
        return std::all_of(m_words.begin(), m_words.end(), [&](const std::string& word) {
            return m_folded[row].find(word) != std::string::npos;
        });
    });
    return rows;
}

void PickListModel::sort(int column, Qt::SortOrder order)
{
    if (column < 0 || column >= columnCount()) return;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<std::uint32_t> sources;
    for (const QModelIndex& index : before)
        sources.push_back(source(index));

    std::vector<std::string> texts;
    texts.reserve(m_rows.size());
    for (const PickListRow& row : m_rows)
        texts.push_back(text(row, column).toStdString());
    std::stable_sort(m_order.begin(), m_order.end(), [&](std::uint32_t left, std::uint32_t right) {
        const int compared = TextCompare::compare(texts[left], texts[right]);
        return order == Qt::AscendingOrder ? compared < 0 : compared > 0;
    });
    m_shown = passing();

    std::vector<int> positions(m_rows.size());
    for (std::size_t i = 0; i < m_shown.size(); ++i)
        positions[m_shown[i]] = static_cast<int>(i);
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i) {
        after << index(positions[sources[static_cast<std::size_t>(i)]], before[i].column());
    }
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

void PickListModel::toggle(const QModelIndexList& rows)
{
    if (rows.isEmpty()) return;
    int first = rowCount();
    int last = 0;
    for (const QModelIndex& index : rows) {
        const std::uint32_t row = source(index);
        tick(row, m_ticks[row] == 0);
        first = std::min(first, index.row());
        last = std::max(last, index.row());
    }
    Q_EMIT dataChanged(index(first, 0), index(last, 0), {Qt::CheckStateRole});
    Q_EMIT ticksChanged();
}

void PickListModel::tick(std::uint32_t row, bool on)
{
    if ((m_ticks[row] != 0) == on) return;
    m_ticks[row] = on ? 1 : 0;
    m_tickedCount += on ? 1 : std::size_t(-1);
}

PickedItems PickListModel::ticked() const
{
    PickedItems items;
    QSet<qint64> identifiers;
    for (const std::uint32_t row : m_order) {
        const qint64 identifier = m_rows[row].identifier;
        if (m_ticks[row] == 0 || identifiers.contains(identifier)) continue;
        identifiers.insert(identifier);
        items.push_back(pickedItem(m_rows[row], m_kind));
    }
    return items;
}

const QString& PickListModel::text(const PickListRow& row, int column) const
{
    return column == 0 ? row.name : row.state;
}

int PickListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int PickListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_headers.size());
}

QVariant PickListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const std::uint32_t row = source(index);
    switch (role) {
    case Qt::DisplayRole:
        return text(m_rows[row], index.column());
    case Qt::ToolTipRole:
        return PlainToolTip::text(text(m_rows[row], index.column()));
    case Qt::CheckStateRole:
        if (index.column() > 0) return {};
        return static_cast<int>(m_ticks[row] != 0 ? Qt::Checked : Qt::Unchecked);
    case Qt::UserRole:
        return QString(u'k' + QString::number(m_rows[row].identifier));
    default:
        return {};
    }
}

bool PickListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || index.column() > 0 ||
        !checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return false;
    }
    tick(source(index), value.toInt() == Qt::Checked);
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    Q_EMIT ticksChanged();
    return true;
}

Qt::ItemFlags PickListModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) return Qt::NoItemFlags;
    const Qt::ItemFlags plain = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    return index.column() == 0 ? plain | Qt::ItemIsUserCheckable : plain;
}

QVariant PickListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= columnCount()) return {};
    return m_headers[section];
}
