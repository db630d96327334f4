// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/CriterionBox.h"

#include "search/WrappingCheckBox.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

CriterionBox::CriterionBox(const QString& stem, const QString& caption, QWidget* parent)
    : QWidget(parent),
      m_check(new WrappingCheckBox(caption, this)),
      m_frame(new QFrame(this)),
      m_frameLayout(new QHBoxLayout(m_frame)),
      m_count(new QLabel(m_frame))
{
    m_check->setObjectName(QStringLiteral("chk") + stem);
    setFocusProxy(m_check);
    m_frame->setObjectName(QStringLiteral("fra") + stem);
    m_frame->setFrameShape(QFrame::StyledPanel);
    m_frame->setEnabled(false);
    m_count->setObjectName(QStringLiteral("lbl") + stem);
    m_count->setTextFormat(Qt::PlainText);
    m_count->setWordWrap(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_check);
    layout->addWidget(m_frame, 1);
    connect(m_check, &QCheckBox::toggled, this, [this](bool on) {
        m_frame->setEnabled(on);
        Q_EMIT changed();
    });
}

bool CriterionBox::isOn() const
{
    return m_check->isChecked();
}

void CriterionBox::setOn(bool on)
{
    m_check->setChecked(on);
}

void CriterionBox::showCount(const QString& text)
{
    m_count->setText(text);
}
