// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ProgressWindow.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int dialogWidth = 480;

} // namespace

ProgressWindow::ProgressWindow(QWidget* parent)
    : QDialog(parent),
      m_title(new QLabel(this)),
      m_step(new QLabel(this)),
      m_rate(new QLabel(this)),
      m_bar(new QProgressBar(this))
{
    setMinimumWidth(dialogWidth);
    m_title->setTextFormat(Qt::PlainText);
    m_title->setWordWrap(true);
    m_step->setTextFormat(Qt::PlainText);
    m_step->setObjectName(QStringLiteral("lblStep"));
    m_rate->setTextFormat(Qt::PlainText);
    m_rate->setObjectName(QStringLiteral("lblRate"));
    m_bar->setRange(0, 100);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    m_cancel = buttons->button(QDialogButtonBox::Cancel);
    m_cancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* lastLine = new QHBoxLayout;
    lastLine->addWidget(m_rate, 1);
    lastLine->addWidget(buttons);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_title);
    layout->addWidget(m_bar);
    layout->addWidget(m_step);
    layout->addLayout(lastLine);
}

void ProgressWindow::setTitle(const QString& text)
{
    m_title->setText(text);
    m_title->setHidden(text.isEmpty());
}

void ProgressWindow::setStep(const QString& text)
{
    m_step->setText(text);
}

void ProgressWindow::setRate(const QString& text)
{
    m_rate->setText(text);
}

void ProgressWindow::setBarName(const QString& accessibleName)
{
    m_bar->setAccessibleName(accessibleName);
}

void ProgressWindow::setPercent(std::optional<int> percent)
{
    m_bar->setMaximum(percent ? 100 : 0);
    m_bar->setValue(percent.value_or(0));
}

void ProgressWindow::showStopping()
{
    m_cancel->setEnabled(false);
    m_step->setText(tr("Stopping …"));
    m_rate->clear();
}
