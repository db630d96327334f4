// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "lists/ListKind.h"

#include <QWidget>

/// A field that offers the entries of a list, with a button beside it that asks for a new one.
class FieldWithNew final : public QWidget
{
    Q_OBJECT

public:
    /// Takes the field over. `button` is the object name of the button.
    FieldWithNew(QWidget* field, ListKind list, const char* button, QWidget* parent);

Q_SIGNALS:
    void newPressed();
};
