// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "views/clsCities.h"

#include <QMenu>

#include <vector>

class QAction;

/// The pop-up menu of a marker or a disc. Names a city or a state only if all that stands there is in it.
class PlacesMenu final : public QMenu
{
    Q_OBJECT

public:
    explicit PlacesMenu(QWidget* parent);

    /// Opens the menu at a point of the screen, for the entries that are drawn as one; there must be some.
    void offer(const std::vector<clsCities>& places, const QPoint& position);

Q_SIGNALS:
    void cityChosen(const clsCities& place);
    void stateChosen(const clsCities& place);

    /// The organizations of all places that the menu was opened for.
    void allChosen();

private:
    clsCities m_place; ///< one of those that the menu was opened for
    QAction* m_city;
    QAction* m_state;
    QAction* m_all;
};
