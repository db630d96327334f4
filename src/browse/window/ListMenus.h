#pragma once

#include "views/clsView.h"

#include <QList>
#include <QObject>

#include <map>

class MainCommands;
class QAction;
class QMenu;
class QPoint;
class QWidget;
class RelatedCommands;

/// The pop-up menus of the rows of each list.
class ListMenus final : public QObject
{
    Q_OBJECT

public:
    /// The menus become children of the window; the commands must outlive them.
    ListMenus(const MainCommands& commands, const RelatedCommands& related, QWidget& window);

    /// Opens the menu of a kind at a global position, and returns at once.
    void popUp(ViewKind kind, const QPoint& position);

private:
    std::map<ViewKind, QMenu*> m_menus;
};
