// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QClipboard>
#include <QLineEdit>

/// A line whose text is one line: line ends that are pasted or dropped into it become blanks. A text that the
/// program sets stays as it is.
class LineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit LineEdit(QWidget* parent) : QLineEdit(parent) {}

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    bool pasteLines(QClipboard::Mode mode);
};
