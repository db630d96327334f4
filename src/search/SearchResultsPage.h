#pragma once

#include "search/SearchResults.h"

#include <QWidget>

#include <array>

class LinkButton;
class QLabel;
class QToolButton;
class QVBoxLayout;

/// The page of what a keyword search of all kinds found: how many records of each kind, as links to their
/// lists, and the record itself where there is just one.
class SearchResultsPage final : public QWidget
{
    Q_OBJECT

public:
    explicit SearchResultsPage(QWidget* parent);

    void showResults(const SearchResults& results);

    /// Shows that the search for a text could not be made.
    void showFailure(const QString& keywords);

Q_SIGNALS:
    /// The user wants to search again.
    void searchPressed();

    /// The user wants the list of a kind.
    void listChosen(const clsView& view);

    /// The user wants the one record that was found.
    void recordChosen(ViewKind kind, qint64 identifier);

private:
    void openList(ViewKind kind);
    void makeKind(std::size_t index, QVBoxLayout& layout);
    void focusFirst();

    SearchResults m_results;
    QLabel* m_summary;
    QToolButton* m_search;
    std::array<QWidget*, searchedKinds.size()> m_rows{};
    std::array<LinkButton*, searchedKinds.size()> m_links{};
    LinkButton* m_record;
};
