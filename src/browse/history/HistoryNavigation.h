#pragma once

#include <QObject>

#include <cstddef>

class QAction;
class QMenu;
class QString;
class QToolBar;
class ViewHistory;
class QWidget;

/// What makes going back and forth as it is in other browsers: the toolbar's buttons Back and Forward drop
/// down the views that lie that way, and the mouse's own buttons for it do the same as they.
class HistoryNavigation final : public QObject
{
    Q_OBJECT

public:
    /// The history must outlive the object; the rest belongs to the window.
    HistoryNavigation(ViewHistory& history, QAction& back, QAction& forward, QToolBar& toolBar,
                      QWidget& window);

    /// Adds the entry of a view to a menu that lists views. A long caption is shortened; a tip tells all of
    /// it.
    static QAction* addCaption(QMenu& menu, QString caption);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// How many views a button drops down; the History menu has them all.
    static constexpr std::size_t longestMenu = 20;

    void fill(QMenu& menu, bool isBack);
    void addEntry(QMenu& menu, std::size_t position);

    ViewHistory& m_history;
    QAction& m_back;
    QAction& m_forward;
    QWidget& m_window;
};
