// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/frmHistory.h"

#include "data/DatabaseSession.h"
#include "history/VersionComparison.h"
#include "history/VersionRestore.h"
#include "history/VersionsModel.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "util/ReadableLine.h"
#include "widgets/LineDelegate.h"
#include "widgets/WindowSize.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int columnGap = 12; ///< pixels between two columns that are as wide as their texts

constexpr QSize firstSize(1000, 680);

} // namespace

frmHistory::frmHistory(const Platform& platform, DatabaseSession& session, const ProgramFolder& folder,
                       QWidget* parent)
    : QDialog(parent),
      m_platform(platform),
      m_session(session),
      m_folder(folder),
      m_model(new VersionsModel(this)),
      lvVersions(new QTreeView(this)),
      m_comparison(new VersionComparison(this)),
      cmdRestore(new QPushButton(tr("&Restore This Version"), this)),
      cmdClose(new QPushButton(tr("Close"), this))
{
    setObjectName(QStringLiteral("frmHistory"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
    makeList();
    makeButtons();
    layOut();
    WindowSize::restore(*this, m_platform.settings, firstSize);
}

void frmHistory::makeList()
{
    lvVersions->setObjectName(QStringLiteral("lvVersions"));
    lvVersions->setAccessibleName(tr("Versions"));
    lvVersions->setModel(m_model);
    lvVersions->setRootIsDecorated(false);
    lvVersions->setItemsExpandable(false);
    lvVersions->setUniformRowHeights(true);
    lvVersions->setAllColumnsShowFocus(true);
    lvVersions->setAlternatingRowColors(true);
    lvVersions->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lvVersions->setItemDelegate(new LineDelegate(lvVersions));
    connect(lvVersions->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &frmHistory::showChosen);
}

void frmHistory::makeButtons()
{
    cmdRestore->setObjectName(QStringLiteral("cmdRestore"));
    cmdRestore->setAutoDefault(false);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    cmdClose->setAutoDefault(false);
    connect(cmdRestore, &QPushButton::clicked, this, &frmHistory::restore);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

void frmHistory::layOut()
{
    auto* top = new QWidget(this);
    auto* list = new QVBoxLayout(top);
    list->setContentsMargins(0, 0, 0, 0);
    auto* title = new QLabel(tr("&Versions:"), top);
    title->setBuddy(lvVersions);
    list->addWidget(title);
    list->addWidget(lvVersions);
    auto* parts = new QSplitter(Qt::Vertical, this);
    parts->addWidget(top);
    parts->addWidget(m_comparison);
    parts->setStretchFactor(0, 2);
    parts->setStretchFactor(1, 3);
    parts->setChildrenCollapsible(false);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdRestore);
    buttons->addStretch();
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(parts, 1);
    layout->addLayout(buttons);
}

void frmHistory::showHistory(RecordKind kind, qint64 identifier)
{
    if (!readVersions(kind, identifier)) return;
    lvVersions->setFocus();
    exec();
}

bool frmHistory::readVersions(RecordKind kind, qint64 identifier)
{
    const bool isRead = runProcedure(m_platform.messages, QStringLiteral("showHistory"), [&] {
        auto versions = std::make_unique<RecordVersions>(m_session, kind, identifier);
        m_model->setVersions(versions.get());
        m_versions = std::move(versions);
    });
    if (!isRead) return false;
    setWindowTitle(caption());
    lvVersions->header()->setSectionResizeMode(2, QHeaderView::Stretch);
    for (const int column : {0, 1}) {
        lvVersions->resizeColumnToContents(column);
        lvVersions->setColumnWidth(column, lvVersions->columnWidth(column) + columnGap);
    }
    // the key that opened the window may still be held down
    lvVersions->selectionModel()->setCurrentIndex(m_model->index(0, 0), QItemSelectionModel::ClearAndSelect |
                                                                            QItemSelectionModel::Rows);
    showChosen();
    return true;
}

QString frmHistory::recordName() const
{
    return Snapshots::titleOf(m_versions->kind(), m_versions->present());
}

QString frmHistory::caption() const
{
    const QString title = readableLine(recordName());
    switch (m_versions->kind()) {
    case RecordKind::Document:
        return tr("History of Document \"%1\"").arg(title);
    case RecordKind::Event:
        return tr("History of Event \"%1\"").arg(title);
    case RecordKind::Organization:
        break;
    }
    return tr("History of Organization \"%1\"").arg(title);
}

/// The selected versions, newest first.
std::vector<std::size_t> frmHistory::chosen() const
{
    std::vector<std::size_t> rows;
    const QModelIndexList selected = lvVersions->selectionModel()->selectedRows();
    rows.reserve(static_cast<std::size_t>(selected.size()));
    for (const QModelIndex& index : selected)
        rows.push_back(static_cast<std::size_t>(index.row()));
    std::sort(rows.begin(), rows.end());
    return rows;
}

/// Compares one version with the one before it; of several, the oldest with the newest.
void frmHistory::showChosen()
{
    const std::vector<std::size_t> rows = chosen();
    if (rows.empty()) {
        m_comparison->tell(tr("Select a version to see what it changed, or two versions to compare them."));
    } else {
        runProcedure(m_platform.messages, QStringLiteral("showVersion"),
                     [&] { compare(rows.size() == 1 ? rows.front() + 1 : rows.back(), rows.front()); });
    }
    enableRestore();
}

/// The first version of all has none before it.
void frmHistory::compare(std::size_t older, std::size_t newer)
{
    while (older >= m_versions->found().size() && m_model->canFetchMore({}))
        m_model->fetchMore({});
    const auto headingOf = [this](std::size_t index) {
        const RecordVersion& version = m_versions->found()[index];
        return QStringLiteral("%1 %2").arg(version.moment, version.what()).trimmed();
    };
    ComparedVersions compared;
    compared.kind = m_versions->kind();
    compared.newerHeading = headingOf(newer);
    compared.newer = m_versions->content(newer);
    compared.hasOlder = older < m_versions->found().size();
    if (compared.hasOlder) {
        compared.olderHeading = headingOf(older);
        compared.older = m_versions->content(older);
    }
    m_comparison->compare(std::move(compared));
}

/// Why the selected version cannot be restored; empty if it can.
QString frmHistory::hindrance() const
{
    if (m_session.isReadOnly()) return tr("The database can be read, but not changed.");
    const std::vector<std::size_t> rows = chosen();
    if (rows.size() != 1) return tr("Select a single version.");
    QString isAlike = tr("The record is already the same as this version.");
    if (rows.front() == 0) return isAlike;
    const VersionRestore restore(m_session, m_platform.clock, m_folder, m_versions->kind(),
                                 m_versions->identifier());
    const Snapshot& present = m_versions->present();
    try {
        const VersionContent version = m_versions->content(rows.front());
        const bool isEqual =
            Snapshots::areEqual(m_versions->kind(), restore.target(version, present), present);
        return isEqual && !restore.needsCharts(version) ? isAlike : QString();
    } catch (const Error& error) {
        return error.description();
    }
}

void frmHistory::enableRestore()
{
    const QString reason = hindrance();
    cmdRestore->setEnabled(reason.isEmpty());
    const QString tip = tr("Makes the record what it was then, as a new version");
    cmdRestore->setToolTip(reason.isEmpty() ? tip : tip + u'\n' + reason);
}

void frmHistory::restore()
{
    const RecordKind kind = m_versions->kind();
    const qint64 identifier = m_versions->identifier();
    VersionRestore::Outcome outcome;
    const bool worked = runProcedure(m_platform.messages, QStringLiteral("restoreVersion"), [&] {
        outcome = VersionRestore(m_session, m_platform.clock, m_folder, kind, identifier)
                      .restore(m_versions->content(chosen().front()), m_versions->present());
    });
    if (!worked) return;
    m_hasRestored = m_hasRestored || outcome.isDone;
    readVersions(kind, identifier);
    if (!outcome.isDone) {
        m_platform.messages.show(tr("This record was changed after you opened its history, so nothing was "
                                    "restored. The list now shows that change, too."));
        return;
    }
    if (!outcome.leftOut.isEmpty()) outcome.messages.prepend(leftOutText(outcome.leftOut));
    if (!outcome.messages.isEmpty()) m_platform.messages.show(outcome.messages.join(QStringLiteral("\n\n")));
}

/// The message about links that were not restored: how many, and which.
QString frmHistory::leftOutText(const QStringList& links)
{
    constexpr qsizetype mostNamed = 10;
    const int count = static_cast<int>(links.size());
    QString text =
        count == 1
            ? tr("1 link was not restored, since it leads to something that is no longer in the database:")
            : tr("%n links were not restored, since they lead to something that is no longer in "
                 "the database:",
                 nullptr, count);
    text += u'\n';
    for (const QString& link : links.first(std::min(links.size(), mostNamed)))
        text += u'\n' + readableLine(link);
    if (links.size() > mostNamed)
        text += u'\n' + tr("… and %n more.", nullptr, static_cast<int>(links.size() - mostNamed));
    return text;
}

void frmHistory::done(int result)
{
    WindowSize::save(*this, m_platform.settings);
    QDialog::done(result);
}
