// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/frmNewDatabase.h"

#include "files/ProgramFolder.h"
#include "opening/NewCollection.h"
#include "opening/SampleCollection.h"
#include "platform/FileDialogs.h"
#include "platform/Procedure.h"
#include "widgets/LineEdit.h"
#include "widgets/WaitCursor.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

constexpr int nameWidth = 490;
constexpr int longestInput = 255;

QLabel& addLabel(QGridLayout& form, const QString& text, QWidget& buddy)
{
    auto* label = new QLabel(text, buddy.parentWidget());
    label->setBuddy(&buddy);
    form.addWidget(label, form.rowCount(), 0);
    return *label;
}

/// A path as the user knows it, which a label may break after each folder.
QString breakable(const QString& path)
{
    const QChar breakHere(0x200B);
    return QDir::toNativeSeparators(path).replace(QDir::separator(), QString(QDir::separator()) + breakHere);
}

} // namespace

frmNewDatabase::frmNewDatabase(const Platform& platform, const ProgramFolder& home, const QString& place,
                               QWidget* parent)
    : QDialog(parent),
      m_platform(platform),
      m_home(home),
      m_name(new LineEdit(this)),
      m_place(new LineEdit(this)),
      m_folder(new QLabel(this))
{
    setObjectName(QStringLiteral("frmNewDatabase"));
    setWindowTitle(tr("New Database"));
    auto* form = new QGridLayout;
    m_name->setObjectName(QStringLiteral("txtName"));
    m_name->setMaxLength(longestInput);
    m_name->setMinimumWidth(nameWidth);
    addLabel(*form, tr("&Name:"), *m_name);
    form->addWidget(m_name, form->rowCount() - 1, 1, 1, 2);
    m_place->setText(QDir::toNativeSeparators(place));
    addPlaceTo(*form);
    addListsTo(*form);
    m_folder->setObjectName(QStringLiteral("lblFolder"));
    m_folder->setTextFormat(Qt::PlainText);
    m_folder->setWordWrap(true);
    m_folder->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // a path without a blank must not widen the window
    m_folder->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_folder->setFixedHeight(2 * m_folder->fontMetrics().lineSpacing());
    form->addWidget(m_folder, form->rowCount(), 1, 1, 2);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch();
    layout->addLayout(makeButtons());
    connect(m_name, &QLineEdit::textChanged, this, &frmNewDatabase::showFolder);
    connect(m_place, &QLineEdit::textChanged, this, &frmNewDatabase::showFolder);
    showFolder();
}

void frmNewDatabase::addPlaceTo(QGridLayout& form)
{
    m_place->setObjectName(QStringLiteral("txtPlace"));
    addLabel(form, tr("&Place:"), *m_place);
    auto* choose = new QPushButton(tr("&Choose…"), this);
    choose->setObjectName(QStringLiteral("cmdPlace"));
    choose->setAccessibleName(tr("Choose the place"));
    choose->setAutoDefault(false);
    connect(choose, &QPushButton::clicked, this, &frmNewDatabase::choosePlace);
    const int row = form.rowCount() - 1;
    form.addWidget(m_place, row, 1);
    form.addWidget(choose, row, 2);
}

void frmNewDatabase::addListsTo(QGridLayout& form)
{
    auto* empty = new QRadioButton(tr("&Empty"), this);
    empty->setObjectName(QStringLiteral("optLists(0)"));
    empty->setChecked(true);
    m_listsOfSample = new QRadioButton(
        tr("&With the lists of the sample: types, categories, functions, venues, cities"), this);
    m_listsOfSample->setObjectName(QStringLiteral("optLists(1)"));
    if (SampleCollection::installedDatabase(m_home).isEmpty()) {
        m_listsOfSample->setEnabled(false);
        m_listsOfSample->setToolTip(tr("The sample was not installed with the program."));
    }
    form.addWidget(new QLabel(tr("Lists:"), this), form.rowCount(), 0);
    form.addWidget(empty, form.rowCount() - 1, 1, 1, 2);
    form.addWidget(m_listsOfSample, form.rowCount(), 1, 1, 2);
}

QLayout* frmNewDatabase::makeButtons()
{
    auto* sample = new QPushButton(tr("&Look at the Sample"), this);
    sample->setObjectName(QStringLiteral("cmdSample"));
    sample->setAutoDefault(false);
    if (const QString hindrance = SampleCollection::hindrance(m_home); !hindrance.isEmpty()) {
        sample->setEnabled(false);
        sample->setToolTip(hindrance);
    }
    connect(sample, &QPushButton::clicked, this, &frmNewDatabase::lookAtSample);
    auto* box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = box->button(QDialogButtonBox::Ok);
    m_ok->setObjectName(QStringLiteral("cmdOK"));
    m_ok->setDefault(true);
    box->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cmdCancel"));
    // as in the other windows
    for (QAbstractButton* button : box->buttons())
        button->setIcon({});
    connect(box, &QDialogButtonBox::accepted, this, &frmNewDatabase::accept);
    connect(box, &QDialogButtonBox::rejected, this, &frmNewDatabase::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(sample);
    buttons->addWidget(box);
    return buttons;
}

NewCollection frmNewDatabase::collection() const
{
    return {QDir::fromNativeSeparators(m_place->text().trimmed()), m_name->text()};
}

void frmNewDatabase::choosePlace()
{
    const QString place = m_platform.fileDialogs.chooseFolder(tr("Place of the New Database"),
                                                              QDir::fromNativeSeparators(m_place->text()));
    if (!place.isEmpty()) m_place->setText(QDir::toNativeSeparators(place));
}

/// Says which folder will be made, or why none can be.
void frmNewDatabase::showFolder()
{
    const NewCollection wanted = collection();
    const QString hindrance = wanted.hindrance();
    m_ok->setEnabled(hindrance.isEmpty());
    m_folder->setText(hindrance.isEmpty() ? tr("The folder %1 will be made.").arg(breakable(wanted.folder()))
                                          : hindrance);
}

void frmNewDatabase::accept()
{
    const bool isMade = runProcedure(m_platform.messages, QStringLiteral("newDatabase"), [&] {
        const WaitCursor wait;
        m_database = collection().make(
            m_listsOfSample->isChecked() ? SampleCollection::installedDatabase(m_home) : QString());
    });
    if (isMade)
        QDialog::accept();
    else
        showFolder();
}

void frmNewDatabase::lookAtSample()
{
    const bool isThere = runProcedure(m_platform.messages, QStringLiteral("lookAtSample"),
                                      [&] { m_database = SampleCollection::provide(m_home); });
    if (isThere) QDialog::accept();
}
