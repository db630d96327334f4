// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/VersionsModel.h"

#include "util/Error.h"
#include "widgets/PlainToolTip.h"

void VersionsModel::setVersions(RecordVersions* versions)
{
    beginResetModel();
    m_versions = versions;
    m_rows = versions == nullptr ? 0 : static_cast<int>(versions->found().size());
    m_fields.clear();
    endResetModel();
}

int VersionsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int VersionsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 3;
}

bool VersionsModel::canFetchMore(const QModelIndex& parent) const
{
    if (parent.isValid() || m_versions == nullptr) return false;
    return m_versions->hasMore() || m_rows < static_cast<int>(m_versions->found().size());
}

/// What cannot be read is not there; choosing a version says why.
void VersionsModel::fetchMore(const QModelIndex& /*parent*/)
{
    try {
        if (m_rows == static_cast<int>(m_versions->found().size())) m_versions->findMore();
    } catch (const Error&) {
        return;
    }
    const int rows = static_cast<int>(m_versions->found().size());
    if (rows == m_rows) return;
    beginInsertRows({}, m_rows, rows - 1);
    m_rows = rows;
    endInsertRows();
}

/// Which fields a version changed is found out when its row is shown.
const QString& VersionsModel::fields(int row) const
{
    const auto known = m_fields.find(row);
    if (known != m_fields.end()) return known->second;
    QString text;
    try {
        text = m_versions->changedFields(static_cast<std::size_t>(row)).join(QStringLiteral(", "));
    } catch (const Error&) {
        // choosing the version says why it cannot be read
    }
    return m_fields[row] = text;
}

QString VersionsModel::text(int row, int column) const
{
    const RecordVersion& version = m_versions->found()[static_cast<std::size_t>(row)];
    if (column == 0) return version.moment;
    return column == 1 ? version.what() : fields(row);
}

QVariant VersionsModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    if (role == Qt::DisplayRole) return text(index.row(), index.column());
    if (role == Qt::ToolTipRole) return PlainToolTip::text(text(index.row(), index.column()));
    return {};
}

QVariant VersionsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    if (section == 0) return tr("When");
    return section == 1 ? tr("What") : tr("Fields");
}
