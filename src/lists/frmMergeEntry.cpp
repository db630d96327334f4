// SPDX-License-Identifier: GPL-3.0-or-later

#include "lists/frmMergeEntry.h"

#include "lists/ListsView.h"
#include "util/ReadableLine.h"
#include "widgets/WindowSize.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr QSize firstMergeSize(560, 480);

} // namespace

frmMergeEntry::frmMergeEntry(const Platform& platform, std::function<QPixmap(qint64)> marker, QWidget* parent)
    : QDialog(parent),
      m_platform(platform),
      m_entries(new ListsView(this)),
      cmdOK(new QPushButton(tr("Merge"), this))
{
    setObjectName(QStringLiteral("frmMergeEntry"));
    m_entries->setMarker(std::move(marker));
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    auto* cancel = new QPushButton(tr("Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setAutoDefault(false);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(cmdOK, QDialogButtonBox::AcceptRole);
    buttons->addButton(cancel, QDialogButtonBox::RejectRole);
    auto* caption = new QLabel(this);
    caption->setObjectName(QStringLiteral("lblCaption"));
    caption->setTextFormat(Qt::PlainText);
    caption->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(caption);
    layout->addWidget(m_entries);
    layout->addWidget(buttons);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_entries, &ListsView::activated, cmdOK, &QPushButton::click);
    connect(m_entries, &ListsView::selectionChanged, this,
            [this] { cmdOK->setEnabled(m_entries->selected() != nullptr); });
    WindowSize::restore(*this, m_platform.settings, firstMergeSize);
}

std::optional<qint64> frmMergeEntry::choose(ListKind list, const LookupEntry& from,
                                            std::vector<LookupRow> others)
{
    setWindowTitle(tr("Merge: %1").arg(listEntryWord(list)));
    findChild<QLabel*>(QStringLiteral("lblCaption"))
        ->setText(tr("What uses \"%1\" will use the entry that you choose here. \"%1\" itself is removed.")
                      .arg(readableLine(from.name)));
    m_entries->setRows(list, std::move(others));
    if (exec() != Accepted || m_entries->selected() == nullptr) return std::nullopt;
    return m_entries->selected()->entry.key;
}

void frmMergeEntry::done(int result)
{
    WindowSize::save(*this, m_platform.settings);
    QDialog::done(result);
}
