// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/ChosenListCriterion.h"

#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

ChosenListCriterion::ChosenListCriterion(const QString& stem, const QString& caption, const Buttons& buttons,
                                         QWidget* parent)
    : CriterionBox(stem, caption, parent), m_list(new QListWidget(frame()))
{
    m_list->setObjectName(QStringLiteral("lst") + stem);
    m_list->setAccessibleName(caption);
    m_list->setSpacing(1);
    m_list->setUniformItemSizes(true);
    auto* add = new QPushButton(buttons.addCaption, frame());
    add->setObjectName(buttons.addName);
    auto* clear = new QPushButton(buttons.clearCaption, frame());
    clear->setObjectName(buttons.clearName);
    add->setAutoDefault(false);
    clear->setAutoDefault(false);

    auto* side = new QVBoxLayout;
    side->addWidget(add);
    side->addWidget(clear);
    side->addWidget(countLabel());
    side->addStretch();
    frameLayout()->addWidget(m_list, 1);
    frameLayout()->addLayout(side);
    setItems({});
    connect(add, &QPushButton::clicked, this, &ChosenListCriterion::addPressed);
    connect(clear, &QPushButton::clicked, this, [this] {
        setItems({});
        Q_EMIT changed();
    });
}

clsAdvSearch::Items ChosenListCriterion::items() const
{
    clsAdvSearch::Items chosen;
    for (int row = 0; row < m_list->count(); ++row) {
        const QListWidgetItem& item = *m_list->item(row);
        chosen.push_back(clsPickListItem::of(item.data(Qt::UserRole).toLongLong(), item.text()));
    }
    return chosen;
}

void ChosenListCriterion::setItems(const clsAdvSearch::Items& items)
{
    m_list->clear();
    for (const clsPickListItem& chosen : items) {
        auto* item = new QListWidgetItem(chosen.itemName, m_list);
        item->setData(Qt::UserRole, chosen.itemID);
    }
    showCount(items.empty() ? tr("0 chosen: searches all")
                            : tr("%n chosen", nullptr, static_cast<int>(items.size())));
}
