// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <cstddef>

class QAction;
class QMenu;
class QString;
class QToolBar;
class ViewHistory;
class QWidget;

/// Navigation as in a web browser: the toolbar's buttons Back and Forward drop down the views before and
/// after the current one, and the mouse's buttons for Back and Forward trigger the commands.
class HistoryNavigation final : public QObject
{
    Q_OBJECT

public:
    /// The history must outlive the object; the actions and the toolbar belong to the window.
    HistoryNavigation(ViewHistory& history, QAction& back, QAction& forward, QToolBar& toolBar,
                      QWidget& window);

    /// Rebuilds the menu of all views, in which the current one is checked.
    void listAll(QMenu& menu);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// The most views that a button drops down; the History menu has them all.
    static constexpr std::size_t longestMenu = 20;

    void fill(QMenu& menu, bool isBack);
    QAction* addEntry(QMenu& menu, std::size_t position);

    ViewHistory& m_history;
    QAction& m_back;
    QAction& m_forward;
    QWidget& m_window;
};
