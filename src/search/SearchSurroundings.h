// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class DatabaseSession;
class Messages;
class ViewHistory;
struct StandardQueries;

/// What the searches read, and where their results and messages go. All must outlive who holds it.
struct SearchSurroundings
{
    Messages& messages;
    DatabaseSession& session;
    ViewHistory& history;
    const StandardQueries& queries;
};
