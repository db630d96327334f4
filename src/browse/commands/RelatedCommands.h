// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "views/RelatedViews.h"

#include <QObject>

#include <array>

class ListPane;
class Messages;
class QAction;
class QMenu;
class ViewHistory;

/// The six commands that show the records linked to the selected one, or offer to add one if there are none.
/// They are in the pop-up menus of the lists and in a menu of their own, which shows only those for the
/// listed kind.
class RelatedCommands final : public QObject
{
    Q_OBJECT

public:
    /// Views are added to the history. All but the parent must outlive the commands.
    RelatedCommands(Messages& messages, RelatedViews views, ViewHistory& history, ListPane& list,
                    QObject* parent);

    /// The commands for a kind of record.
    [[nodiscard]] QList<QAction*> actions(RecordKind source) const;

    /// Adds all commands to a menu, which must outlive them.
    void addTo(QMenu& menu);

    /// Enables the commands that the list's selection allows. `hindrance` says why there is no list, and is
    /// empty if there is one.
    void enable(const QString& hindrance);

Q_SIGNALS:
    /// The user answered Yes to the offer to add a record.
    void additionWanted(const RecordAddition& addition);

private:
    static constexpr std::size_t count = 6;

    void add(RelatedCommand command, const char* name, const QString& text, const QString& icon,
             const QString& statusTip, Qt::Key key);
    void follow(RelatedCommand command);

    Messages& m_messages;
    RelatedViews m_views;
    ViewHistory& m_history;
    ListPane& m_list;
    std::array<QAction*, count> m_actions{};
    QMenu* m_menu = nullptr;
};
