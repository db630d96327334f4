#pragma once

#include "platform/Platform.h"
#include "search/AdvancedSearch.h"
#include "search/CriterionControls.h"
#include "views/SearchKind.h"

#include <QDialog>

#include <array>
#include <vector>

class CheckListCriterion;
class ChosenListCriterion;
class CriterionBox;
class ElidedLabel;
class QPushButton;
class QTabWidget;
struct ProgramState;

/// The form for an advanced search: the criteria of one kind at a time, one tab for each. A search becomes a
/// view of the main window, which keeps the criteria; opened on such a view, the form shows them again. Lives
/// for one opening.
class frmAdvSearch final : public QDialog
{
    Q_OBJECT

public:
    /// Both must outlive the form. Without a picker, nothing can be added to the lists of picked records.
    frmAdvSearch(const Platform& platform, ProgramState& state, RecordPicker& picker, QWidget* parent);

    /// Opens the form for a kind that has a list.
    void doAdvSearch(ViewKind kind);

private:
    void makeTabs();
    QWidget* makeTab(ViewKind kind);
    CriterionBox* makeBox(const CriterionControls& controls, QWidget* parent);
    void makeButtons();
    void layOut();
    void fillComboBoxes();
    void pickFor(ChosenListCriterion& criterion, RecordPicker::Records records);
    void populateFields(const clsAdvSearch& search);
    void enableOnly(ViewKind kind);

    /// What the boxes of the kind say. Throws Error 6 for an identifier beyond 16 bits.
    [[nodiscard]] clsAdvSearch collect() const;
    void showSearchText();
    void cmdSearch();

    [[nodiscard]] const std::vector<CriterionBox*>& boxes(ViewKind kind) const
    {
        return m_boxes[static_cast<std::size_t>(kind)];
    }

    Platform m_platform;
    ProgramState& m_state;
    RecordPicker& m_picker;
    ViewKind m_kind = ViewKind::Documents;
    QTabWidget* m_tabs = nullptr;
    struct LookupList
    {
        CheckListCriterion* criterion;
        CriterionControls::Lookup lookup;
    };

    std::vector<LookupList> m_lookupLists;
    std::array<std::vector<CriterionBox*>, searchedKinds.size()> m_boxes;
    VenueNames m_venues;
    ElidedLabel* m_text = nullptr;
    QPushButton* m_search = nullptr;
    QPushButton* m_close = nullptr;
};
