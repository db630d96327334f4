// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/frmChangedSince.h"

#include "history/VersionComparison.h"
#include "util/ReadableLine.h"
#include "widgets/WindowSize.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize firstChangedSize(860, 560);

/// Such as `Document "Levees"`.
QString titleOf(RecordKind kind, const QString& title)
{
    const QString text = kind == RecordKind::Document ? frmChangedSince::tr("Document \"%1\"")
                         : kind == RecordKind::Event  ? frmChangedSince::tr("Event \"%1\"")
                                                      : frmChangedSince::tr("Organization \"%1\"");
    return text.arg(readableLine(title));
}

} // namespace

frmChangedSince::frmChangedSince(const Platform& platform, QWidget* parent)
    : QDialog(parent),
      m_platform(platform),
      m_caption(new QLabel(this)),
      m_comparison(new VersionComparison(this))
{
    setObjectName(QStringLiteral("frmChangedSince"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
    m_caption->setObjectName(QStringLiteral("lblCaption"));
    m_caption->setTextFormat(Qt::PlainText);
    m_caption->setWordWrap(true);
    auto* goOn = new QPushButton(tr("&Go On"), this);
    goOn->setObjectName(QStringLiteral("cmdOK"));
    goOn->setAutoDefault(false);
    auto* cancel = new QPushButton(tr("Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setDefault(true);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(goOn, QDialogButtonBox::AcceptRole);
    buttons->addButton(cancel, QDialogButtonBox::RejectRole);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_caption);
    layout->addWidget(m_comparison, 1);
    layout->addWidget(buttons);
    connect(goOn, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    cancel->setFocus();
    WindowSize::restore(*this, m_platform.settings, firstChangedSize);
}

bool frmChangedSince::ask(const QString& step, const std::vector<StepDifference>& differences)
{
    setWindowTitle(readableLine(step));
    std::vector<ComparedVersions> records;
    QStringList entries;
    for (const StepDifference& each : differences) {
        const auto* const kind =
            std::find_if(recordKinds.begin(), recordKinds.end(),
                         [&each](RecordKind known) { return recordNames(known).record == each.kind; });
        if (kind == recordKinds.end())
            entries << tr("\"%1\" was changed.").arg(readableLine(each.title));
        else
            records.push_back({*kind,
                               titleOf(*kind, each.title),
                               tr("After the Step"),
                               {each.expected},
                               tr("Now"),
                               {each.found}});
    }
    if (records.empty()) {
        m_caption->setText(tr(
            "Another program has changed this list since. If you go on, only entries that are still as the "
            "step left them are changed."));
        m_comparison->tell(entries.join(u'\n'));
    } else {
        m_caption->setText(tr(
            "Another program has changed this since. If you go on, its changes are taken out of the record, "
            "but stay in the history."));
        m_comparison->compare(std::move(records));
    }
    return exec() == Accepted;
}

void frmChangedSince::done(int result)
{
    WindowSize::save(*this, m_platform.settings);
    QDialog::done(result);
}
