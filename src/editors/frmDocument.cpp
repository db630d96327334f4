#include "editors/frmDocument.h"

#include "editors/AddressEdit.h"
#include "editors/CheckList.h"
#include "editors/EntryCombo.h"
#include "editors/FileDrop.h"
#include "editors/FormControls.h"
#include "editors/FormGrid.h"
#include "editors/LinkList.h"
#include "editors/PathEdit.h"
#include "files/FileUpload.h"
#include "platform/FileDialogs.h"
#include "platform/Messages.h"
#include "records/FileHints.h"

#include <QCheckBox>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

constexpr QSize firstSize(1040, 700);
constexpr int fieldsShare = 3;
constexpr int listsShare = 2;

} // namespace

frmDocument::frmDocument(const Platform& platform, ProgramState& state, QWidget* parent)
    : RecordDialog(platform, state, QStringLiteral("frmDocument"), firstSize, parent),
      m_store(state.session, state.folder, platform.clock)
{
    makeForm();
    connectParts();
}

void frmDocument::makeForm()
{
    auto* page = new QWidget(this);
    auto* columns = new QHBoxLayout(page);
    auto* fields = new QWidget(page);
    auto* lists = new QWidget(page);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addWidget(fields, fieldsShare);
    columns->addWidget(lists, listsShare);
    makeFields(fields);
    makeLists(lists);
    setForm(page);
    markRequired({txtDocumentName, txtOriginalFilename, rtbDocumentDescription});
    addFileButton(tr("Open &File"), tr("Opens the file of the document"));
}

void frmDocument::makeFields(QWidget* page)
{
    FormGrid grid(page, 2);
    txtDocumentName = grid.line("txtDocumentName", tr("&Title:"), 2);
    txtAuthor = grid.line("txtAuthor", tr("&Author:"));
    txtDocumentDate = grid.line("txtDocumentDate", tr("&Date:"));
    txtPublication = grid.line("txtPublication", tr("&Publication:"));
    txtPubNum = grid.line("txtPubNum", tr("Publication num&ber:"));
    txtVolume = grid.line("txtVolume", tr("&Volume:"));
    txtPageNum = grid.line("txtPageNum", tr("Pa&ge number:"));
    txtURL = new AddressEdit(page);
    txtURL->setObjectName(QStringLiteral("txtURL"));
    grid.add(tr("&Web address:"), txtURL, 2);
    cmbFileTypeNames = new EntryCombo(EntryCombo::Kind::Plain, page);
    cmbFileTypeNames->setObjectName(QStringLiteral("cmbFileTypeNames"));
    grid.add(tr("File t&ype:"), cmbFileTypeNames);
    chkKeyDocument = grid.check("chkKeyDocument", tr("&Key document"));
    makeOrganizationField(grid);
    makeFileField(grid);
    rtbDocumentDescription = grid.text("rtbDocumentDescription", tr("D&escription:"), 3);
    rtbNotes = grid.text("rtbNotes", tr("&Notes:"), 2);
}

void frmDocument::makeOrganizationField(FormGrid& grid)
{
    auto* field = new QWidget(this);
    auto* layout = new QHBoxLayout(field);
    layout->setContentsMargins(0, 0, 0, 0);
    cmbOrganizationNames = new EntryCombo(EntryCombo::Kind::Searching, field);
    cmbOrganizationNames->setObjectName(QStringLiteral("cmbOrganizationNames"));
    cmdViewOrganization = new QPushButton(tr("View"), field);
    cmdViewOrganization->setObjectName(QStringLiteral("cmdViewOrganization"));
    cmdViewOrganization->setAccessibleName(tr("View the source organization"));
    cmdViewOrganization->setToolTip(tr("Shows the source organization"));
    cmdViewOrganization->setAutoDefault(false);
    layout->addWidget(cmbOrganizationNames, 1);
    layout->addWidget(cmdViewOrganization);
    field->setFocusProxy(cmbOrganizationNames);
    grid.add(tr("Source &organization:"), field, 2);
}

void frmDocument::makeFileField(FormGrid& grid)
{
    auto* field = new QWidget(this);
    auto* layout = new QHBoxLayout(field);
    layout->setContentsMargins(0, 0, 0, 0);
    txtOriginalFilename = new PathEdit(field);
    txtOriginalFilename->setObjectName(QStringLiteral("txtOriginalFilename"));
    cmdUploadDocument = new QPushButton(tr("B&rowse…"), field);
    cmdUploadDocument->setObjectName(QStringLiteral("cmdUploadDocument"));
    cmdUploadDocument->setAutoDefault(false);
    layout->addWidget(txtOriginalFilename);
    layout->addWidget(cmdUploadDocument);
    field->setFocusProxy(txtOriginalFilename);
    lblFilename = grid.add(tr("Document &file:"), field, 2);
    lblFilename->setObjectName(QStringLiteral("lblFilename"));
}

void frmDocument::makeLists(QWidget* page)
{
    FormGrid grid(page, 1);
    lstDocTypes = new LinkList({"lstDocTypes", "cmdAddDocType", "cmdClearDocTypes", tr("document types")},
                               PickListKind::DocumentTypes, page);
    grid.addTall(tr("Do&cument types:"), lstDocTypes);
    lstDocCategories =
        new LinkList({"lstDocCategories", "cmdAddDocCategory", "cmdClearDocCategories", tr("categories")},
                     PickListKind::DocumentCategories, page);
    grid.addTall(tr("Categor&ies:"), lstDocCategories);
    lvVenues = new CheckList(u'v', page);
    lvVenues->setObjectName(QStringLiteral("lvVenues"));
    grid.addTall(tr("Ven&ues:"), lvVenues, 2);
}

void frmDocument::connectParts()
{
    connectList(lstDocTypes);
    connectList(lstDocCategories);
    connectAddress(txtURL);
    connect(cmdUploadDocument, &QPushButton::clicked, this, &frmDocument::browseForFile);
    m_drop = new FileDrop(this);
    connectDrop(m_drop, txtOriginalFilename);
    connect(m_drop, &FileDrop::dropped, this, &frmDocument::takeFile);
    connect(cmbFileTypeNames, &QComboBox::activated, this, [this] { m_ownFileType.reset(); });
    connect(cmdViewOrganization, &QPushButton::clicked, this,
            [this] { Q_EMIT recordAsked(PickListKind::Organizations, m_record.organizationId); });
}

bool frmDocument::addDocument(const std::optional<clsFieldInfo>& preset, const QString& file)
{
    const bool isReady = runTrapped("addDocument", [&] {
        fillComboBoxes();
        if (isLocked()) return;
        takePreset(preset);
        rememberFileType(EditorMode::Add);
        if (!file.isEmpty()) takeFile(file);
    });
    return isReady && !isLocked() && run(EditorMode::Add, txtDocumentName);
}

void frmDocument::takePreset(const std::optional<clsFieldInfo>& preset)
{
    const auto refusal = preset ? DocumentStore::refusalOfPreset(*preset) : std::nullopt;
    if (refusal) platform().messages.show(*refusal);
    m_record = m_store.blank(preset);
    if (preset && !refusal) cmbOrganizationNames->append({preset->FieldText, preset->FieldID});
    showRecord();
    if (refusal) {
        cmbOrganizationNames->setCurrentIndex(-1);
    } else if (preset) {
        cmbOrganizationNames->setCurrentIndex(cmbOrganizationNames->count() - 1);
    }
}

bool frmDocument::editDocument(qint64 id)
{
    return openRecord(EditorMode::Edit, "editDocument", id);
}

bool frmDocument::viewDocument(qint64 id)
{
    return openRecord(EditorMode::View, "viewDocument", id);
}

/// A record that could not be read is not opened: what is missing on the screen would be lost by a save.
bool frmDocument::openRecord(EditorMode mode, const char* procedure, qint64 id)
{
    if (!runTrapped(procedure, [this] { fillComboBoxes(); }) || isLocked()) return false;
    FormControls::clear(*form());
    return runTrapped("populateFields", [&] { populateFields(id); }) && run(mode, txtDocumentName);
}

void frmDocument::fillComboBoxes()
{
    fillCombo(*cmbFileTypeNames, [this](auto& entries) { m_store.fillFileTypes(entries); });
    fillCombo(*cmbOrganizationNames, [this](auto& entries) { m_store.fillOrganizations(entries); });
}

void frmDocument::populateFields(qint64 id)
{
    LoadedRecord<DocumentRecord> loaded = m_store.load(id);
    if (!loaded.isFound) platform().messages.show(DocumentStore::notFoundMessage(id));
    m_record = std::move(loaded.record);
    m_record.id = id;
    m_storedPath = m_record.originalFilename;
    showRecord();
    rememberFileType(EditorMode::Edit);
}

void frmDocument::showRecord()
{
    txtDocumentName->setText(m_record.documentName);
    txtAuthor->setText(m_record.author);
    txtDocumentDate->setText(m_record.documentDate);
    txtPublication->setText(m_record.publication);
    txtPageNum->setText(m_record.pageNum);
    txtPubNum->setText(m_record.pubNum);
    txtVolume->setText(m_record.volume);
    txtURL->setText(m_record.url);
    txtOriginalFilename->setText(m_record.originalFilename);
    chkKeyDocument->setChecked(m_record.keyDocument);
    rtbDocumentDescription->setPlainText(m_record.documentDescription);
    rtbNotes->setPlainText(m_record.notes);
    cmbFileTypeNames->selectKey(m_record.fileTypeId);
    cmbOrganizationNames->selectKey(m_record.organizationId);
    lstDocTypes->setEntries(m_record.types);
    lstDocCategories->setEntries(m_record.categories);
    lvVenues->setEntries(m_record.venues);
}

void frmDocument::collectRecord()
{
    m_record.documentName = txtDocumentName->text();
    m_record.author = txtAuthor->text();
    m_record.documentDate = txtDocumentDate->text();
    m_record.publication = txtPublication->text();
    m_record.pageNum = txtPageNum->text();
    m_record.pubNum = txtPubNum->text();
    m_record.volume = txtVolume->text();
    m_record.url = txtURL->text();
    collectFile();
    m_record.keyDocument = chkKeyDocument->isChecked();
    m_record.documentDescription = FormControls::text(*rtbDocumentDescription, m_record.documentDescription);
    m_record.notes = FormControls::text(*rtbNotes, m_record.notes);
    m_record.fileTypeId = cmbFileTypeNames->key();
    m_record.organizationId = cmbOrganizationNames->key();
    m_record.types = lstDocTypes->entries();
    m_record.categories = lstDocCategories->entries();
    m_record.venues = lvVenues->entries();
}

/// A document without a file gets the one that the path names; a stored path that names none stays as it is.
void frmDocument::collectFile()
{
    if (!m_takesFile) return;
    const QString path = txtOriginalFilename->path();
    m_record.originalFilename = path;
    m_record.takesFile =
        path != m_storedPath || (QDir::isAbsolutePath(path) && FileUpload::existingFile(path));
}

void frmDocument::browseForFile()
{
    const QString file =
        platform().fileDialogs.openFile(tr("Document File"), tr("All Files") + QStringLiteral(" (*.*)| *.*"));
    if (!file.isEmpty()) takeFile(file);
}

/// The type that a new document begins with, and the "None" of a stored one, say nothing yet.
void frmDocument::rememberFileType(EditorMode mode)
{
    const qint64 key = cmbFileTypeNames->key();
    m_ownFileType = mode == EditorMode::Add || key == noneKey ? std::optional(key) : std::nullopt;
}

/// Takes a chosen file, with what its name says as long as the user says nothing else.
void frmDocument::takeFile(const QString& file)
{
    txtOriginalFilename->setText(file);
    if (txtDocumentName->text().isEmpty() || txtDocumentName->text() == m_ownTitle) {
        m_ownTitle = FileHints::title(file);
        txtDocumentName->setText(m_ownTitle);
    }
    if (m_ownFileType != cmbFileTypeNames->key()) return;
    if (const auto type = FileHints::fileType(file, cmbFileTypeNames->entries())) {
        cmbFileTypeNames->selectKey(*type);
        m_ownFileType = type;
    }
}

QString frmDocument::captionFor(EditorMode mode) const
{
    switch (mode) {
    case EditorMode::Add:
        return tr("Add a New Document");
    case EditorMode::Edit:
        return tr("Editing DocumentID %1").arg(m_record.id);
    case EditorMode::View:
        break;
    }
    return tr("Viewing DocumentID %1 (Read-Only)").arg(m_record.id);
}

void frmDocument::applyMode(EditorMode mode)
{
    m_takesFile = mode == EditorMode::Add || (mode == EditorMode::Edit && !m_store.hasFile(m_record));
    lblFilename->setVisible(m_takesFile);
    txtOriginalFilename->setVisible(m_takesFile);
    cmdUploadDocument->setVisible(m_takesFile);
    m_drop->setEnabled(m_takesFile);
    const bool hasOrganization = mode == EditorMode::View && m_record.organizationId != noneKey;
    cmdViewOrganization->setVisible(hasOrganization);
    cmdViewOrganization->setEnabled(hasOrganization);
}

QWidget* frmDocument::fieldOf(DocumentField field) const
{
    switch (field) {
    case DocumentField::DocumentName:
        return txtDocumentName;
    case DocumentField::DocumentDescription:
        return rtbDocumentDescription;
    case DocumentField::OriginalFilename:
        break;
    }
    return txtOriginalFilename;
}

bool frmDocument::saveRecord()
{
    collectRecord();
    if (const auto problem = DocumentStore::check(m_record)) {
        return refuse(problem->message, fieldOf(problem->field));
    }
    if (!cmbOrganizationNames->isSettled()) {
        return refuse(tr("There is no organization \"%1\". Please choose one from the list.")
                          .arg(cmbOrganizationNames->currentText()),
                      cmbOrganizationNames);
    }
    const auto field = [this](DocumentField each) { return fieldOf(each); };
    if (mode() == EditorMode::Add) {
        return writeTrapped<DocumentStore::Problem>(
            "saveDocument", [this] { return m_store.saveDocument(m_record); }, field);
    }
    return updateTrapped("updateDocument", m_record.stored,
                         [this] { return m_store.updateDocument(m_record); });
}
