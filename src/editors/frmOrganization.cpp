#include "editors/frmOrganization.h"

#include "editors/AddressEdit.h"
#include "editors/ChartField.h"
#include "editors/CheckList.h"
#include "editors/EntryCombo.h"
#include "editors/FileDrop.h"
#include "editors/FormControls.h"
#include "editors/FormGrid.h"
#include "platform/FileDialogs.h"
#include "platform/Messages.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>

namespace {

constexpr QSize firstSize(1000, 680);
constexpr int fieldsShare = 3;
constexpr int listsShare = 2;

/// Two columns side by side; gives the widgets to fill.
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

EntryCombo* addCombo(FormGrid& grid, const char* name, const QString& caption, QWidget* page)
{
    auto* combo = new EntryCombo(EntryCombo::Kind::Plain, page);
    combo->setObjectName(QString::fromLatin1(name));
    grid.add(caption, combo);
    return combo;
}

CheckList* addCheckList(FormGrid& grid, const char* name, const QString& caption, QChar keyLetter,
                        QWidget* page)
{
    auto* list = new CheckList(keyLetter, page);
    list->setObjectName(QString::fromLatin1(name));
    grid.addTall(caption, list);
    return list;
}

} // namespace

frmOrganization::frmOrganization(const Platform& platform, ProgramState& state, QWidget* parent)
    : RecordDialog(platform, state, QStringLiteral("frmOrganization"), firstSize, parent),
      m_store(state.session, state.folder, platform.clock)
{
    makeForm();
    connectParts();
}

void frmOrganization::makeForm()
{
    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("tabOrganization"));
    // the ground of the pages is then that of the window, as of the texts in them that are read
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
    txtOrganizationName = grid.line("txtOrganizationName", tr("&Name:"), 2);
    txtAddress1 = grid.line("txtAddress1", tr("&Address:"), 2);
    txtAddress2 = grid.line("txtAddress2", tr("Address line &2:"), 2);
    txtAddress3 = grid.line("txtAddress3", tr("Address line &3:"), 2);
    txtCity = grid.line("txtCity", tr("&City:"));
    cmbState = addCombo(grid, "cmbState", tr("&State:"), page);
    txtZip = grid.line("txtZip", tr("&Zip:"));
    grid.endRow();
    txtTelephone = grid.line("txtTelephone", tr("&Telephone:"));
    txtFax = grid.line("txtFax", tr("Fa&x:"));
    txtWebsite = new AddressEdit(page);
    txtWebsite->setObjectName(QStringLiteral("txtWebsite"));
    grid.add(tr("&Web site:"), txtWebsite, 2);
    rtbResponseActivities = grid.text("rtbResponseActivities", tr("&Response activities:"), 3);
    rtbNotes = grid.text("rtbNotes", tr("Not&es:"), 2);
}

void frmOrganization::makeKindFields(QWidget* page)
{
    FormGrid grid(page, 1);
    cmbOrgTypes = addCombo(grid, "cmbOrgTypes", tr("T&ype:"), page);
    cmbOrgSubTypes = addCombo(grid, "cmbOrgSubTypes", tr("Su&b-type:"), page);
    cmbFunctions = addCombo(grid, "cmbFunctions", tr("F&unction:"), page);
    lvVenues = addCheckList(grid, "lvVenues", tr("&Venues:"), u'v', page);
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
    rtbMissionStatement = grid.text("rtbMissionStatement", tr("&Mission statement:"));
    txtSwornEmployees = grid.line("txtSwornEmployees", tr("&Sworn employees:"));
    txtCivilianEmployees = grid.line("txtCivilianEmployees", tr("&Civilian employees:"));
    txtVolunteers = grid.line("txtVolunteers", tr("&Volunteers:"));
    txtAnnualBudget = grid.line("txtAnnualBudget", tr("Annual &budget:"));
    rtbResources = grid.text("rtbResources", tr("&Resources:"));
    rtbTraining = grid.text("rtbTraining", tr("&Training:"));
    rtbOther = grid.text("rtbOther", tr("Ot&her:"));
    grid.endRow();
    m_chart = new ChartField(page);
    grid.add(tr("Or&ganization chart:"), m_chart, 2);
}

void frmOrganization::makeProfileLists(QWidget* page)
{
    FormGrid grid(page, 1);
    lvJurisdictions = addCheckList(grid, "lvJurisdictions", tr("&Jurisdictions:"), u'j', page);
    lvPopulations = addCheckList(grid, "lvPopulations", tr("&Populations:"), u'p', page);
}

void frmOrganization::connectParts()
{
    connectAddress(txtWebsite);
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

/// A record that could not be read is not opened: what is missing on the screen would be lost by a save.
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

/// Another type has other sub-types; none of them is chosen yet.
void frmOrganization::fillSubTypes()
{
    fillCombo(*cmbOrgSubTypes, [this](auto& entries) { m_store.fillSubTypes(cmbOrgTypes->key(), entries); });
    cmbOrgSubTypes->setCurrentIndex(0);
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
    txtOrganizationName->setText(m_record.organizationName);
    txtAddress1->setText(m_record.address1);
    txtAddress2->setText(m_record.address2);
    txtAddress3->setText(m_record.address3);
    txtCity->setText(m_record.city);
    showState();
    txtZip->setText(m_record.zip);
    txtFax->setText(m_record.fax);
    txtTelephone->setText(m_record.telephone);
    txtWebsite->setText(m_record.website);
    rtbResponseActivities->setPlainText(m_record.responseActivities);
    rtbNotes->setPlainText(m_record.notes);
    cmbFunctions->selectKey(m_record.functionId);
    cmbOrgTypes->selectKey(m_record.organizationTypeId);
    cmbOrgSubTypes->selectKey(m_record.organizationSubTypeId);
    lvVenues->setEntries(m_record.venues);
    showProfile();
}

/// A state that the table of states does not know is offered beside those that it knows: a save would else
/// lose it.
void frmOrganization::showState()
{
    const QString& state = m_record.state;
    if (!state.isEmpty() && cmbState->findText(state, Qt::MatchFixedString) < 0) {
        cmbState->append({state, noneKey});
    }
    cmbState->selectText(state);
}

void frmOrganization::showProfile()
{
    const OrganizationProfile& profile = m_record.profile;
    rtbMissionStatement->setPlainText(profile.missionStatement);
    txtSwornEmployees->setText(profile.swornEmployees);
    txtCivilianEmployees->setText(profile.civilianEmployees);
    txtVolunteers->setText(profile.volunteers);
    txtAnnualBudget->setText(profile.annualBudget);
    rtbResources->setPlainText(profile.resources);
    rtbTraining->setPlainText(profile.training);
    rtbOther->setPlainText(profile.other);
    m_chart->setPath(profile.organizationChart);
    lvJurisdictions->setEntries(profile.jurisdictions);
    lvPopulations->setEntries(profile.populations);
}

void frmOrganization::collectRecord()
{
    m_record.organizationName = txtOrganizationName->text();
    m_record.address1 = txtAddress1->text();
    m_record.address2 = txtAddress2->text();
    m_record.address3 = txtAddress3->text();
    m_record.city = txtCity->text();
    // the letter case of the table of states is not that of every record
    if (cmbState->currentText().compare(m_record.state, Qt::CaseInsensitive) != 0) {
        m_record.state = cmbState->currentText();
    }
    m_record.zip = txtZip->text();
    m_record.fax = txtFax->text();
    m_record.telephone = txtTelephone->text();
    m_record.website = txtWebsite->text();
    m_record.responseActivities = FormControls::text(*rtbResponseActivities, m_record.responseActivities);
    m_record.notes = FormControls::text(*rtbNotes, m_record.notes);
    m_record.functionId = cmbFunctions->key();
    m_record.organizationTypeId = cmbOrgTypes->key();
    m_record.organizationSubTypeId = cmbOrgSubTypes->key();
    m_record.venues = lvVenues->entries();
    collectProfile();
}

void frmOrganization::collectProfile()
{
    OrganizationProfile& profile = m_record.profile;
    profile.missionStatement = FormControls::text(*rtbMissionStatement, profile.missionStatement);
    profile.swornEmployees = txtSwornEmployees->text();
    profile.civilianEmployees = txtCivilianEmployees->text();
    profile.volunteers = txtVolunteers->text();
    profile.annualBudget = txtAnnualBudget->text();
    profile.resources = FormControls::text(*rtbResources, profile.resources);
    profile.training = FormControls::text(*rtbTraining, profile.training);
    profile.other = FormControls::text(*rtbOther, profile.other);
    profile.organizationChart = m_chart->path();
    profile.jurisdictions = lvJurisdictions->entries();
    profile.populations = lvPopulations->entries();
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

/// What the user is told of a chart that a save drops.
QString frmOrganization::droppedText(const QString& path)
{
    return path.isEmpty()
               ? tr("The file of the organization's chart is missing. Saving drops the organization's chart.")
               : tr("There is no file at this path. Saving drops the organization's chart.");
}

/// Whether the chart of the record need not be dropped or the user lets it go.
bool frmOrganization::mayDropChart()
{
    checkChart(); // files come and go
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
    collectRecord();
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
