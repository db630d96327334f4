// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/CheckList.h"

#include "widgets/LineDelegate.h"

namespace {

constexpr int placeRole = Qt::UserRole + 1;

} // namespace

CheckList::CheckList(QChar keyLetter, QWidget* parent) : QListWidget(parent), m_keyLetter(keyLetter)
{
    setUniformItemSizes(true);
    setItemDelegate(new LineDelegate(this));
}

void CheckList::setEntries(const std::vector<CheckEntry>& entries)
{
    clear();
    for (const bool isChecked : {true, false}) {
        for (std::size_t place = 0; place < entries.size(); ++place) {
            if (entries[place].isChecked == isChecked) addItem(entries[place], static_cast<int>(place));
        }
    }
    if (count() > 0) setCurrentRow(0, QItemSelectionModel::NoUpdate);
}

void CheckList::addItem(const CheckEntry& entry, int place)
{
    auto* item = new QListWidgetItem(entry.entry.display, this);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(entry.isChecked ? Qt::Checked : Qt::Unchecked);
    item->setData(Qt::UserRole, QString(m_keyLetter + QString::number(entry.entry.key)));
    item->setData(placeRole, place);
}

void CheckList::append(const CheckEntry& entry)
{
    addItem(entry, count());
    setCurrentRow(count() - 1);
}

std::vector<CheckEntry> CheckList::entries() const
{
    std::vector<CheckEntry> entries(static_cast<std::size_t>(count()));
    for (int row = 0; row < count(); ++row) {
        const QListWidgetItem* each = item(row);
        entries[each->data(placeRole).toUInt()] = {
            {each->text(), each->data(Qt::UserRole).toString().mid(1).toLongLong()},
            each->checkState() == Qt::Checked};
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
