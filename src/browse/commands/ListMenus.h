// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <QObject>

#include <map>

class MainCommands;
class QMenu;
class QPoint;
class QWidget;
class RelatedCommands;

/// The pop-up menus for the rows of the list, one for each kind.
class ListMenus final : public QObject
{
    Q_OBJECT

public:
    /// The menus become children of the window; the commands must outlive them.
    ListMenus(const MainCommands& commands, const RelatedCommands& related, QWidget& window);

    /// Opens the menu of a kind at a global position, and returns at once.
    void popUp(RecordKind kind, const QPoint& position);

private:
    std::map<RecordKind, QMenu*> m_menus;
};
