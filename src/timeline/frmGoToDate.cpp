// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/frmGoToDate.h"

#include "timeline/Timeline.h"
#include "widgets/DialogButtons.h"
#include "widgets/LineEdit.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

frmGoToDate::frmGoToDate(Timeline& timeline, QWidget* parent)
    : QDialog(parent), m_timeline(timeline), txtDate(new LineEdit(this)), lblProblem(new QLabel(this))
{
    setObjectName(QStringLiteral("frmGoToDate"));
    setWindowTitle(tr("Go to Date"));
    txtDate->setObjectName(QStringLiteral("txtDate"));
    txtDate->setText(dateText(timeline.window().currentTime()));
    txtDate->selectAll();
    lblProblem->setObjectName(QStringLiteral("lblProblem"));
    lblProblem->setTextFormat(Qt::PlainText);
    lblProblem->setWordWrap(true);
    layOut();
}

void frmGoToDate::layOut()
{
    auto* hint = new QLabel(tr("Such as 2005, 08/2005, 08/29/2005 or now"), this);
    txtDate->setAccessibleDescription(hint->text());
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("&Date:"), txtDate);
    form->addRow(QString(), hint);
    form->addRow(QString(), lblProblem);
    // room for a problem of two lines, so that the window rarely grows
    lblProblem->setMinimumHeight(2 * lblProblem->fontMetrics().lineSpacing());
    lblProblem->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QDialogButtonBox* buttons = DialogButtons::okAndCancel(*this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch();
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &frmGoToDate::cmdOK);
}

void frmGoToDate::cmdOK()
{
    const QString problem = m_timeline.goToDate(txtDate->text());
    if (problem.isEmpty()) return accept();
    lblProblem->setText(problem);
    layout()->activate();
    resize(width(), std::max(height(), layout()->totalHeightForWidth(width())));
    txtDate->setFocus();
    txtDate->selectAll();
    QAccessibleEvent alert(lblProblem, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}
