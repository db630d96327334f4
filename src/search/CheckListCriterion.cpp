// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/CheckListCriterion.h"

#include "widgets/LineDelegate.h"

#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSet>
#include <QVBoxLayout>

namespace {

constexpr int keyRole = Qt::UserRole;

QString keyOf(qint64 identifier)
{
    return u'k' + QString::number(identifier);
}

} // namespace

CheckListCriterion::CheckListCriterion(const QString& stem, const QString& caption, QWidget* parent)
    : CriterionBox(stem, caption, parent), m_list(new QListWidget(frame()))
{
    m_list->setObjectName(QStringLiteral("lv") + stem);
    m_list->setAccessibleName(caption);
    m_list->setSpacing(1);
    m_list->setUniformItemSizes(true);
    m_list->setItemDelegate(new LineDelegate(m_list));
    auto* all = new QPushButton(tr("Select All"), frame());
    all->setObjectName(QStringLiteral("cmdAll") + stem);
    auto* none = new QPushButton(tr("Select None"), frame());
    none->setObjectName(QStringLiteral("cmdNone") + stem);
    all->setAutoDefault(false);
    none->setAutoDefault(false);

    auto* side = new QVBoxLayout;
    side->addWidget(all);
    side->addWidget(none);
    side->addWidget(countLabel());
    side->addStretch();
    frameLayout()->addWidget(m_list, 1);
    frameLayout()->addLayout(side);
    connect(all, &QPushButton::clicked, this, [this] { tickAll(true); });
    connect(none, &QPushButton::clicked, this, [this] { tickAll(false); });
    connect(m_list, &QListWidget::itemChanged, this, [this] {
        if (m_ticking) return;
        countTicks();
        Q_EMIT changed();
    });
}

void CheckListCriterion::setEntries(const std::vector<Entry>& entries)
{
    const QScopedValueRollback ticking(m_ticking, true);
    m_list->clear();
    for (const Entry& entry : entries) {
        auto* item = new QListWidgetItem(entry.name, m_list);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
        item->setData(keyRole, keyOf(entry.identifier));
    }
    if (m_list->count() > 0) m_list->setCurrentRow(0, QItemSelectionModel::NoUpdate);
    countTicks();
}

clsAdvSearch::Items CheckListCriterion::items() const
{
    clsAdvSearch::Items chosen;
    for (int row = 0; row < m_list->count(); ++row) {
        const QListWidgetItem& item = *m_list->item(row);
        if (item.checkState() != Qt::Checked) continue;
        chosen.push_back(clsPickListItem::of(item.data(keyRole).toString().mid(1).toLongLong(), item.text()));
    }
    return chosen;
}

void CheckListCriterion::setItems(const clsAdvSearch::Items& items)
{
    const QScopedValueRollback ticking(m_ticking, true);
    QSet<QString> keys;
    for (const clsPickListItem& item : items)
        keys << item.key();
    for (int row = 0; row < m_list->count(); ++row) {
        QListWidgetItem& item = *m_list->item(row);
        item.setCheckState(keys.contains(item.data(keyRole).toString()) ? Qt::Checked : Qt::Unchecked);
    }
    countTicks();
}

void CheckListCriterion::tickAll(bool ticked)
{
    {
        const QScopedValueRollback ticking(m_ticking, true);
        for (int row = 0; row < m_list->count(); ++row)
            m_list->item(row)->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
    }
    countTicks();
    Q_EMIT changed();
}

void CheckListCriterion::countTicks()
{
    int ticked = 0;
    for (int row = 0; row < m_list->count(); ++row)
        ticked += m_list->item(row)->checkState() == Qt::Checked ? 1 : 0;
    const QString count = tr("%1 of %2 chosen").arg(ticked).arg(m_list->count());
    showCount(ticked == 0 ? tr("%1: searches all").arg(count) : count);
}
