// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/LinkList.h"

#include "editors/PickedLists.h"
#include "widgets/LineDelegate.h"
#include "widgets/PlainToolTip.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

LinkList::LinkList(const Names& names, PickListKind kind, QWidget* parent)
    : QWidget(parent),
      m_kind(kind),
      m_list(new QListWidget(this)),
      m_add(new QPushButton(tr("Add…"), this)),
      m_clear(new QPushButton(tr("Clear"), this))
{
    m_list->setObjectName(QString::fromLatin1(names.list));
    m_list->setAccessibleName(names.what);
    m_list->setUniformItemSizes(true);
    m_list->setItemDelegate(new LineDelegate(m_list));
    m_add->setObjectName(QString::fromLatin1(names.add));
    m_add->setAccessibleName(tr("Add %1").arg(names.what));
    m_add->setToolTip(tr("Choose %1 from a list").arg(names.what));
    m_add->setAutoDefault(false);
    m_clear->setObjectName(QString::fromLatin1(names.clear));
    m_clear->setAccessibleName(tr("Clear %1").arg(names.what));
    m_clear->setToolTip(tr("Empty the list of %1").arg(names.what));
    m_clear->setAutoDefault(false);
    setFocusProxy(m_list);

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(m_add);
    if (const auto list = listOf(kind)) {
        QPushButton* button = makeNewButton(names, *list);
        buttons->addWidget(button);
        setTabOrder(m_add, button);
    }
    buttons->addWidget(m_clear);
    buttons->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list);
    layout->addLayout(buttons);

    m_list->installEventFilter(this);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &LinkList::open);
    connect(m_add, &QPushButton::clicked, this, &LinkList::addPressed);
    connect(m_clear, &QPushButton::clicked, this, [this] { setEntries({}); });
}

QPushButton* LinkList::makeNewButton(const Names& names, ListKind list)
{
    auto* button = new QPushButton(tr("New…"), this);
    button->setObjectName(
        QString::fromLatin1(names.add).replace(QStringLiteral("Add"), QStringLiteral("New")));
    button->setAccessibleName(tr("New: %1").arg(listEntryWord(list)));
    button->setToolTip(tr("Adds an entry to the list: %1").arg(listTitle(list)));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, &LinkList::newPressed);
    return button;
}

void LinkList::append(const ListEntry& entry)
{
    std::vector<ListEntry> all = entries();
    if (all.size() == 1 && all.front().key == noneKey) all.clear();
    all.push_back(entry);
    setEntries(all);
    m_list->setCurrentRow(m_list->count() - 1);
}

void LinkList::setEntries(const std::vector<ListEntry>& entries)
{
    m_list->clear();
    for (const ListEntry& entry : entries)
        addItem(entry);
    if (m_list->count() == 0) addItem(ListEntry::none());
    m_list->setCurrentRow(0, QItemSelectionModel::NoUpdate);
}

std::vector<ListEntry> LinkList::entries() const
{
    std::vector<ListEntry> entries;
    for (int row = 0; row < m_list->count(); ++row) {
        const QListWidgetItem* item = m_list->item(row);
        entries.push_back({item->text(), item->data(Qt::UserRole).toLongLong()});
    }
    return entries;
}

void LinkList::setLocked(bool locked)
{
    m_isLocked = locked;
    m_list->setUniformItemSizes(!locked);
    m_list->setWordWrap(locked);
    m_list->setResizeMode(locked ? QListView::Adjust : QListView::Fixed);
}

void LinkList::addItem(const ListEntry& entry)
{
    auto* item = new QListWidgetItem(entry.display, m_list);
    item->setData(Qt::UserRole, entry.key);
    item->setToolTip(PlainToolTip::text(entry.display));
}

/// Asks to show the record of an item; returns false if the list is not locked or the record has no dialog.
bool LinkList::open(const QListWidgetItem* item)
{
    const auto kind = recordKindOf(m_kind);
    const qint64 key = item == nullptr ? noneKey : item->data(Qt::UserRole).toLongLong();
    if (!m_isLocked || !kind || key == noneKey) return false;
    Q_EMIT opened(*kind, key);
    return true;
}

bool LinkList::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto* press = static_cast<QKeyEvent*>(event);
        const bool isEnter = press->key() == Qt::Key_Return || press->key() == Qt::Key_Enter;
        if (isEnter && !press->modifiers().testFlag(Qt::ControlModifier) && open(m_list->currentItem())) {
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
