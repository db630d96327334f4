// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "views/ViewHistory.h"

#include <QStackedWidget>

class BrowsePage;
class EmptyList;
class GraphicViews;
class HomePage;
class ListPane;
class Messages;
class SearchCommands;

/// The pages of the main window, one of which is shown at a time: the home page, the list with its graphic,
/// and the search results. Shows the views of the history. Lives as long as the window.
class ViewPages final : public QStackedWidget, private ViewPresenter
{
    Q_OBJECT

public:
    /// What the pages consist of. All must outlive them.
    struct Parts
    {
        HomePage& home;
        BrowsePage& browse;
        ListPane& list;
        EmptyList& emptyList;
        SearchCommands& search;
        GraphicViews& graphics;
    };

    /// Becomes the presenter of the history, which must outlive the pages.
    ViewPages(Messages& messages, ViewHistory& history, const Parts& parts, QWidget* parent);
    ~ViewPages() override;

    /// Whether the page with the list is shown.
    [[nodiscard]] bool showsList() const;

    /// Shows the current view again, with the data of this moment. The home page has none.
    void refresh();

Q_SIGNALS:
    /// A view is about to be read and shown.
    void viewAsked();

    /// Another page, or a list of another kind, is shown; its records are still to be read.
    void pageChanged();

    /// A view is shown; `count` says how many rows it has, and is empty for a page without a list.
    void viewShown(const QString& caption, const QString& count);

private:
    void showDocuments(const SharedQuery& query, const QString& caption) override;
    void showEvents(const SharedQuery& query, const QString& caption) override;
    void showOrganizations(const SharedQuery& query, const QString& caption) override;
    void showHome() override;
    void showSearchResults() override;

    void showList(RecordKind kind, const QString& procedure, const SharedQuery& query,
                  const QString& caption);
    void showPage(QWidget& page);
    void showFiltered();

    Messages& m_messages;
    ViewHistory& m_history;
    Parts m_parts;
};
