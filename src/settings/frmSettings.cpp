// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/frmSettings.h"

#include "files/FolderList.h"
#include "platform/FileDialogs.h"
#include "platform/Messages.h"
#include "platform/Shell.h"
#include "settings/FolderField.h"
#include "views/clsView.h"
#include "widgets/DialogButtons.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>
#include <QUrl>

namespace {

constexpr int folderWidth = 420;
constexpr int textSizeStep = 5;

QFormLayout* formOf(QGroupBox& box)
{
    auto* form = new QFormLayout(&box);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return form;
}

void addRow(QFormLayout& form, const QString& caption, QWidget* field, QWidget* focused)
{
    auto* label = new QLabel(caption, form.parentWidget());
    label->setBuddy(focused);
    form.addRow(label, field);
}

} // namespace

frmSettings::frmSettings(const Preferences& preferences, const Surroundings& surroundings, QWidget* parent)
    : QDialog(parent), m_before(preferences), m_at(surroundings)
{
    setObjectName(QStringLiteral("frmSettings"));
    setWindowTitle(tr("Settings"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeStart());
    layout->addWidget(makeLook());
    layout->addWidget(makeFolders());
    QDialogButtonBox* buttons = DialogButtons::okAndCancel(*this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addStretch();
    layout->addWidget(buttons);
}

QGroupBox* frmSettings::makeStart()
{
    auto* box = new QGroupBox(tr("At the next start"), this);
    QFormLayout* form = formOf(*box);
    QWidget* database = makeStartDatabase(box);
    addRow(*form, tr("&Collection:"), database, m_startDatabase);
    m_startPage = new QComboBox(box);
    m_startPage->setObjectName(QStringLiteral("cmbStartPage"));
    m_startPage->setAccessibleName(tr("Page at the start"));
    const auto offer = [this](ViewKind page, const QString& name) {
        m_startPage->addItem(name, static_cast<int>(page));
    };
    offer(ViewKind::Home, tr("Home Page"));
    offer(ViewKind::Documents, tr("Documents"));
    offer(ViewKind::Events, tr("Events"));
    offer(ViewKind::Organizations, tr("Organizations"));
    m_startPage->setCurrentIndex(m_startPage->findData(static_cast<int>(m_before.startPage)));
    addRow(*form, tr("&Page:"), m_startPage, m_startPage);
    return box;
}

QWidget* frmSettings::makeStartDatabase(QWidget* parent)
{
    auto* field = new QWidget(parent);
    m_startDatabase = new QComboBox(field);
    m_startDatabase->setObjectName(QStringLiteral("cmbStartDatabase"));
    m_startDatabase->setAccessibleName(tr("Collection at the start"));
    // a long path must not make the window wide
    m_startDatabase->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_startDatabase->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* browse = new QPushButton(tr("C&hoose…"), field);
    browse->setObjectName(QStringLiteral("cmdStartDatabase"));
    browse->setAccessibleName(tr("Choose the collection at the start"));
    browse->setAutoDefault(false);
    m_noStartDatabase = new QLabel(tr("This file does not exist."), field);
    m_noStartDatabase->setObjectName(QStringLiteral("lblStartDatabase"));
    auto* grid = new QGridLayout(field);
    grid->setContentsMargins({});
    grid->addWidget(m_startDatabase, 0, 0);
    grid->addWidget(browse, 0, 1);
    grid->addWidget(m_noStartDatabase, 1, 0, 1, 2);

    connect(browse, &QPushButton::clicked, this, &frmSettings::chooseStartDatabase);
    connect(m_startDatabase, &QComboBox::currentIndexChanged, this, &frmSettings::checkStartDatabase);
    m_startDatabase->addItem(tr("The one that was open last"), QString());
    if (!m_at.openDatabase.isEmpty()) offerStartDatabase(m_at.openDatabase);
    m_startDatabase->setCurrentIndex(0);
    if (!m_before.startDatabase.isEmpty()) offerStartDatabase(m_before.startDatabase);
    checkStartDatabase();
    return field;
}

/// Chooses a database, which is added if it is not among the choices yet.
void frmSettings::offerStartDatabase(const QString& file)
{
    int index = m_startDatabase->findData(file);
    if (index < 0) {
        const QFileInfo info(file);
        m_startDatabase->addItem(
            tr("%1 in %2").arg(info.completeBaseName(), QDir::toNativeSeparators(info.path())), file);
        index = m_startDatabase->count() - 1;
    }
    m_startDatabase->setCurrentIndex(index);
}

void frmSettings::chooseStartDatabase()
{
    const QString file = m_at.platform.fileDialogs.openFile(
        tr("Collection at the Start"), tr("Databases") + QStringLiteral(" (*.sqlite)|*.sqlite|") +
                                           tr("All Files") + QStringLiteral(" (*.*)| *.*"));
    if (!file.isEmpty()) offerStartDatabase(file);
}

void frmSettings::checkStartDatabase()
{
    const QString file = m_startDatabase->currentData().toString();
    m_startDatabase->setToolTip(QDir::toNativeSeparators(file));
    m_noStartDatabase->setVisible(!file.isEmpty() && !QFileInfo(file).isFile());
}

QGroupBox* frmSettings::makeLook()
{
    auto* box = new QGroupBox(tr("In the window"), this);
    QFormLayout* form = formOf(*box);
    m_listTextSize = new QSpinBox(box);
    m_listTextSize->setObjectName(QStringLiteral("spnListTextSize"));
    m_listTextSize->setAccessibleName(tr("Size of the text in lists, in percent of the desktop's"));
    m_listTextSize->setRange(Preferences::smallestTextSize, Preferences::largestTextSize);
    m_listTextSize->setSingleStep(textSizeStep);
    m_listTextSize->setSuffix(tr(" % of the desktop's"));
    m_listTextSize->setValue(m_before.listTextSize);
    addRow(*form, tr("&Text in lists:"), m_listTextSize, m_listTextSize);
    m_fourDigitYears = new QCheckBox(tr("Show &years in lists with four digits"), box);
    m_fourDigitYears->setObjectName(QStringLiteral("chkFourDigitYears"));
    m_fourDigitYears->setChecked(m_before.fourDigitYears);
    form->addRow(m_fourDigitYears);
    m_asksOnExit = new QCheckBox(tr("&Ask before exiting"), box);
    m_asksOnExit->setObjectName(QStringLiteral("chkAskOnExit"));
    m_asksOnExit->setChecked(m_before.asksOnExit);
    form->addRow(m_asksOnExit);
    return box;
}

QGroupBox* frmSettings::makeFolders()
{
    auto* box = new QGroupBox(tr("Folders"), this);
    QFormLayout* form = formOf(*box);
    const auto add = [&](const QString& name, const QString& caption, const QString& title,
                         const QString& folder, const QString& hint) {
        auto* field = new FolderField(name, title, m_at.platform.fileDialogs, box);
        field->setMinimumWidth(folderWidth);
        field->setHint(hint);
        field->setFolder(folder);
        addRow(*form, caption, field, field->focusProxy());
        return field;
    };
    m_collectionsPlace = add(QStringLiteral("CollectionsPlace"), tr("&New collections:"),
                             tr("Place of New Collections"), m_before.collectionsPlace, m_at.home);
    const QString discHint = tr("Folder with its files, if there is no drive");
    m_dataDisc = add(QStringLiteral("DataDisc"), tr("&Data disc:"), tr("Folder in Place of the Data Disc"),
                     m_before.discFolders.data, discHint);
    m_photosDisc = add(QStringLiteral("PhotosDisc"), tr("Ph&otos disc:"),
                       tr("Folder in Place of the Photos Disc"), m_before.discFolders.photos, discHint);
    QWidget* backups = makeBackups(box);
    addRow(*form, tr("&Backups:"), backups, m_backups);
    return box;
}

/// Where the open database is backed up by itself, which is told and cannot be changed.
QWidget* frmSettings::makeBackups(QWidget* parent)
{
    auto* field = new QWidget(parent);
    m_backups = new QLineEdit(field);
    m_backups->setObjectName(QStringLiteral("txtBackups"));
    m_backups->setAccessibleName(tr("Folder of the backups"));
    m_backups->setReadOnly(true);
    auto* show = new QPushButton(tr("Op&en"), field);
    show->setObjectName(QStringLiteral("cmdBackups"));
    show->setAccessibleName(tr("Open the folder of the backups"));
    show->setAutoDefault(false);
    auto* note = new QLabel(backupsText(), field);
    note->setObjectName(QStringLiteral("lblBackups"));
    note->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* grid = new QGridLayout(field);
    grid->setContentsMargins({});
    grid->addWidget(m_backups, 0, 0);
    grid->addWidget(show, 0, 1);
    grid->addWidget(note, 1, 0, 1, 2);
    connect(show, &QPushButton::clicked, this, &frmSettings::openBackups);
    if (m_at.backups) {
        m_backups->setText(QDir::toNativeSeparators(m_at.backups->folder()));
        m_backups->setCursorPosition(0);
    }
    show->setEnabled(m_at.backups && QFileInfo(m_at.backups->folder()).isDir());
    return field;
}

/// How many backups there are, and how large they are.
QString frmSettings::backupsText() const
{
    if (!m_at.backups) return tr("No database is open.");
    FolderList::Amount kept;
    for (const KeptBackups::Kept& backup : m_at.backups->list()) {
        ++kept.files;
        kept.bytes += backup.size;
    }
    if (kept.files == 1) return tr("1 backup of the open database, %1").arg(kept.sizeText());
    if (kept.files > 1)
        return tr("%1 backups of the open database, %2").arg(QLocale().toString(kept.files), kept.sizeText());
    return m_at.backups->canBeAdded()
               ? tr("There is no backup of the open database yet.")
               : tr("There is no backup of the open database, since its folder is read-only.");
}

void frmSettings::openBackups()
{
    const QString folder = m_at.backups->folder();
    if (m_at.platform.shell.open(QUrl::fromLocalFile(folder))) return;
    m_at.platform.messages.show(
        tr("No program of the desktop opens folders. (%1)").arg(QDir::toNativeSeparators(folder)));
}

Preferences frmSettings::chosen() const
{
    Preferences chosen = m_before;
    chosen.startDatabase = m_startDatabase->currentData().toString();
    chosen.startPage = static_cast<ViewKind>(m_startPage->currentData().toInt());
    chosen.asksOnExit = m_asksOnExit->isChecked();
    chosen.listTextSize = m_listTextSize->value();
    chosen.fourDigitYears = m_fourDigitYears->isChecked();
    chosen.collectionsPlace = m_collectionsPlace->folder();
    chosen.discFolders = {m_dataDisc->folder(), m_photosDisc->folder()};
    return chosen;
}
