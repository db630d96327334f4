// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/frmChangedSince.h"

#include "util/ReadableLine.h"
#include "widgets/WindowSize.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize firstChangedSize(760, 480);

QString labelOf(const StepDifference& difference)
{
    const QString text = difference.kind == u"Document" ? frmChangedSince::tr("Document \"%1\"")
                         : difference.kind == u"Event"  ? frmChangedSince::tr("Event \"%1\"")
                         : difference.kind == u"Organization"
                             ? frmChangedSince::tr("Organization \"%1\"")
                             : frmChangedSince::tr("\"%1\"", "an entry of a list");
    return text.arg(readableLine(difference.title));
}

} // namespace

frmChangedSince::frmChangedSince(const Platform& platform, QWidget* parent)
    : QDialog(parent), m_platform(platform), lstChanged(new QListWidget(this))
{
    setObjectName(QStringLiteral("frmChangedSince"));
    setSizeGripEnabled(true);
    auto* caption =
        new QLabel(tr("What this step changed was changed again since, outside this window. If you "
                      "go on, the later changes are replaced. They are kept in the history."),
                   this);
    caption->setObjectName(QStringLiteral("lblCaption"));
    caption->setTextFormat(Qt::PlainText);
    caption->setWordWrap(true);
    lstChanged->setObjectName(QStringLiteral("lstChanged"));
    lstChanged->setAccessibleName(tr("What Was Changed"));
    auto* goOn = new QPushButton(tr("&Go On"), this);
    goOn->setObjectName(QStringLiteral("cmdOK"));
    goOn->setAutoDefault(false);
    auto* cancel = new QPushButton(tr("Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setDefault(true);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(goOn, QDialogButtonBox::AcceptRole);
    buttons->addButton(cancel, QDialogButtonBox::RejectRole);
    auto* middle = new QHBoxLayout;
    middle->addWidget(lstChanged);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(caption);
    layout->addLayout(middle, 1);
    layout->addWidget(buttons);
    connect(goOn, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(lstChanged, &QListWidget::currentRowChanged, this, &frmChangedSince::showDifference);
    cancel->setFocus();
    WindowSize::restore(*this, m_platform.settings, firstChangedSize);
}

bool frmChangedSince::ask(const QString& step, const std::vector<StepDifference>& differences)
{
    setWindowTitle(readableLine(step));
    m_differences = differences;
    for (const StepDifference& each : differences)
        lstChanged->addItem(labelOf(each));
    lstChanged->setCurrentRow(0);
    return exec() == Accepted;
}

void frmChangedSince::showDifference(int /*row*/) {}

void frmChangedSince::done(int result)
{
    WindowSize::save(*this, m_platform.settings);
    QDialog::done(result);
}
