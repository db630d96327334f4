#pragma once

#include "views/clsView.h"

#include <cstddef>
#include <map>
#include <optional>
#include <vector>

/// Shows views of each kind; the main window does.
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

/// Every view that was opened, in the order of opening; positions count from 1. Nothing is ever removed, and
/// a new view goes to the end also where the user had gone back, so the whole trail of a run stays in sight.
class ViewHistory
{
public:
    /// Views are shown through the presenter from now on; it must outlive the history or be taken back.
    void setPresenter(ViewPresenter* presenter) { m_presenter = presenter; }

    void addView(clsView view);

    /// Forgets every view, as when another database takes the place of the one they were made for.
    void clear();

    /// Shows the view at a position from 1 to `count()`; other positions are ignored.
    void showView(std::size_t position);

    /// Whether there was a view to go to.
    bool goBack();
    bool goForward();

    [[nodiscard]] std::size_t count() const { return m_views.size(); }
    [[nodiscard]] const clsView& view(std::size_t position) const { return m_views.at(position - 1); }

    /// The position of the view shown last; 0 before the first.
    [[nodiscard]] std::size_t current() const { return m_current; }
    [[nodiscard]] ViewKind currentKind() const { return m_currentKind; }

    /// What list and graphic ask of the data for the view shown last: its query, or the one that was given in
    /// its place. There must be a view.
    [[nodiscard]] const SharedQuery& currentQuery() const;

    /// Gives the view shown last a query that has the same rows at less cost, until a view is shown again.
    void setCurrentQuery(SharedQuery query) { m_currentQuery = std::move(query); }

    /// The record that is selected in the view shown last, in its list as in its graphic; of several in the
    /// list, the one that the user went to.
    [[nodiscard]] std::optional<qint64> selected() const;
    void select(std::optional<qint64> identifier);

private:
    std::vector<clsView> m_views;
    std::map<std::size_t, qint64> m_selected; ///< by position
    std::size_t m_current = 0;
    ViewKind m_currentKind = ViewKind::Home;
    SharedQuery m_currentQuery; ///< null: the view's own
    ViewPresenter* m_presenter = nullptr;
};
