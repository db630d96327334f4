// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/PickListView.h"

#include "widgets/LineDelegate.h"

#include <QHeaderView>
#include <QKeyEvent>

PickListView::PickListView(QWidget* parent) : QTreeView(parent)
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setItemDelegate(new LineDelegate(this));
    header()->setSectionsClickable(true);
    header()->setStretchLastSection(false);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void PickListView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
        Q_EMIT spacePressed();
        return;
    }
    QTreeView::keyPressEvent(event);
}
