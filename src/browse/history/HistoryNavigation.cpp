// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/history/HistoryNavigation.h"

#include "views/ViewHistory.h"
#include "widgets/PlainToolTip.h"

#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

HistoryNavigation::HistoryNavigation(ViewHistory& history, QAction& back, QAction& forward, QToolBar& toolBar,
                                     QWidget& window)
    : QObject(&window), m_history(history), m_back(back), m_forward(forward), m_window(window)
{
    for (QAction* action : {&back, &forward}) {
        auto* button = qobject_cast<QToolButton*>(toolBar.widgetForAction(action));
        if (button == nullptr) continue;
        auto* menu = new QMenu(button);
        menu->setObjectName(action->objectName() + QStringLiteral("Views"));
        button->setMenu(menu);
        button->setPopupMode(QToolButton::MenuButtonPopup);
        connect(menu, &QMenu::aboutToShow, this, [this, menu, action] { fill(*menu, action == &m_back); });
    }
    // the buttons have to work over all parts of the window, most of which would handle the press themselves
    QCoreApplication::instance()->installEventFilter(this);
}

void HistoryNavigation::fill(QMenu& menu, bool isBack)
{
    menu.clear();
    const std::size_t current = m_history.current();
    if (isBack) {
        const std::size_t last = current > longestMenu ? current - longestMenu : 1;
        for (std::size_t position = current; position > last; --position)
            addEntry(menu, position - 1);
    } else {
        const std::size_t last = std::min(m_history.count(), current + longestMenu);
        for (std::size_t position = current + 1; position <= last; ++position)
            addEntry(menu, position);
    }
    if (menu.isEmpty()) menu.addAction(tr("There is no other view."))->setEnabled(false);
}

void HistoryNavigation::listAll(QMenu& menu)
{
    menu.clear();
    for (std::size_t position = 1; position <= m_history.count(); ++position) {
        QAction* entry = addEntry(menu, position);
        entry->setObjectName(QStringLiteral("mnuHistoryList(%1)").arg(position - 1));
        entry->setCheckable(true);
        entry->setChecked(position == m_history.current());
    }
    menu.setEnabled(m_history.count() > 0);
}

/// Adds the entry of a view, with its caption shortened if it is long; the tool tip then has all of it.
QAction* HistoryNavigation::addEntry(QMenu& menu, std::size_t position)
{
    constexpr int widestEntry = 400;
    const QString& caption = m_history.view(position).Caption;
    QString text = menu.fontMetrics().elidedText(caption, Qt::ElideMiddle, widestEntry);
    const bool isShortened = text != caption;
    // a menu would take an ampersand in a record's name for the mark of a key
    QAction* entry = menu.addAction(text.replace(u'&', QStringLiteral("&&")));
    if (isShortened) entry->setToolTip(PlainToolTip::text(caption));
    menu.setToolTipsVisible(true);
    connect(entry, &QAction::triggered, this, [this, position] { m_history.showView(position); });
    return entry;
}

bool HistoryNavigation::eventFilter(QObject* watched, QEvent* event)
{
    const bool isPress =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (!isPress) return QObject::eventFilter(watched, event);
    const Qt::MouseButton button = static_cast<QMouseEvent*>(event)->button();
    if (button != Qt::BackButton && button != Qt::ForwardButton) return QObject::eventFilter(watched, event);
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || widget->window() != &m_window) return QObject::eventFilter(watched, event);
    (button == Qt::BackButton ? m_back : m_forward).trigger();
    return true;
}
