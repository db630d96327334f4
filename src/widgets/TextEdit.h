#pragma once

#include <QPlainTextEdit>

/// A text of several lines that can be pasted into at any time, also while there is nothing to paste.
class TextEdit final : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit TextEdit(QWidget* parent) : QPlainTextEdit(parent) {}

protected:
    void insertFromMimeData(const QMimeData* source) override;
};
