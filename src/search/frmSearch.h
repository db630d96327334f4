// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"
#include "search/SearchSurroundings.h"

#include <QDialog>

#include <array>
#include <optional>

class LinkButton;
class QCheckBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

/// The dialog for a keyword search: the kind of record to look through, or all, and up to four words, which
/// may be looked for in the files, too. Its result becomes a view of the main window. Made once; each opening
/// begins with what was searched for last.
class frmSearch final : public QDialog
{
    Q_OBJECT

public:
    frmSearch(const SearchSurroundings& surroundings, QWidget* parent);

    /// Opens the dialog over its window, set to the kind of record that is shown there.
    void doSearch();

    /// Searches for a text without opening the dialog, as if it had been typed there.
    void search(std::optional<RecordKind> scope, const QString& text);

Q_SIGNALS:
    /// The user wants to search a kind by its criteria instead.
    void advancedSearchChosen(RecordKind kind);

private:
    /// What each option looks through; without a kind, all.
    static constexpr std::array<std::optional<RecordKind>, 4> scopes{
        std::nullopt, RecordKind::Document, RecordKind::Event, RecordKind::Organization};

    QGroupBox* makeScopes();
    void makeKeywords();
    void makeFiles();
    void makeButtons();
    void layOut(QGroupBox* scopeBox);
    void chooseScope(std::optional<RecordKind> scope);
    void enableFiles();
    void followLink();
    void cmdGO();
    void doKeywordSearch();

    SearchSurroundings m_at;
    QString m_lastKeywords; ///< as typed
    bool m_lastInFiles = false;
    std::optional<RecordKind> m_scope;
    std::array<QRadioButton*, scopes.size()> m_options{};
    QLineEdit* m_keywords = nullptr;
    QCheckBox* m_files = nullptr;
    LinkButton* m_advanced = nullptr;
    QPushButton* m_go = nullptr;
    QPushButton* m_cancel = nullptr;
};
