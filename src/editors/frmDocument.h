// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editors/FormBinding.h"
#include "editors/RecordDialog.h"
#include "records/DocumentStore.h"

class EntryCombo;
class FileDrop;
class FormGrid;
class PathEdit;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

/// The editor of one document.
class frmDocument final : public RecordDialog
{
    Q_OBJECT

public:
    /// The session and the folder must outlive the dialog.
    frmDocument(const Platform& platform, DatabaseSession& session, const NewEntries& newEntries,
                const ProgramFolder& folder, QWidget* parent);

    /// Each shows the dialog until the user is done with it, and returns whether a record was saved. `file`
    /// is the path of a file to begin with, or empty.
    bool addDocument(const std::optional<clsFieldInfo>& preset, const QString& file = QString());
    bool editDocument(qint64 id);
    bool viewDocument(qint64 id);

    [[nodiscard]] qint64 recordId() const override { return m_record.id; }
    [[nodiscard]] QString recordName() const override { return m_record.documentName; }

private:
    void makeForm();
    void makeFields(QWidget* page);
    void makeLists(QWidget* page);
    void makeOrganizationField(FormGrid& grid);
    void makeFileField(FormGrid& grid);
    void connectParts();
    void fillComboBoxes();
    void populateFields(qint64 id) override;
    void collectFile();
    void takePreset(const std::optional<clsFieldInfo>& preset);
    void browseForFile();
    void takeFile(const QString& file);
    void rememberFileType(EditorMode mode);
    bool openRecord(EditorMode mode, const char* procedure, qint64 id);
    [[nodiscard]] QWidget* fieldOf(DocumentField field) const;

    [[nodiscard]] QString captionFor(EditorMode mode) const override;
    void applyMode(EditorMode mode) override;
    bool saveRecord() override;

    DocumentStore m_store;
    DocumentRecord m_record;
    QString m_storedPath;    ///< the path that the record was read with
    bool m_takesFile = true; ///< whether the field of the file is shown
    QString m_ownTitle;      ///< the title that was proposed for a file, or empty

    /// The file type that the user did not choose, which a chosen file may change.
    std::optional<qint64> m_ownFileType;

    FormBinding<DocumentRecord> m_fields;
    QLineEdit* txtDocumentName = nullptr;
    EntryCombo* cmbFileTypeNames = nullptr;
    EntryCombo* cmbOrganizationNames = nullptr;
    QPushButton* cmdViewOrganization = nullptr;
    QLabel* lblFilename = nullptr;
    PathEdit* txtOriginalFilename = nullptr;
    QPushButton* cmdUploadDocument = nullptr;
    QPlainTextEdit* rtbDocumentDescription = nullptr;
    FileDrop* m_drop = nullptr;
};
