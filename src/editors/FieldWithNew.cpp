// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/FieldWithNew.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QPushButton>

FieldWithNew::FieldWithNew(QWidget* field, ListKind list, const char* button, QWidget* parent)
    : QWidget(parent), m_new(new QPushButton(tr("New…"), this))
{
    m_new->setObjectName(QString::fromLatin1(button));
    m_new->setAccessibleName(tr("New: %1").arg(listEntryWord(list)));
    m_new->setToolTip(tr("Adds an entry to the list: %1").arg(listTitle(list)));
    m_new->setAutoDefault(false);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(field, 1);
    const bool isTall = qobject_cast<QAbstractItemView*>(field) != nullptr;
    layout->addWidget(m_new, 0, isTall ? Qt::AlignTop : Qt::Alignment());
    setFocusProxy(field);
    connect(m_new, &QPushButton::clicked, this, &FieldWithNew::newPressed);
}

void FieldWithNew::setOffered(bool isOffered)
{
    m_new->setVisible(isOffered);
}
