// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "views/clsView.h"

#include <cstddef>
#include <map>
#include <optional>
#include <vector>

/// Shows the views of the history; the pages of the main window do.
class ViewPresenter
{
public:
    virtual ~ViewPresenter() = default;

    virtual void showDocuments(const SharedQuery& query, const QString& caption) = 0;
    virtual void showEvents(const SharedQuery& query, const QString& caption) = 0;
    virtual void showOrganizations(const SharedQuery& query, const QString& caption) = 0;
    virtual void showHome() = 0;
    virtual void showSearchResults() = 0;

protected:
    ViewPresenter() = default;
    ViewPresenter(const ViewPresenter&) = default;
    ViewPresenter& operator=(const ViewPresenter&) = default;
};

/// Every view that was opened, in the order of opening; positions count from 1. A new view goes to the end
/// even if the user had gone back, and no view is removed, so the user sees the whole trail of a run.
class ViewHistory
{
public:
    /// Shows views through the presenter from now on, or none with a null pointer. A presenter that does not
    /// outlive the history must be replaced before it goes.
    void setPresenter(ViewPresenter* presenter) { m_presenter = presenter; }

    void addView(clsView view);

    /// Removes every view, when another database is opened.
    void clear();

    /// Shows the view at a position from 1 to `count()`; ignores other positions.
    void showView(std::size_t position);

    /// Shows the view before or after the one shown last; returns false if there is none.
    bool goBack();
    bool goForward();

    [[nodiscard]] std::size_t count() const { return m_views.size(); }
    [[nodiscard]] const clsView& view(std::size_t position) const { return m_views.at(position - 1); }

    /// The position of the view shown last; 0 before the first.
    [[nodiscard]] std::size_t current() const { return m_current; }
    [[nodiscard]] ViewKind currentKind() const { return m_currentKind; }

    /// The query of the view shown last, for its list; the cheaper one if one was set. There must be a view.
    [[nodiscard]] const SharedQuery& currentQuery() const;

    /// Sets a query for the view shown last that returns the same rows at less cost; lasts until a view is
    /// shown again.
    void setCurrentQuery(SharedQuery query) { m_currentQuery = std::move(query); }

    /// The query of the view shown last, for its graphic: the narrowed one if one was set. There must be a
    /// view.
    [[nodiscard]] const SharedQuery& graphicQuery() const
    {
        return m_narrowedQuery ? m_narrowedQuery : currentQuery();
    }

    /// Sets a query for those records of the view shown last that its filter leaves; lasts until a view is
    /// shown again.
    void setNarrowedQuery(SharedQuery query) { m_narrowedQuery = std::move(query); }

    /// The record that is selected in the list and in the graphic of the view shown last; if several are
    /// selected in the list, the one that the user went to last.
    [[nodiscard]] std::optional<qint64> selected() const;
    void select(std::optional<qint64> identifier);

    /// The words by which the list of the view shown last is narrowed, as typed; empty if it shows all.
    [[nodiscard]] QString filter() const;
    void setFilter(const QString& words);

private:
    std::vector<clsView> m_views;
    std::map<std::size_t, qint64> m_selected; ///< by position
    std::map<std::size_t, QString> m_filters; ///< by position
    std::size_t m_current = 0;
    ViewKind m_currentKind = ViewKind::Home;
    SharedQuery m_currentQuery;  ///< null for the view's own
    SharedQuery m_narrowedQuery; ///< null for the current one
    ViewPresenter* m_presenter = nullptr;
};
