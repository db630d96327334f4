#pragma once

#include "editors/RecordDialog.h"
#include "records/OrganizationStore.h"

class AddressEdit;
class ChartField;
class CheckList;
class EntryCombo;
class FileDrop;
class QLineEdit;
class QPlainTextEdit;
class QTabWidget;

/// The editor of one organization with its profile.
class frmOrganization final : public RecordDialog
{
    Q_OBJECT

public:
    /// Both must outlive the dialog.
    frmOrganization(const Platform& platform, ProgramState& state, QWidget* parent);

    /// Each shows the dialog until the user has done with it, and is true where a record was saved.
    bool addOrganization();
    bool editOrganization(qint64 id);
    bool viewOrganization(qint64 id);

    [[nodiscard]] qint64 recordId() const override { return m_record.id; }
    [[nodiscard]] QString recordName() const override { return m_record.organizationName; }

private:
    void makeForm();
    QWidget* makeMainPage();
    void makeAddressFields(QWidget* page);
    void makeKindFields(QWidget* page);
    QWidget* makeProfilePage();
    void makeProfileFields(QWidget* page);
    void makeProfileLists(QWidget* page);
    void connectParts();
    bool openRecord(EditorMode mode, const char* procedure, qint64 id);
    void fillComboBoxes();
    void fillSubTypes();
    void populateFields(qint64 id);
    void showRecord();
    void showState();
    void showProfile();
    void collectRecord();
    void collectProfile();
    void browseForChart();
    void checkChart();
    [[nodiscard]] static QString droppedText(const QString& path);
    [[nodiscard]] bool mayDropChart();

    [[nodiscard]] QWidget* fieldOf(OrganizationField field) const;

    [[nodiscard]] QString captionFor(EditorMode mode) const override;
    void applyMode(EditorMode mode) override;
    bool saveRecord() override;

    OrganizationStore m_store;
    OrganizationRecord m_record;

    QLineEdit* txtOrganizationName = nullptr;
    QLineEdit* txtAddress1 = nullptr;
    QLineEdit* txtAddress2 = nullptr;
    QLineEdit* txtAddress3 = nullptr;
    QLineEdit* txtCity = nullptr;
    EntryCombo* cmbState = nullptr;
    QLineEdit* txtZip = nullptr;
    QLineEdit* txtTelephone = nullptr;
    QLineEdit* txtFax = nullptr;
    AddressEdit* txtWebsite = nullptr;
    EntryCombo* cmbOrgTypes = nullptr;
    EntryCombo* cmbOrgSubTypes = nullptr;
    EntryCombo* cmbFunctions = nullptr;
    CheckList* lvVenues = nullptr;
    QPlainTextEdit* rtbResponseActivities = nullptr;
    QPlainTextEdit* rtbNotes = nullptr;

    QPlainTextEdit* rtbMissionStatement = nullptr;
    QLineEdit* txtSwornEmployees = nullptr;
    QLineEdit* txtCivilianEmployees = nullptr;
    QLineEdit* txtVolunteers = nullptr;
    QLineEdit* txtAnnualBudget = nullptr;
    QPlainTextEdit* rtbResources = nullptr;
    QPlainTextEdit* rtbTraining = nullptr;
    QPlainTextEdit* rtbOther = nullptr;
    ChartField* m_chart = nullptr;
    QTabWidget* m_tabs = nullptr;
    QWidget* m_profilePage = nullptr;
    CheckList* lvJurisdictions = nullptr;
    CheckList* lvPopulations = nullptr;
    FileDrop* m_drop = nullptr;
};
