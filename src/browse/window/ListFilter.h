// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class GraphicViews;
class ListPane;
class MainCommands;
class ViewHistory;

/// Narrows the list, and its graphic with it, to the records with the words that the user types. Lives as
/// long as the window.
class ListFilter final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the object.
    ListFilter(ViewHistory& history, ListPane& list, GraphicViews& graphics, const MainCommands& commands,
               QObject* parent);

Q_SIGNALS:
    /// The list shows other records than before; the count is that of the status bar.
    void narrowed(const QString& count);

private:
    ViewHistory& m_history;
    ListPane& m_list;
    GraphicViews& m_graphics;
};
