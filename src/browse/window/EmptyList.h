// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <QObject>

#include <functional>

class DatabaseSession;
class EmptyResultNotice;
class ListPane;
class MainCommands;
class SearchCommands;
class ViewHistory;
struct StandardQueries;

/// What a list without rows says, and the link to what can be done about it: add the first record, change the
/// search, take the filter away, or go back. Lives as long as the window.
class EmptyList final : public QObject
{
    Q_OBJECT

public:
    /// What the text depends on and the link leads to. All must outlive the object.
    struct Surroundings
    {
        const DatabaseSession& session;
        const ViewHistory& history;
        const StandardQueries& queries;
        SearchCommands& search;
        const MainCommands& commands;
        std::function<QString()> unwritable; ///< why no record can be added, or an empty text
    };

    /// Becomes a child of the window. The list must outlive it.
    EmptyList(Surroundings surroundings, ListPane& list, QWidget& window);

    void hide();

    /// Shows the notice for the current view, of which no rows came or the filter leaves none. `isListed` is
    /// whether they could be read; if not, a message has said why.
    void show(RecordKind kind, bool isListed);

private:
    void show(const QString& text, const QString& link = {}, std::function<void()> follow = {});
    void showNoRecords(RecordKind kind);

    Surroundings m_at;
    ListPane& m_list;
    EmptyResultNotice* m_notice;
    std::function<void()> m_follow; ///< what the link does
};
