// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/frmCheck.h"

#include "check/FileByHash.h"
#include "check/FindingDelegate.h"
#include "check/FindingSteps.h"
#include "check/FindingsModel.h"
#include "platform/FileDialogs.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "platform/WorkRunner.h"
#include "widgets/DialogButtons.h"
#include "widgets/WindowSize.h"

#include <QClipboard>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr QSize firstCheckSize(920, 560);
constexpr int sliceMilliseconds = 40;
constexpr int mostExpanded = 20; ///< longer lists of findings would hide the checks behind them

QString stepText(Finding::Step step)
{
    switch (step) {
    case Finding::Step::FindFile:
        return frmCheck::tr("&Find File…");
    case Finding::Step::PutAside:
        return frmCheck::tr("&Put File Aside");
    default:
        return frmCheck::tr("&Show Record");
    }
}

QString stepTip(Finding::Step step)
{
    switch (step) {
    case Finding::Step::FindFile:
        return frmCheck::tr("Looks for the file in a folder by what it held");
    case Finding::Step::PutAside:
        return frmCheck::tr("Moves the file out of the way");
    default:
        return frmCheck::tr("Shows the record of the selected finding");
    }
}

void enable(QPushButton& button, const QString& tip, const QString& hindrance)
{
    button.setEnabled(hindrance.isEmpty());
    button.setToolTip(hindrance.isEmpty() ? tip : tip + u'\n' + hindrance);
}

} // namespace

frmCheck::frmCheck(Surroundings surroundings, QWidget* parent)
    : QDialog(parent), m_at(std::move(surroundings)), m_model(new FindingsModel(this))
{
    setObjectName(QStringLiteral("frmCheck"));
    setWindowTitle(tr("Check Collection"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
    makeTree();
    auto* buttons = new QVBoxLayout;
    makeButtons(*buttons);
    layOut(buttons);
    connect(&m_timer, &QTimer::timeout, this, &frmCheck::goOn);
    WindowSize::restore(*this, m_at.platform.settings, firstCheckSize);
}

void frmCheck::makeTree()
{
    tvwChecks = new QTreeView(this);
    tvwChecks->setObjectName(QStringLiteral("tvwChecks"));
    tvwChecks->setAccessibleName(tr("Checks and Findings"));
    tvwChecks->setUniformRowHeights(true);
    tvwChecks->setAllColumnsShowFocus(true);
    tvwChecks->setSelectionMode(QAbstractItemView::ExtendedSelection);
    tvwChecks->setItemDelegate(new FindingDelegate(tvwChecks));
    tvwChecks->setModel(m_model);
    tvwChecks->header()->setStretchLastSection(false);
    tvwChecks->header()->setSectionResizeMode(FindingsModel::textColumn, QHeaderView::Stretch);
    const QString widest = FindingsModel::tr("%n findings, not finished", nullptr, 10000);
    const int icon = tvwChecks->fontMetrics().height() * 2;
    tvwChecks->header()->resizeSection(FindingsModel::stateColumn,
                                       tvwChecks->fontMetrics().horizontalAdvance(widest) + icon);
    tvwChecks->installEventFilter(this);
    connect(tvwChecks->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &frmCheck::enableButtons);
    connect(tvwChecks, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
        if (m_model->finding(index) != nullptr) cmdStep->click();
    });
}

QPushButton* frmCheck::makeButton(const char* name, const QString& text, const QString& toolTip,
                                  void (frmCheck::*command)())
{
    QPushButton* button = DialogButtons::command(*this, name, text, toolTip);
    button->setToolTip(toolTip);
    connect(button, &QPushButton::clicked, this, command);
    return button;
}

void frmCheck::makeButtons(QVBoxLayout& column)
{
    cmdStep = makeButton("cmdStep", stepText(Finding::Step::None), {}, &frmCheck::takeStep);
    cmdCopy = makeButton("cmdCopy", tr("&Copy"), tr("Copies the selected checks and findings as text"),
                         &frmCheck::copyFindings);
    cmdCheckAgain = makeButton("cmdCheckAgain", tr("Check A&gain"), tr("Makes the same checks once more"),
                               &frmCheck::checkAgain);
    cmdCheckFiles =
        makeButton("cmdCheckFiles", tr("Check the C&ontent of the Files"),
                   tr("Compares every file with what it was when it was added"), &frmCheck::checkFiles);
    column.addWidget(cmdStep);
    column.addWidget(cmdCopy);
    column.addSpacing(column.spacing() * 2);
    column.addWidget(cmdCheckAgain);
    column.addWidget(cmdCheckFiles);
    column.addStretch();
}

void frmCheck::layOut(QVBoxLayout* buttons)
{
    auto* top = new QHBoxLayout;
    top->addWidget(tvwChecks, 1);
    top->addLayout(buttons);
    m_bar = new QProgressBar(this);
    m_bar->setAccessibleName(tr("Progress"));
    cmdStop =
        makeButton("cmdStop", tr("S&top"), tr("Ends the check; what it found so far stays"), &frmCheck::stop);
    for (QWidget* part : {static_cast<QWidget*>(m_bar), static_cast<QWidget*>(cmdStop)}) {
        QSizePolicy policy = part->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        part->setSizePolicy(policy);
    }
    auto* progress = new QHBoxLayout;
    progress->addWidget(m_bar, 1);
    progress->addWidget(cmdStop);
    lblOutcome = DialogButtons::outcome(*this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(progress);
    layout->addLayout(DialogButtons::closingRow(*this, *lblOutcome));
}

void frmCheck::showCheck()
{
    begin(CheckScope::Structure);
    tvwChecks->setFocus();
    exec();
}

void frmCheck::begin(CheckScope scope)
{
    m_scope = scope;
    m_check = std::make_unique<CollectionCheck>(m_at.database, m_at.folder, scope,
                                                CollectionCheck::notesOf(m_at.database));
    m_made = 0;
    m_model->setChecks(m_check->results());
    tvwChecks->setCurrentIndex(m_model->index(0, 0));
    m_model->begin(0);
    m_timer.start(0);
    showProgress();
    enableButtons();
}

void frmCheck::checkAgain()
{
    begin(m_scope);
}

void frmCheck::checkFiles()
{
    begin(CheckScope::StructureAndFiles);
}

void frmCheck::stop()
{
    m_model->stop();
    end();
    lblOutcome->setText(tr("The check was stopped."));
}

void frmCheck::end()
{
    m_timer.stop();
    m_check.reset();
    if (cmdStop->hasFocus()) tvwChecks->setFocus();
    m_bar->setMaximum(100);
    m_bar->reset();
    lblOutcome->setText(m_model->outcome());
    enableButtons();
}

void frmCheck::goOn()
{
    QElapsedTimer time;
    time.start();
    bool isMore = true;
    while (isMore && !time.hasExpired(sliceMilliseconds))
        isMore = m_check->step();
    showFinished();
    // who was told of damage may have closed the window
    if (!m_check) return;
    if (isMore)
        showProgress();
    else
        end();
}

/// Shows what came of the checks that were made since this was done last.
void frmCheck::showFinished()
{
    if (m_check->made() == m_made) return;
    m_made = m_check->made();
    std::vector<CheckResult> results = m_check->results();
    QString damage;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        CheckResult& result = results[static_cast<std::size_t>(row)];
        if (m_check->isUnderWay(static_cast<std::size_t>(row))) m_model->begin(row);
        if (!result.isDone || m_model->isFinished(row)) continue;
        if (result.topic == CheckTopic::EngineIntegrity && !result.findings.empty())
            damage = result.findings.front().text;
        const bool isShort = result.findings.size() <= mostExpanded;
        m_model->finish(row, std::move(result));
        if (isShort) tvwChecks->expand(m_model->index(row, 0));
    }
    enableButtons();
    if (!damage.isEmpty()) Q_EMIT damageFound(damage);
}

void frmCheck::showProgress()
{
    const std::optional<int> percent = m_check->percent();
    m_bar->setMaximum(percent ? 100 : 0);
    m_bar->setValue(percent.value_or(0));
    lblOutcome->setText(m_check->text());
}

void frmCheck::enableButtons()
{
    const Finding* finding = m_model->finding(selected());
    const Finding::Step step = finding == nullptr ? Finding::Step::None : finding->step;
    cmdStep->setText(stepText(step));
    cmdStep->setStatusTip(stepTip(step));
    enable(*cmdStep, stepTip(step), hindranceOfStep());
    const bool hasSelection = tvwChecks->selectionModel()->hasSelection();
    enable(*cmdCopy, cmdCopy->statusTip(),
           hasSelection ? QString() : tr("Select a check or a finding first."));
    const QString running = m_check ? tr("A check is under way.") : QString();
    enable(*cmdCheckAgain, cmdCheckAgain->statusTip(), running);
    enable(*cmdCheckFiles, cmdCheckFiles->statusTip(), running);
    m_bar->setVisible(m_check != nullptr);
    cmdStop->setVisible(m_check != nullptr);
}

/// The only selected row. The current one is still that before while the selection changes.
QModelIndex frmCheck::selected() const
{
    const QModelIndexList rows = tvwChecks->selectionModel()->selectedRows();
    return rows.size() == 1 ? rows.front() : QModelIndex();
}

/// Returns why nothing can be done about the selected finding; empty if something can.
QString frmCheck::hindranceOfStep() const
{
    const QModelIndex index = selected();
    const Finding* finding = m_model->finding(index);
    const qsizetype count = tvwChecks->selectionModel()->selectedRows().size();
    if (count > 1) return tr("Select a single finding.");
    if (finding == nullptr) return tr("Select a finding first.");
    if (m_model->isSettled(index)) return tr("This was done already.");
    switch (finding->step) {
    case Finding::Step::None:
        return tr("Nothing can be done about this finding here.");
    case Finding::Step::ShowRecord:
        return {};
    case Finding::Step::FindFile:
    case Finding::Step::PutAside:
        break;
    }
    return m_at.unwritable();
}

void frmCheck::takeStep()
{
    const QPersistentModelIndex index = selected();
    const Finding finding = *m_model->finding(index);
    bool isSettled = false;
    switch (finding.step) {
    case Finding::Step::None:
        return;
    case Finding::Step::ShowRecord:
        if (finding.record) m_at.view(finding.record->kind, finding.record->identifier, *this);
        return;
    case Finding::Step::FindFile:
        runProcedure(m_at.platform.messages, QStringLiteral("findFile"),
                     [&] { isSettled = findFile(finding); });
        break;
    case Finding::Step::PutAside:
        runProcedure(m_at.platform.messages, QStringLiteral("putAside"),
                     [&] { isSettled = putAside(finding); });
        break;
    }
    // the checks may have been made again meanwhile
    if (!isSettled || !index.isValid()) return;
    m_model->settle(index);
    enableButtons();
    tvwChecks->setFocus();
}

void frmCheck::copyFindings()
{
    QGuiApplication::clipboard()->setText(m_model->text(tvwChecks->selectionModel()->selectedRows()));
}

bool frmCheck::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != tvwChecks || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Copy)) {
        cmdCopy->click();
        return true;
    }
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) return false;
    const QModelIndex index = tvwChecks->currentIndex();
    if (m_model->finding(index) == nullptr)
        tvwChecks->setExpanded(index, !tvwChecks->isExpanded(index));
    else
        cmdStep->click();
    return true;
}

void frmCheck::done(int result)
{
    m_timer.stop();
    m_check.reset();
    WindowSize::save(*this, m_at.platform.settings);
    QDialog::done(result);
}

/// Returns whether the file is there again.
bool frmCheck::findFile(const Finding& finding)
{
    const QString folder = m_at.platform.fileDialogs.chooseFolder(tr("Find File"), {});
    if (folder.isEmpty()) return false;
    FileByHash search(folder, finding.sha256);
    if (!m_at.platform.works.run(search)) return false;
    if (!search.found()) {
        m_at.platform.messages.show(tr("No file in the folder %1 holds what %2 held when it was added.")
                                        .arg(QDir::toNativeSeparators(folder), finding.file));
        return false;
    }
    const QString found = *search.found();
    const bool isWanted = m_at.platform.messages.ask(tr("%1 holds what %2 held when it was added.\n\nDo you "
                                                        "want to copy it there? If a file is there, it is "
                                                        "put aside.")
                                                         .arg(QDir::toNativeSeparators(found), finding.file),
                                                     Question::Harmless);
    if (!isWanted) return false;
    FindingSteps::bringBack(m_at.folder, finding.file, finding.sha256, found);
    lblOutcome->setText(tr("%1 is as it was when it was added.").arg(finding.file));
    return true;
}

bool frmCheck::putAside(const Finding& finding)
{
    const QString place = FindingSteps::putAside(m_at.folder, finding.file);
    lblOutcome->setText(tr("%1 is now in the folder %2.")
                            .arg(finding.file, QDir::toNativeSeparators(QFileInfo(place).path())));
    return true;
}
