// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/frmOrganization.h"

#include "editors/AddressEdit.h"
#include "editors/ChartField.h"
#include "editors/CheckList.h"
#include "editors/EntryCombo.h"
#include "editors/FieldWithNew.h"
#include "editors/FileDrop.h"
#include "editors/FormControls.h"
#include "editors/FormGrid.h"
#include "platform/FileDialogs.h"
#include "platform/Messages.h"
#include "widgets/LineEdit.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>

namespace {

constexpr QSize firstSize(1000, 680);
constexpr int fieldsShare = 3;
constexpr int listsShare = 2;

/// Adds two columns side by side and returns the widgets to fill.
std::pair<QWidget*, QWidget*> addColumns(QWidget* page)
{
    auto* columns = new QHBoxLayout(page);
    columns->setContentsMargins(0, 0, 0, 0);
    auto* left = new QWidget(page);
    auto* right = new QWidget(page);
    columns->addWidget(left, fieldsShare);
    columns->addWidget(right, listsShare);
    return {left, right};
}

EntryCombo* makeCombo(const char* name, QWidget* page)
{
    auto* combo = new EntryCombo(EntryCombo::Kind::Plain, page);
    combo->setObjectName(QString::fromLatin1(name));
    return combo;
}

CheckList* makeCheckList(const char* name, QChar keyLetter, QWidget* page)
{
    auto* list = new CheckList(keyLetter, page);
    list->setObjectName(QString::fromLatin1(name));
    return list;
}

} // namespace

frmOrganization::frmOrganization(const Platform& platform, DatabaseSession& session,
                                 const NewEntries& newEntries, const ProgramFolder& folder, QWidget* parent)
    : RecordDialog(platform, session, newEntries, QStringLiteral("frmOrganization"), firstSize, parent),
      m_store(session, folder, platform.clock)
{
    makeForm();
    connectParts();
}

void frmOrganization::makeForm()
{
    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("tabOrganization"));
    // gives the pages the background of the window, as locked texts have it
    m_tabs->setDocumentMode(true);
    m_tabs->addTab(makeMainPage(), tr("&Organization"));
    m_profilePage = makeProfilePage();
    m_tabs->addTab(m_profilePage, tr("Pro&file"));
    setForm(m_tabs);
    markRequired({txtOrganizationName});
    addFileButton(tr("Open Chart"), tr("Opens the chart of the organization"));
}

QWidget* frmOrganization::makeMainPage()
{
    auto* page = new QWidget(this);
    const auto [left, right] = addColumns(page);
    makeAddressFields(left);
    makeKindFields(right);
    return page;
}

void frmOrganization::makeAddressFields(QWidget* page)
{
    FormGrid grid(page, 2);
    using Record = OrganizationRecord;
    txtOrganizationName =
        m_fields.bind(grid.line("txtOrganizationName", tr("&Name:"), 2), &Record::organizationName);
    m_fields.bind(grid.line("txtAddress1", tr("&Address:"), 2), &Record::address1);
    m_fields.bind(grid.line("txtAddress2", tr("Address line &2:"), 2), &Record::address2);
    m_fields.bind(grid.line("txtAddress3", tr("Address line &3:"), 2), &Record::address3);
    txtCity = m_fields.bind(new LineEdit(page), &Record::city);
    txtCity->setObjectName(QStringLiteral("txtCity"));
    auto* city = new FieldWithNew(txtCity, ListKind::Cities, "cmdNewCity", page);
    connect(city, &FieldWithNew::newPressed, this, &frmOrganization::addCity);
    grid.add(tr("&City:"), city, 2);
    cmbState = makeCombo("cmbState", page);
    grid.add(tr("&State:"), withNew(cmbState, ListKind::States, "cmdNewState"));
    m_fields.add([this](const Record& record) { showState(record.state); },
                 [this](Record& record) { takeState(record.state); });
    m_fields.bind(grid.line("txtZip", tr("&Zip:")), &Record::zip);
    m_fields.bind(grid.line("txtTelephone", tr("&Telephone:")), &Record::telephone);
    m_fields.bind(grid.line("txtFax", tr("Fa&x:")), &Record::fax);
    auto* txtWebsite = m_fields.bind(new AddressEdit(page), &Record::website);
    txtWebsite->setObjectName(QStringLiteral("txtWebsite"));
    connectAddress(txtWebsite);
    grid.add(tr("&Web site:"), txtWebsite, 2);
    m_fields.bind(grid.text("rtbResponseActivities", tr("&Response activities:"), 3),
                  &Record::responseActivities);
    m_fields.bind(grid.text("rtbNotes", tr("Not&es:"), 2), &Record::notes);
}

void frmOrganization::makeKindFields(QWidget* page)
{
    using Record = OrganizationRecord;
    FormGrid grid(page, 1);
    cmbOrgTypes = m_fields.bind(makeCombo("cmbOrgTypes", page), &Record::organizationTypeId);
    grid.add(tr("T&ype:"), withNew(cmbOrgTypes, ListKind::OrganizationTypes, "cmdNewOrgType"));
    // after the type, which brings the sub-types
    cmbOrgSubTypes = m_fields.bind(makeCombo("cmbOrgSubTypes", page), &Record::organizationSubTypeId);
    auto* subType =
        new FieldWithNew(cmbOrgSubTypes, ListKind::OrganizationSubTypes, "cmdNewOrgSubType", page);
    connect(subType, &FieldWithNew::newPressed, this, &frmOrganization::addSubType);
    grid.add(tr("Su&b-type:"), subType);
    cmbFunctions = m_fields.bind(makeCombo("cmbFunctions", page), &Record::functionId);
    grid.add(tr("F&unction:"), withNew(cmbFunctions, ListKind::Functions, "cmdNewFunction"));
    auto* venues = m_fields.bind(makeCheckList("lvVenues", u'v', page), &Record::venues);
    grid.addTall(tr("&Venues:"), withNew(venues, ListKind::Venues, "cmdNewVenue"));
}

QWidget* frmOrganization::makeProfilePage()
{
    auto* page = new QWidget(this);
    const auto [left, right] = addColumns(page);
    makeProfileFields(left);
    makeProfileLists(right);
    return page;
}

void frmOrganization::makeProfileFields(QWidget* page)
{
    FormGrid grid(page, 2);
    using Profile = OrganizationProfile;
    auto& fields = m_profileFields;
    fields.bind(grid.text("rtbMissionStatement", tr("&Mission statement:")), &Profile::missionStatement);
    txtSwornEmployees =
        fields.bind(grid.line("txtSwornEmployees", tr("&Sworn employees:")), &Profile::swornEmployees);
    txtCivilianEmployees = fields.bind(grid.line("txtCivilianEmployees", tr("&Civilian employees:")),
                                       &Profile::civilianEmployees);
    txtVolunteers = fields.bind(grid.line("txtVolunteers", tr("&Volunteers:")), &Profile::volunteers);
    txtAnnualBudget =
        fields.bind(grid.line("txtAnnualBudget", tr("Annual &budget:")), &Profile::annualBudget);
    fields.bind(grid.text("rtbResources", tr("&Resources:")), &Profile::resources);
    fields.bind(grid.text("rtbTraining", tr("&Training:")), &Profile::training);
    fields.bind(grid.text("rtbOther", tr("Ot&her:")), &Profile::other);
    grid.endRow();
    m_chart = fields.bind(new ChartField(page), &Profile::organizationChart);
    grid.add(tr("Or&ganization chart:"), m_chart, 2);
}

void frmOrganization::makeProfileLists(QWidget* page)
{
    FormGrid grid(page, 1);
    auto* jurisdictions =
        m_fields.bind(makeCheckList("lvJurisdictions", u'j', page), &OrganizationRecord::jurisdictions);
    grid.addTall(tr("&Jurisdictions:"),
                 withNew(jurisdictions, ListKind::Jurisdictions, "cmdNewJurisdiction"));
    auto* populations =
        m_fields.bind(makeCheckList("lvPopulations", u'p', page), &OrganizationRecord::populations);
    grid.addTall(tr("&Populations:"), withNew(populations, ListKind::Populations, "cmdNewPopulation"));
}

void frmOrganization::connectParts()
{
    connect(cmbOrgTypes, &QComboBox::currentIndexChanged, this, &frmOrganization::fillSubTypes);
    connect(m_chart, &ChartField::browsePressed, this, &frmOrganization::browseForChart);
    connect(m_chart, &ChartField::pathChanged, this, &frmOrganization::checkChart);
    m_drop = new FileDrop(this);
    connectDrop(m_drop, m_chart->focusProxy());
    connect(m_drop, &FileDrop::dropped, m_chart, &ChartField::setPath);
}

bool frmOrganization::addOrganization()
{
    const bool isReady = runTrapped("addOrganization", [this] {
        fillComboBoxes();
        if (isLocked()) return;
        m_record = m_store.blank();
        showRecord();
        for (EntryCombo* combo : {cmbOrgTypes, cmbState, cmbFunctions})
            combo->setCurrentIndex(0);
    });
    return isReady && !isLocked() && run(EditorMode::Add, txtOrganizationName);
}

bool frmOrganization::editOrganization(qint64 id)
{
    return openRecord(EditorMode::Edit, "editOrganization", id);
}

bool frmOrganization::viewOrganization(qint64 id)
{
    return openRecord(EditorMode::View, "viewOrganization", id);
}

/// A record that cannot be read is not opened: a save would lose what the screen does not show.
bool frmOrganization::openRecord(EditorMode mode, const char* procedure, qint64 id)
{
    if (!runTrapped(procedure, [this] { fillComboBoxes(); }) || isLocked()) return false;
    FormControls::clear(*form());
    return runTrapped("populateFields", [&] { populateFields(id); }) && run(mode, txtOrganizationName);
}

void frmOrganization::fillComboBoxes()
{
    fillCombo(*cmbState, [this](auto& entries) { m_store.fillStates(entries); });
    fillCombo(*cmbOrgTypes, [this](auto& entries) { m_store.fillOrganizationTypes(entries); });
    fillCombo(*cmbFunctions, [this](auto& entries) { m_store.fillFunctions(entries); });
}

/// Another type has other sub-types, of which none is chosen yet.
void frmOrganization::fillSubTypes()
{
    fillCombo(*cmbOrgSubTypes, [this](auto& entries) { m_store.fillSubTypes(cmbOrgTypes->key(), entries); });
    cmbOrgSubTypes->setCurrentIndex(0);
}

/// A new sub-type belongs to the type of the organization; if that is "None", the user chooses both.
void frmOrganization::addSubType()
{
    LookupEntry preset;
    preset.typeId = cmbOrgTypes->key();
    const auto added = addEntry(ListKind::OrganizationSubTypes, preset);
    if (!added) return;
    if (added->typeId == cmbOrgTypes->key()) {
        cmbOrgSubTypes->append({added->name, added->key});
    } else {
        cmbOrgTypes->selectKey(added->typeId);
    }
    cmbOrgSubTypes->selectKey(added->key);
}

/// Adds the city as it is typed to the known ones, with its position.
void frmOrganization::addCity()
{
    LookupEntry preset;
    preset.name = txtCity->text().trimmed();
    preset.detail = cmbState->currentText();
    bool isKnown = false;
    const bool isRead =
        runTrapped("addCity", [&] { isKnown = newEntries().isKnownCity(preset.name, preset.detail); });
    if (!isRead) return;
    if (isKnown) {
        platform().messages.show(
            tr("The city \"%1, %2\" has a position already.").arg(preset.name, preset.detail));
        return;
    }
    const auto added = addEntry(ListKind::Cities, preset);
    if (!added) return;
    txtCity->setText(added->name);
    cmbState->selectText(added->detail);
}

void frmOrganization::populateFields(qint64 id)
{
    LoadedRecord<OrganizationRecord> loaded = m_store.load(id);
    if (!loaded.isFound) platform().messages.show(OrganizationStore::notFoundMessage(id));
    m_record = std::move(loaded.record);
    m_record.id = id;
    showRecord();
}

void frmOrganization::showRecord()
{
    m_fields.show(m_record);
    m_profileFields.show(m_record.profile);
}

/// A state that is missing in the table of states is offered beside those in it: a save would lose it
/// otherwise.
void frmOrganization::showState(const QString& state)
{
    if (!state.isEmpty() && cmbState->findText(state, Qt::MatchFixedString) < 0) {
        cmbState->append({state, noneKey});
    }
    cmbState->selectText(state);
}

/// The table of states and the records may differ in letter case.
void frmOrganization::takeState(QString& state) const
{
    if (cmbState->currentText().compare(state, Qt::CaseInsensitive) != 0) state = cmbState->currentText();
}

void frmOrganization::browseForChart()
{
    const QString file = platform().fileDialogs.openFile(tr("Organization Chart"),
                                                         tr("All Files") + QStringLiteral(" (*.*)| *.*"));
    if (!file.isEmpty()) m_chart->setPath(file);
}

void frmOrganization::checkChart()
{
    const ChartPath chart = m_store.chartPath(m_record, m_chart->path());
    const bool isDropped = chart.outcome == ChartOutcome::Dropped && mode() != EditorMode::View;
    const bool isMistyped =
        chart.outcome == ChartOutcome::Kept && m_chart->path() != m_record.profile.organizationChart;
    if (isDropped) {
        m_chart->warn(droppedText(m_chart->path()), chart.storedCopy);
    } else if (isMistyped) {
        m_chart->warn(tr("There is no file at this path. The stored copy stays."), std::nullopt);
    } else {
        m_chart->dropWarning();
    }
    const int profile = m_tabs->indexOf(m_profilePage);
    m_tabs->setTabIcon(profile, isDropped ? QIcon::fromTheme(QStringLiteral("data-warning")) : QIcon());
    m_tabs->setTabToolTip(profile, isDropped ? droppedText(m_chart->path()) : QString());
}

/// The warning about a chart that a save drops.
QString frmOrganization::droppedText(const QString& path)
{
    return path.isEmpty()
               ? tr("The file of the organization's chart is missing. Saving drops the organization's chart.")
               : tr("There is no file at this path. Saving drops the organization's chart.");
}

/// Returns whether the chart stays or the user agrees to drop it.
bool frmOrganization::mayDropChart()
{
    checkChart(); // the file may be gone by now
    const QString& path = m_record.profile.organizationChart;
    if (m_store.chartPath(m_record, path).outcome != ChartOutcome::Dropped) return true;
    const QString question = tr("%1 Save all the same?").arg(droppedText(path));
    const QString where = path.isEmpty() ? QString() : path + QStringLiteral("\n\n");
    if (platform().messages.ask(where + question, Question::Loss)) {
        return true;
    }
    bringIntoSight(m_chart);
    return false;
}

QString frmOrganization::captionFor(EditorMode mode) const
{
    switch (mode) {
    case EditorMode::Add:
        return tr("Add a New Organization");
    case EditorMode::Edit:
        return tr("Editing OrganizationID %1").arg(m_record.id);
    case EditorMode::View:
        break;
    }
    return tr("Viewing Organization %1 (Read-Only)").arg(m_record.id);
}

void frmOrganization::applyMode(EditorMode mode)
{
    m_drop->setEnabled(mode != EditorMode::View);
    checkChart();
}

QWidget* frmOrganization::fieldOf(OrganizationField field) const
{
    switch (field) {
    case OrganizationField::SwornEmployees:
        return txtSwornEmployees;
    case OrganizationField::CivilianEmployees:
        return txtCivilianEmployees;
    case OrganizationField::Volunteers:
        return txtVolunteers;
    case OrganizationField::AnnualBudget:
        return txtAnnualBudget;
    case OrganizationField::OrganizationName:
        break;
    }
    return txtOrganizationName;
}

bool frmOrganization::saveRecord()
{
    m_fields.take(m_record);
    m_profileFields.take(m_record.profile);
    if (const auto problem = OrganizationStore::check(m_record)) {
        return refuse(problem->message, fieldOf(problem->field));
    }
    if (!mayDropChart()) return false;
    const auto field = [this](OrganizationField each) { return fieldOf(each); };
    if (mode() == EditorMode::Add) {
        return writeTrapped<OrganizationStore::Problem>(
            "saveOrganization", [this] { return m_store.saveOrganization(m_record); }, field);
    }
    return updateTrapped("updateOrganization", m_record.stored,
                         [this] { return m_store.updateOrganization(m_record); });
}
