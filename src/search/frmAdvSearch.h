// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "search/AdvancedSearch.h"
#include "search/CriterionControls.h"
#include "search/SearchSurroundings.h"

#include <QDialog>

#include <map>
#include <vector>

class CheckListCriterion;
class ChosenListCriterion;
class CriterionBox;
class ElidedLabel;
class QPushButton;
class QTabWidget;
class RecordPicker;

/// The form for an advanced search: a tab with the criteria of each kind, of which one can be used at a time.
/// A search becomes a view of the main window, which keeps its criteria; opened on such a view, the form
/// shows them again. Lives for one opening.
class frmAdvSearch final : public QDialog
{
    Q_OBJECT

public:
    /// The picker must outlive the form.
    frmAdvSearch(const SearchSurroundings& surroundings, RecordPicker& picker, QWidget* parent);

    /// Opens the form for a kind.
    void doAdvSearch(RecordKind kind);

private:
    void makeTabs();
    void makeTab(RecordKind kind, const QString& title);
    CriterionBox* makeBox(const CriterionControls& controls, QWidget* parent);
    void makeButtons();
    void layOut();
    void fillComboBoxes();
    void pickFor(ChosenListCriterion& criterion, PickListKind records);
    void populateFields(const clsAdvSearch& search);
    void enableOnly(RecordKind kind);

    /// The criteria as the boxes of the kind have them. Throws Error 6 for an identifier beyond 16 bits.
    [[nodiscard]] clsAdvSearch collect() const;
    void showSearchText();
    void cmdSearch();

    struct Tab
    {
        QWidget* page = nullptr;
        std::vector<CriterionBox*> boxes; ///< in the order of the criteria
    };

    struct LookupList
    {
        CheckListCriterion* criterion;
        CriterionControls::Lookup lookup;
    };

    SearchSurroundings m_at;
    RecordPicker& m_picker;
    RecordKind m_kind = RecordKind::Document;
    QTabWidget* m_tabs = nullptr;
    std::map<RecordKind, Tab> m_tabOf;
    std::vector<LookupList> m_lookupLists;
    VenueNames m_venues;
    ElidedLabel* m_text = nullptr;
    QPushButton* m_search = nullptr;
    QPushButton* m_close = nullptr;
};
