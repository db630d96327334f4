// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/frmAdvSearch.h"

#include "data/DatabaseSession.h"
#include "platform/Procedure.h"
#include "search/CheckListCriterion.h"
#include "search/ChosenListCriterion.h"
#include "search/EventDateCriterion.h"
#include "views/RecordPicker.h"
#include "views/ViewHistory.h"
#include "widgets/ElidedLabel.h"
#include "widgets/WaitCursor.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(1180, 640);
constexpr int columns = 2;

/// Room for the frame that the desktop adds around a window.
constexpr QSize frame(16, 48);

} // namespace

frmAdvSearch::frmAdvSearch(const SearchSurroundings& surroundings, RecordPicker& picker, QWidget* parent)
    : QDialog(parent), m_at(surroundings), m_picker(picker)
{
    setObjectName(QStringLiteral("frmAdvSearch"));
    setWindowTitle(tr("Advanced Search"));
    makeTabs();
    makeButtons();
    layOut();
    fillComboBoxes();
}

void frmAdvSearch::makeTabs()
{
    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("SSTab1"));
    makeTab(RecordKind::Document, tr("Documents"));
    makeTab(RecordKind::Event, tr("Events"));
    makeTab(RecordKind::Organization, tr("Organizations"));
}

void frmAdvSearch::makeTab(RecordKind kind, const QString& title)
{
    Tab& tab = m_tabOf[kind];
    tab.page = new QWidget(m_tabs);
    auto* grid = new QGridLayout(tab.page);
    for (const CriterionControls& controls : criterionControls(kind)) {
        CriterionBox* box = makeBox(controls, tab.page);
        connect(box, &CriterionBox::changed, this, &frmAdvSearch::showSearchText);
        const int place = static_cast<int>(tab.boxes.size());
        grid->addWidget(box, place / columns, place % columns);
        tab.boxes.push_back(box);
    }
    for (int column = 0; column < columns; ++column)
        grid->setColumnStretch(column, 1);
    m_tabs->addTab(tab.page, title);
}

CriterionBox* frmAdvSearch::makeBox(const CriterionControls& controls, QWidget* parent)
{
    if (controls.lookup) {
        auto* box = new CheckListCriterion(controls.stem, controls.caption, parent);
        m_lookupLists.push_back({box, *controls.lookup});
        return box;
    }
    if (!controls.picked) return new EventDateCriterion(controls.stem, controls.caption, parent);
    const CriterionControls::Picked& picked = *controls.picked;
    auto* box = new ChosenListCriterion(
        controls.stem, controls.caption,
        {picked.addName, picked.addCaption, picked.clearName, picked.clearCaption}, parent);
    connect(box, &ChosenListCriterion::addPressed, this,
            [this, box, records = picked.records] { pickFor(*box, records); });
    return box;
}

void frmAdvSearch::makeButtons()
{
    m_text = new ElidedLabel(this);
    m_text->setObjectName(QStringLiteral("lblSearchText"));
    m_search = new QPushButton(tr("Search"), this);
    m_search->setObjectName(QStringLiteral("cmdSearch"));
    m_search->setDefault(true);
    m_close = new QPushButton(tr("Close"), this);
    m_close->setObjectName(QStringLiteral("cmdClose"));
    m_close->setAutoDefault(false);
    connect(m_search, &QPushButton::clicked, this, &frmAdvSearch::cmdSearch);
    connect(m_close, &QPushButton::clicked, this, &frmAdvSearch::reject);
}

void frmAdvSearch::layOut()
{
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(m_text, 1);
    bottom->addWidget(m_search);
    bottom->addWidget(m_close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs, 1);
    layout->addLayout(bottom);
    resize(firstSize.boundedTo(screen()->availableGeometry().size() - frame).expandedTo(minimumSizeHint()));
}

void frmAdvSearch::fillComboBoxes()
{
    runProcedure(m_at.messages, QStringLiteral("fillComboBoxes"), [this] {
        std::map<QString, std::vector<CheckListCriterion::Entry>> tables;
        for (const LookupList& list : m_lookupLists) {
            const auto& [table, keyColumn, nameColumn] = list.lookup;
            const auto [entries, isNew] = tables.try_emplace(table);
            if (isNew) {
                RecordSet rows = m_at.session.read(QStringLiteral("SELECT * FROM ") + table);
                const int key = rows.column(keyColumn);
                const int name = rows.column(nameColumn);
                while (rows.next())
                    entries->second.push_back({rows.integer(key), rows.text(name)});
            }
            list.criterion->setEntries(entries->second);
        }
        for (const CheckListCriterion::Entry& venue : tables[QStringLiteral("Venue")])
            m_venues.insert(QString::number(venue.identifier), venue.name);
    });
}

void frmAdvSearch::doAdvSearch(RecordKind kind)
{
    m_kind = kind;
    enableOnly(kind);
    const ViewHistory& history = m_at.history;
    if (history.current() > 0) {
        const clsAdvSearch& search = history.view(history.current()).AdvSearch;
        if (hasCriteria(search)) {
            runProcedure(m_at.messages, QStringLiteral("populateFields"), [&] { populateFields(search); });
        }
    }
    showSearchText();
    m_tabOf.at(kind).boxes.front()->setFocus();
    open();
}

void frmAdvSearch::enableOnly(RecordKind kind)
{
    const int chosen = m_tabs->indexOf(m_tabOf.at(kind).page);
    m_tabs->setTabEnabled(chosen, true);
    m_tabs->setCurrentIndex(chosen);
    for (int tab = 0; tab < m_tabs->count(); ++tab)
        m_tabs->setTabEnabled(tab, tab == chosen);
}

void frmAdvSearch::populateFields(const clsAdvSearch& search)
{
    for (const auto& [kind, tab] : m_tabOf) {
        const auto& criteria = criteriaOf(kind);
        for (std::size_t i = 0; i < criteria.size(); ++i) {
            CriterionBox& box = *tab.boxes[i];
            box.setOn(search.*criteria[i].flag);
            if (criteria[i].items != nullptr) {
                box.setItems(search.*criteria[i].items);
            } else if (search.*criteria[i].flag) {
                // a search without the date criterion has no dates to show
                dynamic_cast<EventDateCriterion&>(box).readFrom(search);
            }
        }
    }
}

void frmAdvSearch::pickFor(ChosenListCriterion& criterion, PickListKind records)
{
    runProcedure(m_at.messages, QStringLiteral("showList"),
                 [&] { criterion.setItems(m_picker.pick(records, criterion.items(), this)); });
    showSearchText();
}

clsAdvSearch frmAdvSearch::collect() const
{
    clsAdvSearch search;
    const auto& criteria = criteriaOf(m_kind);
    for (std::size_t i = 0; i < criteria.size(); ++i) {
        const CriterionBox& box = *m_tabOf.at(m_kind).boxes[i];
        if (!box.isOn()) continue;
        search.*criteria[i].flag = true;
        if (criteria[i].items != nullptr) {
            search.*criteria[i].items = box.items();
        } else {
            dynamic_cast<const EventDateCriterion&>(box).writeTo(search);
        }
    }
    return search;
}

void frmAdvSearch::showSearchText()
{
    try {
        m_text->setLine(advancedSearchText(m_kind, collect(), m_venues));
    } catch (const Error& error) {
        m_text->setLine(tr("This cannot be searched for: %1").arg(error.description()));
    }
}

void frmAdvSearch::cmdSearch()
{
    runProcedure(m_at.messages, QStringLiteral("cmdSearch"), [this] {
        clsAdvSearch search = collect();
        runProcedure(m_at.messages, QStringLiteral("buildAdvSQL"), [&] { search.buildAdvSQL(); });
        clsView found = advancedView(m_at.queries, m_kind, search);
        // a list yields as it fills: close first, so that nothing in the form can be pressed again
        accept();
        const WaitCursor wait;
        m_at.history.addView(std::move(found));
    });
}
