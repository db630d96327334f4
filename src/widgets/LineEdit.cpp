// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/LineEdit.h"

#include <QAction>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QRegularExpression>

namespace {

const QRegularExpression& lineEnd()
{
    static const QRegularExpression expression(QStringLiteral("\r\n|[\n\r\v\f\u0085\u2028\u2029]"));
    return expression;
}

QString asOneLine(QString text)
{
    return text.replace(lineEnd(), QStringLiteral(" "));
}

} // namespace

/// Pastes a text of several lines as one; returns false for any other text, which is left to Qt.
bool LineEdit::pasteLines(QClipboard::Mode mode)
{
    const QString text = QGuiApplication::clipboard()->text(mode);
    if (isReadOnly() || !text.contains(lineEnd())) return false;
    insert(asOneLine(text));
    return true;
}

void LineEdit::keyPressEvent(QKeyEvent* event)
{
    // on X11 these keys paste what was marked last
    const bool wantsSelection =
        event->key() == Qt::Key_Insert && event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    const auto mode = wantsSelection ? QClipboard::Selection : QClipboard::Clipboard;
    if (event->matches(QKeySequence::Paste) && pasteLines(mode)) return;
    QLineEdit::keyPressEvent(event);
}

void LineEdit::mouseReleaseEvent(QMouseEvent* event)
{
    const bool pastes = event->button() == Qt::MiddleButton && !isReadOnly();
    if (pastes && QGuiApplication::clipboard()->supportsSelection()) {
        deselect();
        if (pasteLines(QClipboard::Selection)) return;
    }
    QLineEdit::mouseReleaseEvent(event);
}

void LineEdit::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto actions = menu->actions();
    for (QAction* action : actions) {
        // Qt sets no object name for its entry
        if (!action->text().startsWith(QLineEdit::tr("&Paste"))) continue;
        disconnect(action, &QAction::triggered, nullptr, nullptr);
        connect(action, &QAction::triggered, this, [this] {
            if (!pasteLines(QClipboard::Clipboard)) paste();
        });
    }
    menu->popup(event->globalPos());
}

void LineEdit::dropEvent(QDropEvent* event)
{
    const QString text = event->mimeData()->text();
    if (isReadOnly() || !text.contains(lineEnd())) {
        QLineEdit::dropEvent(event);
        return;
    }
    QMimeData oneLine;
    oneLine.setText(asOneLine(text));
    QDropEvent drop(event->position(), event->possibleActions(), &oneLine, event->buttons(),
                    event->modifiers());
    QLineEdit::dropEvent(&drop);
    event->setDropAction(drop.dropAction());
    event->setAccepted(drop.isAccepted());
}
