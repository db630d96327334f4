// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "search/SearchResults.h"

#include <QWidget>

#include <array>

class LinkButton;
class QLabel;
class QToolButton;
class QVBoxLayout;

/// The page with the results of a keyword search of all kinds: the number of records of each kind, as a link
/// to their list, the same for the files if the search looked into them, and a link to the record itself if
/// there is only one.
class SearchResultsPage final : public QWidget
{
    Q_OBJECT

public:
    explicit SearchResultsPage(QWidget* parent);

    void showResults(const SearchResults& results);

    /// Says that the search for a text failed.
    void showFailure(const QString& keywords);

Q_SIGNALS:
    /// The user wants to search again.
    void searchPressed();

    /// The user wants the list of a kind.
    void listChosen(const clsView& view);

    /// The user wants the list of the documents whose files hold the words.
    void filesChosen(const SearchResults& results);

    /// The user wants to see the only record that was found.
    void recordChosen(RecordKind kind, qint64 identifier);

private:
    void layOut();
    void makeKind(std::size_t index, QVBoxLayout& layout);
    void makeFiles(QVBoxLayout& layout);
    LinkButton* makeRow(const QString& picture, QWidget& row);
    void showFiles();
    void focusFirst();

    SearchResults m_results;
    QLabel* m_summary;
    QToolButton* m_search;
    std::array<QWidget*, recordKinds.size()> m_rows{};
    std::array<LinkButton*, recordKinds.size()> m_links{};
    QWidget* m_filesRow = nullptr;
    LinkButton* m_files = nullptr;
    QLabel* m_filesNote = nullptr;
    LinkButton* m_record;
};
