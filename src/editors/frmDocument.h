#pragma once

#include "editors/RecordDialog.h"
#include "records/DocumentStore.h"

class AddressEdit;
class CheckList;
class EntryCombo;
class FileDrop;
class FormGrid;
class PathEdit;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

/// The editor of one document.
class frmDocument final : public RecordDialog
{
    Q_OBJECT

public:
    /// Both must outlive the dialog.
    frmDocument(const Platform& platform, ProgramState& state, QWidget* parent);

    /// Each shows the dialog until the user has done with it, and is true where a record was saved. `file`
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
    void populateFields(qint64 id);
    void showRecord();
    void collectRecord();
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
    bool m_takesFile = true; ///< whether the field for the file is shown
    QString m_ownTitle;      ///< the title that was proposed for a file, or empty

    /// The type that nobody chose, which a chosen file may change.
    std::optional<qint64> m_ownFileType;

    QLineEdit* txtDocumentName = nullptr;
    QLineEdit* txtAuthor = nullptr;
    QLineEdit* txtDocumentDate = nullptr;
    QLineEdit* txtPublication = nullptr;
    QLineEdit* txtPageNum = nullptr;
    QLineEdit* txtPubNum = nullptr;
    QLineEdit* txtVolume = nullptr;
    AddressEdit* txtURL = nullptr;
    EntryCombo* cmbFileTypeNames = nullptr;
    EntryCombo* cmbOrganizationNames = nullptr;
    QPushButton* cmdViewOrganization = nullptr;
    QCheckBox* chkKeyDocument = nullptr;
    QLabel* lblFilename = nullptr;
    PathEdit* txtOriginalFilename = nullptr;
    QPushButton* cmdUploadDocument = nullptr;
    QPlainTextEdit* rtbDocumentDescription = nullptr;
    QPlainTextEdit* rtbNotes = nullptr;
    LinkList* lstDocTypes = nullptr;
    LinkList* lstDocCategories = nullptr;
    CheckList* lvVenues = nullptr;
    FileDrop* m_drop = nullptr;
};
