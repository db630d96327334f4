#pragma once

#include "platform/Platform.h"
#include "views/SearchKind.h"

#include <QDialog>

#include <array>

class LinkButton;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
struct ProgramState;

/// The dialog for a keyword search: what to look through, and up to four words. What it finds becomes a view
/// of the main window. Made once; each opening begins with the text searched for last.
class frmSearch final : public QDialog
{
    Q_OBJECT

public:
    /// The state must outlive the dialog.
    frmSearch(const Platform& platform, ProgramState& state, QWidget* parent);

    /// Opens the dialog over its window, with the scope that suits the view shown there.
    void doSearch();

Q_SIGNALS:
    /// The user wants to search one kind by its criteria instead.
    void advancedSearchChosen(SearchScope scope);

private:
    static constexpr std::size_t scopes = 4;

    QGroupBox* makeScopes();
    void makeKeywords();
    void makeButtons();
    void layOut(QGroupBox* scopeBox);
    void chooseScope(int index);
    void followLink();
    void cmdGO();
    void doKeywordSearch();

    Platform m_platform;
    ProgramState& m_state;
    SearchScope m_scope = SearchScope::All;
    std::array<QRadioButton*, scopes> m_options{};
    QLineEdit* m_keywords = nullptr;
    LinkButton* m_advanced = nullptr;
    QPushButton* m_go = nullptr;
    QPushButton* m_cancel = nullptr;
};
