// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/FieldWithNew.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QPushButton>

FieldWithNew::FieldWithNew(QWidget* field, ListKind list, const char* button, QWidget* parent)
    : QWidget(parent)
{
    auto* cmdNew = new QPushButton(tr("New…"), this);
    cmdNew->setObjectName(QString::fromLatin1(button));
    cmdNew->setAccessibleName(tr("New: %1").arg(listEntryWord(list)));
    cmdNew->setToolTip(tr("Adds an entry to the list: %1").arg(listTitle(list)));
    cmdNew->setAutoDefault(false);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(field, 1);
    const bool isTall = qobject_cast<QAbstractItemView*>(field) != nullptr;
    layout->addWidget(cmdNew, 0, isTall ? Qt::AlignTop : Qt::Alignment());
    setFocusProxy(field);
    connect(cmdNew, &QPushButton::clicked, this, &FieldWithNew::newPressed);
}
