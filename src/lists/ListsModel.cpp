// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/ListsModel.h"

#include "util/TextCompare.h"
#include "views/clsCities.h"
#include "widgets/PlainToolTip.h"

#include <QIcon>

#include <algorithm>

namespace {

/// An icon whose colour stays as it is in a selected row.
QIcon iconOf(const QPixmap& picture)
{
    QIcon icon(picture);
    icon.addPixmap(picture, QIcon::Selected);
    return icon;
}

} // namespace

void ListsModel::setRows(ListKind list, std::vector<LookupRow> rows)
{
    beginResetModel();
    m_list = list;
    m_headers = listHeaders(list) << tr("Used By");
    m_rows = std::move(rows);
    m_sortTexts.clear();
    m_folded.clear();
    for (const LookupRow& row : m_rows) {
        auto& texts = m_sortTexts.emplace_back();
        for (int column = 0; column < usesColumn(); ++column)
            texts.push_back(text(row, column).toStdString());
        TextCompare::fold((row.entry.name + u' ' + row.entry.detail).toStdString(), m_folded.emplace_back());
    }
    endResetModel();
}

const std::string& ListsModel::sortText(int row, int column) const
{
    return m_sortTexts[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

int ListsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int ListsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_headers.size());
}

QString ListsModel::text(const LookupRow& row, int column) const
{
    if (column == usesColumn()) {
        QString shown = QString::number(row.shown());
        if (row.deleted() == 0) return shown;
        return tr("%1 + %n deleted", nullptr, static_cast<int>(row.deleted())).arg(shown);
    }
    if (column == 0) return row.entry.name;
    if (column == 1) return row.entry.detail;
    if (!row.entry.position) return {};
    clsCities place;
    place.lat = row.entry.position->lat;
    place.lon = row.entry.position->lon;
    return place.placeText();
}

QVariant ListsModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const LookupRow& found = row(index.row());
    const bool isNumber = index.column() == usesColumn();
    switch (role) {
    case Qt::DisplayRole:
        return text(found, index.column());
    case Qt::ToolTipRole:
        return PlainToolTip::text(text(found, index.column()));
    case Qt::TextAlignmentRole:
        if (!isNumber) return {};
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::DecorationRole:
        if (m_list != ListKind::Functions || index.column() > 0 || !marker) return {};
        return iconOf(marker(found.entry.key));
    default:
        return {};
    }
}

QVariant ListsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section >= columnCount()) return {};
    if (role == Qt::DisplayRole) return m_headers[section];
    if (role != Qt::TextAlignmentRole || section != usesColumn()) return {};
    return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
}

SortedLists::SortedLists(ListsModel& model, QObject* parent) : QSortFilterProxyModel(parent), m_model(model)
{
    setSourceModel(&model);
}

void SortedLists::setFilter(const QString& text)
{
    m_words.clear();
    const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
    for (const QString& word : words)
        TextCompare::fold(word.toStdString(), m_words.emplace_back());
    invalidateFilter();
}

bool SortedLists::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    if (left.column() == m_model.usesColumn()) {
        return m_model.row(left.row()).shown() < m_model.row(right.row()).shown();
    }
    return TextCompare::compare(m_model.sortText(left.row(), left.column()),
                                m_model.sortText(right.row(), right.column())) < 0;
}

bool SortedLists::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const
{
    return std::all_of(m_words.begin(), m_words.end(), [&](const std::string& word) {
        return m_model.folded(row).find(word) != std::string::npos;
    });
}
