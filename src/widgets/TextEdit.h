// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPlainTextEdit>

/// A text of several lines. Pasting from an empty clipboard does nothing.
class TextEdit final : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit TextEdit(QWidget* parent) : QPlainTextEdit(parent) {}

protected:
    void insertFromMimeData(const QMimeData* source) override;
};
