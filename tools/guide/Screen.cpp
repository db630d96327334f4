// SPDX-License-Identifier: GPL-3.0-or-later

#include "Screen.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEventLoop>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

namespace Screen {

void settle(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void click(QWidget& widget, Qt::MouseButton button, const QPoint& at)
{
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, at, widget.mapToGlobal(at), button,
                          type == QEvent::MouseButtonPress ? button : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

QPixmap withPopup(QWidget& window, QWidget& popup)
{
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    const QPoint at = window.mapFromGlobal(popup.mapToGlobal(QPoint()));
    painter.drawPixmap(at, popup.grab());
    painter.setPen(popup.palette().color(QPalette::Mid));
    painter.drawRect(QRect(at, popup.size()).adjusted(0, 0, -1, -1));
    return picture;
}

QWidget* visibleDialog(const QString& name)
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->objectName() == name && widget->isVisible()) return widget;
    return nullptr;
}

void tick(QAbstractItemView& list, const QStringList& names)
{
    QAbstractItemModel& model = *list.model();
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row, 0);
        if (names.contains(index.data().toString())) model.setData(index, Qt::Checked, Qt::CheckStateRole);
    }
}

} // namespace Screen
