// SPDX-License-Identifier: GPL-3.0-or-later

#include "print/frmPrint.h"

#include "browse/list/RecordListModel.h"
#include "platform/Procedure.h"
#include "print/GraphicPages.h"
#include "print/ListPages.h"
#include "print/PagePreview.h"
#include "print/PagePrinter.h"
#include "print/SheetPages.h"
#include "widgets/DialogButtons.h"
#include "widgets/IconSet.h"
#include "widgets/WindowSize.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize firstSize(960, 700);
constexpr int sliceMilliseconds = 40;

QString listText(std::size_t count)
{
    return count == 1 ? frmPrint::tr("The &list (1 record)")
                      : frmPrint::tr("The &list (%1 records)").arg(QLocale().toString(count));
}

QString sheetsText(std::size_t count)
{
    if (count == 0) return frmPrint::tr("The selected records as &sheets");
    return count == 1 ? frmPrint::tr("The selected record as a &sheet")
                      : frmPrint::tr("The selected records as &sheets (%1)").arg(QLocale().toString(count));
}

} // namespace

frmPrint::frmPrint(const Platform& platform, View view, QWidget* parent)
    : QDialog(parent),
      m_platform(platform),
      m_view(std::move(view)),
      m_choice(platform.settings, m_view.list.list().kind())
{
    setObjectName(QStringLiteral("frmPrint"));
    setWindowTitle(tr("Print"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
    auto* choices = new QVBoxLayout;
    choices->addWidget(makeParts());
    choices->addWidget(makePaper());
    choices->addStretch();
    m_preview = new PagePreview(this);
    m_preview->setAccessibleName(tr("Preview of the page"));
    auto* shown = new QVBoxLayout;
    shown->addWidget(m_preview, 1);
    shown->addLayout(makeTurning());
    auto* top = new QHBoxLayout;
    top->addLayout(choices);
    top->addLayout(shown, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(makeButtons());
    connect(m_preview, &PagePreview::outdated, this, &frmPrint::showPage);
    connect(m_preview, &PagePreview::turned, this, &frmPrint::turn);
    connect(&m_timer, &QTimer::timeout, this, &frmPrint::goOn);
    WindowSize::restore(*this, m_platform.settings, firstSize);
    choosePart();
}

QGroupBox* frmPrint::makeParts()
{
    auto* box = new QGroupBox(tr("What is printed"), this);
    new QVBoxLayout(box);
    m_parts = new QButtonGroup(box);
    addPart(*box, PrintedPart::List, "optList", listText(static_cast<std::size_t>(m_view.list.rowCount())),
            {});
    addPart(*box, PrintedPart::Graphic, "optGraphic", tr("The &graphic"),
            m_view.graphic ? QString() : m_view.noGraphic);
    addPart(*box, PrintedPart::Sheets, "optSheets", sheetsText(m_view.selected.size()),
            m_view.selected.empty() ? tr("No record is selected.") : QString());
    m_parts->button(static_cast<int>(PrintedPart::List))->setChecked(true);
    connect(m_parts, &QButtonGroup::idClicked, this, &frmPrint::choosePart);
    return box;
}

void frmPrint::addPart(QGroupBox& box, PrintedPart part, const char* name, const QString& text,
                       const QString& hindrance)
{
    auto* choice = new QRadioButton(text, &box);
    choice->setObjectName(QString::fromLatin1(name));
    choice->setEnabled(hindrance.isEmpty());
    choice->setToolTip(hindrance);
    m_parts->addButton(choice, static_cast<int>(part));
    box.layout()->addWidget(choice);
}

QGroupBox* frmPrint::makePaper()
{
    auto* box = new QGroupBox(tr("Paper"), this);
    auto* form = new QFormLayout(box);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    const auto add = [&](const char* name, const QString& caption) {
        auto* field = new QComboBox(box);
        field->setObjectName(QString::fromLatin1(name));
        form->addRow(caption, field);
        return field;
    };
    cmbPaper = add("cmbPaper", tr("Si&ze:"));
    cmbPaper->addItem(tr("Letter"), QPageSize::Letter);
    cmbPaper->addItem(tr("A4"), QPageSize::A4);
    cmbPaper->setCurrentIndex(cmbPaper->findData(m_choice.paper()));
    cmbOrientation = add("cmbOrientation", tr("&Orientation:"));
    cmbOrientation->addItem(tr("Portrait"), QPageLayout::Portrait);
    cmbOrientation->addItem(tr("Landscape"), QPageLayout::Landscape);
    connect(cmbPaper, &QComboBox::currentIndexChanged, this, &frmPrint::choosePaper);
    connect(cmbOrientation, &QComboBox::currentIndexChanged, this, &frmPrint::chooseOrientation);
    return box;
}

QBoxLayout* frmPrint::makeTurning()
{
    cmdFirst = makeTurn("cmdFirst", QStringLiteral("go-first"), tr("First page"), -PagePreview::toTheEnd);
    cmdPrevious = makeTurn("cmdPrevious", QStringLiteral("go-previous"), tr("Previous page"), -1);
    cmdNext = makeTurn("cmdNext", QStringLiteral("go-next"), tr("Next page"), 1);
    cmdLast = makeTurn("cmdLast", QStringLiteral("go-last"), tr("Last page"), PagePreview::toTheEnd);
    lblPage = new QLabel(this);
    lblPage->setObjectName(QStringLiteral("lblPage"));
    lblPage->setAlignment(Qt::AlignCenter);
    lblPage->setMinimumWidth(fontMetrics().horizontalAdvance(tr("Page %1 of %2").arg(88888).arg(88888)));
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QWidget* part : std::initializer_list<QWidget*>{cmdFirst, cmdPrevious, lblPage, cmdNext, cmdLast})
        row->addWidget(part);
    row->addStretch();
    return row;
}

QToolButton* frmPrint::makeTurn(const char* name, const QString& icon, const QString& text, int pages)
{
    auto* button = new QToolButton(this);
    button->setObjectName(QString::fromLatin1(name));
    button->setIcon(IconSet::themeIcon(icon));
    button->setAccessibleName(text);
    button->setToolTip(text);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, [this, pages] { turn(pages); });
    return button;
}

QBoxLayout* frmPrint::makeButtons()
{
    QPushButton* print = DialogButtons::command(*this, "cmdPrint", tr("&Print…"), {});
    QPushButton* pdf = DialogButtons::command(*this, "cmdPdf", tr("Print to P&DF…"), {});
    QPushButton* cancel = DialogButtons::command(*this, "cmdCancel", tr("Cancel"), {});
    print->setDefault(true);
    connect(print, &QPushButton::clicked, this, &frmPrint::print);
    connect(pdf, &QPushButton::clicked, this, &frmPrint::savePdf);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* button : {print, pdf, cancel})
        row->addWidget(button);
    return row;
}

PrintedPart frmPrint::part() const
{
    return static_cast<PrintedPart>(m_parts->checkedId());
}

QPageLayout frmPrint::layout() const
{
    return PageFormat::layout(static_cast<QPageSize::PageSizeId>(cmbPaper->currentData().toInt()),
                              static_cast<QPageLayout::Orientation>(cmbOrientation->currentData().toInt()));
}

/// A graphic is turned as it is wide.
QPageLayout::Orientation frmPrint::usualOrientation() const
{
    const bool isWide =
        part() == PrintedPart::Graphic && m_view.graphic->size.width() > m_view.graphic->size.height();
    return isWide ? QPageLayout::Landscape : QPageLayout::Portrait;
}

std::unique_ptr<PrintedPages> frmPrint::makePages() const
{
    switch (part()) {
    case PrintedPart::Graphic:
        return std::make_unique<GraphicPages>(m_view.caption, *m_view.graphic);
    case PrintedPart::Sheets:
        return std::make_unique<SheetPages>(m_view.caption, m_view.session, m_view.list.list().kind(),
                                            m_view.selected);
    case PrintedPart::List:
        break;
    }
    return std::make_unique<ListPages>(m_view.caption, m_view.list);
}

void frmPrint::choosePart()
{
    const QPageLayout::Orientation orientation = m_choice.orientation(part()).value_or(usualOrientation());
    const QSignalBlocker programs(cmbOrientation);
    cmbOrientation->setCurrentIndex(cmbOrientation->findData(orientation));
    m_pages = makePages();
    begin();
}

void frmPrint::choosePaper()
{
    m_choice.setPaper(static_cast<QPageSize::PageSizeId>(cmbPaper->currentData().toInt()));
    begin();
}

void frmPrint::chooseOrientation()
{
    m_choice.setOrientation(part(), layout().orientation());
    begin();
}

/// Shows the first page as soon as it is known, and measures the others then.
void frmPrint::begin()
{
    m_page = 0;
    m_preview->clear();
    m_pages->begin(layout());
    m_timer.start(0);
    goOn();
}

void frmPrint::goOn()
{
    QElapsedTimer time;
    time.start();
    const bool wasShown = m_pages->count() > 1;
    bool isMore = false;
    runProcedure(m_platform.messages, QStringLiteral("measurePages"), [&] {
        do
            isMore = m_pages->measure();
        while (isMore && !time.hasExpired(sliceMilliseconds));
    });
    if (!isMore) m_timer.stop();
    // the last page that is known may become longer
    if (m_pages->isMeasured() || (!wasShown && m_pages->count() > 1)) showPage();
    showNumber();
}

void frmPrint::turn(int pages)
{
    const int page = std::clamp(m_page + pages, 0, std::max(m_pages->count() - 1, 0));
    if (page == m_page) return;
    m_page = page;
    showPage();
    showNumber();
}

void frmPrint::showPage()
{
    if (m_page >= m_pages->count()) return;
    runProcedure(m_platform.messages, QStringLiteral("showPage"), [&] { m_preview->show(*m_pages, m_page); });
}

void frmPrint::showNumber()
{
    const QLocale locale;
    const int count = m_pages->count();
    const QString all = m_pages->isMeasured() ? locale.toString(count) : locale.toString(count) + u'…';
    lblPage->setText(count == 0 ? QString() : tr("Page %1 of %2").arg(locale.toString(m_page + 1), all));
    cmdFirst->setEnabled(m_page > 0);
    cmdPrevious->setEnabled(m_page > 0);
    cmdNext->setEnabled(m_page + 1 < count);
    cmdLast->setEnabled(m_page + 1 < count);
}

template <typename Work>
void frmPrint::finish(const char* procedure, Work&& work)
{
    m_timer.stop();
    runProcedure(m_platform.messages, QString::fromLatin1(procedure), [&] { m_outcome = work(); });
    if (!m_outcome.isEmpty()) return accept();
    // the pages may have been laid out for the paper of a printer
    if (m_pages->format().size() != PageFormat(layout()).size()) return begin();
    m_timer.start(0);
}

void frmPrint::print()
{
    finish("print", [this] { return PagePrinter(m_platform).print(*m_pages, layout()); });
}

void frmPrint::savePdf()
{
    finish("printToPdf", [this] { return PagePrinter(m_platform).savePdf(*m_pages, layout()); });
}

void frmPrint::done(int result)
{
    m_timer.stop();
    WindowSize::save(*this, m_platform.settings);
    QDialog::done(result);
}
