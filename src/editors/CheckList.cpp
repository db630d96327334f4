#include "editors/CheckList.h"

#include "platform/LineDelegate.h"

CheckList::CheckList(QChar keyLetter, QWidget* parent) : QListWidget(parent), m_keyLetter(keyLetter)
{
    setUniformItemSizes(true);
    setItemDelegate(new LineDelegate(this));
}

void CheckList::setEntries(const std::vector<CheckEntry>& entries)
{
    clear();
    for (const CheckEntry& each : entries) {
        auto* item = new QListWidgetItem(each.entry.display, this);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(each.isChecked ? Qt::Checked : Qt::Unchecked);
        item->setData(Qt::UserRole, QString(m_keyLetter + QString::number(each.entry.key)));
    }
    if (count() > 0) setCurrentRow(0, QItemSelectionModel::NoUpdate);
}

std::vector<CheckEntry> CheckList::entries() const
{
    std::vector<CheckEntry> entries;
    for (int row = 0; row < count(); ++row) {
        const QListWidgetItem* each = item(row);
        entries.push_back({{each->text(), each->data(Qt::UserRole).toString().mid(1).toLongLong()},
                           each->checkState() == Qt::Checked});
    }
    return entries;
}

void CheckList::untickAll()
{
    for (int row = 0; row < count(); ++row)
        item(row)->setCheckState(Qt::Unchecked);
}

void CheckList::setLocked(bool locked)
{
    for (int row = 0; row < count(); ++row) {
        item(row)->setFlags(item(row)->flags().setFlag(Qt::ItemIsUserCheckable, !locked));
    }
}
