// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/frmExport.h"

#include "export/ExportFormats.h"
#include "export/ExportTexts.h"
#include "util/ReadableLine.h"
#include "widgets/ElidedLabel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int textWidth = 420;

QString withCount(const QString& text, std::size_t count)
{
    return text.arg(QLocale().toString(static_cast<qint64>(count)));
}

QString allText(RecordKind kind, std::size_t count)
{
    const QString text = kind == RecordKind::Document ? frmExport::tr("&All documents (%1)")
                         : kind == RecordKind::Event  ? frmExport::tr("&All events (%1)")
                                                      : frmExport::tr("&All organizations (%1)");
    return withCount(text, count);
}

QString noneText(RecordKind kind)
{
    return kind == RecordKind::Document ? frmExport::tr("There are no documents.")
           : kind == RecordKind::Event  ? frmExport::tr("There are no events.")
                                        : frmExport::tr("There are no organizations.");
}

/// Disables a control if `hindrance` is not empty, and has it say why.
void enableUnless(QWidget& control, const QString& hindrance)
{
    control.setEnabled(hindrance.isEmpty());
    control.setToolTip(hindrance);
}

QLabel* wrapped(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(textWidth);
    return label;
}

/// Adds what belongs to a box or an option, so far to the right that it stands below its text.
void addBelow(QVBoxLayout& layout, QWidget& option, QWidget& below)
{
    const QStyle& style = *option.style();
    const int indicator = style.pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, &option) +
                          style.pixelMetric(QStyle::PM_RadioButtonLabelSpacing, nullptr, &option);
    auto* row = new QHBoxLayout;
    row->addSpacing(indicator);
    row->addWidget(&below, 1);
    layout.addLayout(row);
}

} // namespace

frmExport::frmExport(const Offer& offer, const ExportChoices& choices, FileChooser chooser, QWidget* parent)
    : QDialog(parent),
      m_offer(offer),
      m_before(choices),
      m_chooser(std::move(chooser)),
      m_chosenFields(choices.fields)
{
    setObjectName(QStringLiteral("frmExport"));
    setWindowTitle(tr("Export"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeRecords());
    layout->addWidget(makeFormats());
    layout->addWidget(makeFields());
    layout->addStretch();
    layout->addLayout(makeButtons());
    showFormat();
}

QGroupBox* frmExport::makeRecords()
{
    auto* box = new QGroupBox(tr("Records"), this);
    auto* layout = new QVBoxLayout(box);
    const std::array captions{withCount(tr("The &list as shown (%1)"), m_offer.listed),
                              withCount(tr("The &selected records (%1)"), m_offer.selected),
                              allText(m_offer.kind, m_offer.all)};
    for (std::size_t i = 0; i < m_records.size(); ++i) {
        m_records[i] = new QRadioButton(captions[i], box);
        m_records[i]->setObjectName(QStringLiteral("optRecords(%1)").arg(i));
        layout->addWidget(m_records[i]);
        connect(m_records[i], &QRadioButton::toggled, this, &frmExport::enablePicture);
    }
    auto* caption = new ElidedLabel(box);
    caption->setObjectName(QStringLiteral("lblView"));
    caption->setLine(readableLine(m_offer.caption));
    auto* below = new QVBoxLayout;
    addBelow(*below, *m_records[0], *caption);
    layout->insertLayout(1, below);
    enableUnless(*m_records[0], m_offer.listed > 0 ? QString() : tr("The list is empty."));
    enableUnless(*m_records[1], m_offer.selected > 0 ? QString() : tr("No record is selected."));
    enableUnless(*m_records[2], m_offer.all > 0 ? QString() : noneText(m_offer.kind));
    const Records preset = m_offer.selected > 1 ? Records::Selected
                           : m_offer.listed > 0 ? Records::OfList
                                                : Records::All;
    m_records[static_cast<std::size_t>(preset)]->setChecked(true);
    m_records[static_cast<std::size_t>(preset)]->setFocus();
    return box;
}

QGroupBox* frmExport::makeFormats()
{
    auto* box = new QGroupBox(tr("File"), this);
    auto* layout = new QVBoxLayout(box);
    m_formats = new QComboBox(box);
    m_formats->setObjectName(QStringLiteral("cmbFormat"));
    m_formats->setAccessibleName(tr("Format of the file"));
    auto* label = new QLabel(tr("&Format:"), box);
    label->setBuddy(m_formats);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_formats, 1);
    m_details = new QStackedWidget(box);
    for (const ExportFormat& format : exportFormats()) {
        if (!format.isFor(m_offer.kind)) continue;
        m_formats->addItem(ExportTexts::tr(format.title), format.name);
        m_pages.push_back({&format});
        m_details->addWidget(makePage(m_pages.back()));
    }
    m_formats->setCurrentIndex(m_formats->findData(m_before.format));
    connect(m_formats, &QComboBox::currentIndexChanged, this, &frmExport::showFormat);
    layout->addLayout(row);
    layout->addWidget(m_details);
    return box;
}

/// What a format is good for, and the choices that it alone has.
QWidget* frmExport::makePage(Page& page)
{
    auto* details = new QWidget(m_details);
    auto* layout = new QVBoxLayout(details);
    layout->setContentsMargins({});
    QLabel* remark = wrapped(ExportTexts::tr(page.format->remark), details);
    remark->setObjectName(QStringLiteral("lblRemark(%1)").arg(m_pages.size() - 1));
    layout->addWidget(remark);
    if (page.format->hasChoiceOfSpreadsheet) {
        page.forSpreadsheet = new QCheckBox(tr("For s&preadsheet programs"), details);
        page.forSpreadsheet->setObjectName(QStringLiteral("chkForSpreadsheet"));
        page.forSpreadsheet->setChecked(m_before.forSpreadsheet);
        layout->addWidget(page.forSpreadsheet);
        addBelow(*layout, *page.forSpreadsheet,
                 *wrapped(tr("Marks the text as Unicode, and puts an apostrophe before what would be taken "
                             "for a formula."),
                          details));
    }
    if (page.format->hasPicture) {
        page.hasPicture = new QCheckBox(tr("&With the picture of the graphic"), details);
        page.hasPicture->setObjectName(QStringLiteral("chkPicture"));
        page.hasPicture->setChecked(m_before.hasPicture);
        layout->addWidget(page.hasPicture);
    }
    layout->addStretch();
    return details;
}

QGroupBox* frmExport::makeFields()
{
    auto* box = new QGroupBox(tr("Fields"), this);
    auto* layout = new QVBoxLayout(box);
    const std::array captions{tr("All fiel&ds of a record"), tr("&Those that the list shows")};
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        m_fields[i] = new QRadioButton(captions[i], box);
        m_fields[i]->setObjectName(QStringLiteral("optFields(%1)").arg(i));
        layout->addWidget(m_fields[i]);
        connect(m_fields[i], &QRadioButton::clicked, this,
                [this, i] { m_chosenFields = static_cast<FieldChoice>(i); });
    }
    return box;
}

QLayout* frmExport::makeButtons()
{
    auto* go = new QPushButton(tr("&Export…"), this);
    go->setObjectName(QStringLiteral("cmdOK"));
    go->setDefault(true);
    const bool isAny = m_offer.listed > 0 || m_offer.all > 0;
    enableUnless(*go, isAny ? QString() : noneText(m_offer.kind));
    auto* cancel = new QPushButton(tr("Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setAutoDefault(false);
    connect(go, &QPushButton::clicked, this, &frmExport::accept);
    connect(cancel, &QPushButton::clicked, this, &frmExport::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(go);
    buttons->addWidget(cancel);
    return buttons;
}

const frmExport::Page& frmExport::page() const
{
    return m_pages.at(static_cast<std::size_t>(m_formats->currentIndex()));
}

void frmExport::showFormat()
{
    m_details->setCurrentIndex(m_formats->currentIndex());
    const bool hasChoice = format().hasChoiceOfFields;
    const FieldChoice shown = hasChoice ? m_chosenFields : FieldChoice::All;
    m_fields[static_cast<std::size_t>(shown)]->setChecked(true);
    for (QRadioButton* option : m_fields)
        enableUnless(*option, hasChoice ? QString() : tr("The fields of this format are fixed."));
    enablePicture();
}

/// The picture is that of the view: of all records, the graphic may show only some.
void frmExport::enablePicture()
{
    if (m_pages.empty() || page().hasPicture == nullptr) return;
    const QString hindrance =
        records() == Records::All ? tr("The graphic shows the list, not all records.") : m_offer.noGraphic;
    enableUnless(*page().hasPicture, hindrance);
}

frmExport::Records frmExport::records() const
{
    return m_records[0]->isChecked()   ? Records::OfList
           : m_records[1]->isChecked() ? Records::Selected
                                       : Records::All;
}

const ExportFormat& frmExport::format() const
{
    return *page().format;
}

ExportChoices frmExport::choices() const
{
    ExportChoices chosen = m_before;
    chosen.format = format().name;
    chosen.fields = m_chosenFields;
    if (page().forSpreadsheet != nullptr) chosen.forSpreadsheet = page().forSpreadsheet->isChecked();
    if (page().hasPicture != nullptr) chosen.hasPicture = page().hasPicture->isChecked();
    return chosen;
}

void frmExport::accept()
{
    m_file = m_chooser(format(), records());
    if (!m_file.isEmpty()) QDialog::accept();
}
