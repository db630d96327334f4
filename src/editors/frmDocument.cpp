// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/frmDocument.h"

#include "editors/AddressEdit.h"
#include "editors/CheckList.h"
#include "editors/EntryCombo.h"
#include "editors/FieldWithNew.h"
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

frmDocument::frmDocument(const Platform& platform, DatabaseSession& session, const NewEntries& newEntries,
                         const ProgramFolder& folder, QWidget* parent)
    : RecordDialog(platform, session, newEntries, QStringLiteral("frmDocument"), firstSize, parent),
      m_store(session, folder, platform.clock)
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
    using Record = DocumentRecord;
    txtDocumentName = m_fields.bind(grid.line("txtDocumentName", tr("&Title:"), 2), &Record::documentName);
    m_fields.bind(grid.line("txtAuthor", tr("&Author:")), &Record::author);
    m_fields.bind(grid.line("txtDocumentDate", tr("&Date:")), &Record::documentDate);
    m_fields.bind(grid.line("txtPublication", tr("&Publication:")), &Record::publication);
    m_fields.bind(grid.line("txtPubNum", tr("Publication num&ber:")), &Record::pubNum);
    m_fields.bind(grid.line("txtVolume", tr("&Volume:")), &Record::volume);
    m_fields.bind(grid.line("txtPageNum", tr("Pa&ge number:")), &Record::pageNum);
    auto* txtURL = m_fields.bind(new AddressEdit(page), &Record::url);
    txtURL->setObjectName(QStringLiteral("txtURL"));
    connectAddress(txtURL);
    grid.add(tr("&Web address:"), txtURL, 2);
    cmbFileTypeNames = m_fields.bind(new EntryCombo(EntryCombo::Kind::Plain, page), &Record::fileTypeId);
    cmbFileTypeNames->setObjectName(QStringLiteral("cmbFileTypeNames"));
    grid.add(tr("File t&ype:"), withNew(cmbFileTypeNames, ListKind::FileTypes, "cmdNewFileType"));
    m_fields.bind(grid.check("chkKeyDocument", tr("&Key document")), &Record::keyDocument);
    makeOrganizationField(grid);
    makeFileField(grid);
    rtbDocumentDescription = m_fields.bind(grid.text("rtbDocumentDescription", tr("D&escription:"), 3),
                                           &Record::documentDescription);
    m_fields.bind(grid.text("rtbNotes", tr("&Notes:"), 2), &Record::notes);
}

void frmDocument::makeOrganizationField(FormGrid& grid)
{
    auto* field = new QWidget(this);
    auto* layout = new QHBoxLayout(field);
    layout->setContentsMargins(0, 0, 0, 0);
    cmbOrganizationNames =
        m_fields.bind(new EntryCombo(EntryCombo::Kind::Searching, field), &DocumentRecord::organizationId);
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
    m_fields.add(
        [this](const DocumentRecord& record) { txtOriginalFilename->setText(record.originalFilename); },
        [this](DocumentRecord& /*record*/) { collectFile(); });
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
    auto* types = new LinkList({"lstDocTypes", "cmdAddDocType", "cmdClearDocTypes", tr("document types")},
                               PickListKind::DocumentTypes, page);
    grid.addTall(tr("Do&cument types:"), m_fields.bind(types, &DocumentRecord::types));
    auto* categories =
        new LinkList({"lstDocCategories", "cmdAddDocCategory", "cmdClearDocCategories", tr("categories")},
                     PickListKind::DocumentCategories, page);
    grid.addTall(tr("Categor&ies:"), m_fields.bind(categories, &DocumentRecord::categories));
    auto* venues = new CheckList(u'v', page);
    venues->setObjectName(QStringLiteral("lvVenues"));
    m_fields.bind(venues, &DocumentRecord::venues);
    grid.addTall(tr("Ven&ues:"), withNew(venues, ListKind::Venues, "cmdNewVenue"), 2);
    connectList(types);
    connectList(categories);
}

void frmDocument::connectParts()
{
    connect(cmdUploadDocument, &QPushButton::clicked, this, &frmDocument::browseForFile);
    m_drop = new FileDrop(this);
    connectDrop(m_drop, txtOriginalFilename);
    connect(m_drop, &FileDrop::dropped, this, &frmDocument::takeFile);
    connect(cmbFileTypeNames, &QComboBox::activated, this, [this] { m_ownFileType.reset(); });
    connect(cmdViewOrganization, &QPushButton::clicked, this,
            [this] { Q_EMIT recordAsked(RecordKind::Organization, m_record.organizationId); });
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
    m_fields.show(m_record);
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

/// A record that cannot be read is not opened: a save would lose what the screen does not show.
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
    m_fields.show(m_record);
    rememberFileType(EditorMode::Edit);
}

/// A document without a stored file takes the one at the path; a stored path without a file stays as it is.
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

/// The first type of a new document and the "None" of a stored one are no choice of the user.
void frmDocument::rememberFileType(EditorMode mode)
{
    const qint64 key = cmbFileTypeNames->key();
    m_ownFileType = mode == EditorMode::Add || key == noneKey ? std::optional(key) : std::nullopt;
}

/// Takes a chosen file; its name proposes a title and a type unless the user entered others.
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
    m_fields.take(m_record);
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
