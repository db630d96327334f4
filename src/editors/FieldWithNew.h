// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "lists/ListKind.h"

#include <QWidget>

class QPushButton;

/// A field that offers the entries of a list, with a button beside it that asks for a new one.
class FieldWithNew final : public QWidget
{
    Q_OBJECT

public:
    /// Takes the field over. `button` is the object name of the button.
    FieldWithNew(QWidget* field, ListKind list, const char* button, QWidget* parent);

    /// Whether the button is there, as while a record can be changed.
    void setOffered(bool isOffered);

Q_SIGNALS:
    void newPressed();

private:
    QPushButton* m_new;
};
