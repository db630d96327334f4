// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editors/FormBinding.h"
#include "editors/RecordDialog.h"
#include "records/OrganizationStore.h"

class ChartField;
class EntryCombo;
class FileDrop;
class QLineEdit;
class QTabWidget;

/// The editor of one organization with its profile.
class frmOrganization final : public RecordDialog
{
    Q_OBJECT

public:
    /// The session and the folder must outlive the dialog.
    frmOrganization(const Platform& platform, DatabaseSession& session, const NewEntries& newEntries,
                    const ProgramFolder& folder, QWidget* parent);

    /// Each shows the dialog until the user is done with it, and returns whether a record was saved.
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
    void addSubType();
    void addCity();
    void populateFields(qint64 id) override;
    void showRecord();
    void showState(const QString& state);
    void takeState(QString& state) const;
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

    FormBinding<OrganizationRecord> m_fields;
    FormBinding<OrganizationProfile> m_profileFields;
    QLineEdit* txtOrganizationName = nullptr;
    QLineEdit* txtCity = nullptr;
    EntryCombo* cmbState = nullptr;
    EntryCombo* cmbOrgTypes = nullptr;
    EntryCombo* cmbOrgSubTypes = nullptr;
    EntryCombo* cmbFunctions = nullptr;
    QLineEdit* txtSwornEmployees = nullptr;
    QLineEdit* txtCivilianEmployees = nullptr;
    QLineEdit* txtVolunteers = nullptr;
    QLineEdit* txtAnnualBudget = nullptr;
    ChartField* m_chart = nullptr;
    QTabWidget* m_tabs = nullptr;
    QWidget* m_profilePage = nullptr;
    FileDrop* m_drop = nullptr;
};
