// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/ChartField.h"

#include "editors/PathEdit.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

ChartField::ChartField(QWidget* parent)
    : QWidget(parent),
      txtOrganizationChart(new PathEdit(this)),
      cmdUploadOrgChart(new QPushButton(tr("Browse…"), this)),
      m_warning(new QWidget(this)),
      m_warningText(new QLabel(m_warning)),
      m_takeCopy(new QPushButton(tr("Use the stored copy"), m_warning))
{
    txtOrganizationChart->setObjectName(QStringLiteral("txtOrganizationChart"));
    txtOrganizationChart->setAccessibleName(tr("Organization chart"));
    cmdUploadOrgChart->setObjectName(QStringLiteral("cmdUploadOrgChart"));
    cmdUploadOrgChart->setAutoDefault(false);
    m_warning->setObjectName(QStringLiteral("fraChartWarning"));
    m_warningText->setObjectName(QStringLiteral("lblChartWarning"));
    m_warningText->setWordWrap(true);
    m_takeCopy->setObjectName(QStringLiteral("cmdTakeStoredChart"));
    m_takeCopy->setAutoDefault(false);
    setFocusProxy(txtOrganizationChart);

    auto* path = new QHBoxLayout;
    path->addWidget(txtOrganizationChart);
    path->addWidget(cmdUploadOrgChart);
    auto* warning = new QHBoxLayout(m_warning);
    warning->setContentsMargins(0, 0, 0, 0);
    auto* sign = new QLabel(m_warning);
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
    sign->setPixmap(QIcon::fromTheme(QStringLiteral("data-warning")).pixmap(side));
    warning->addWidget(sign);
    warning->addWidget(m_warningText, 1);
    warning->addWidget(m_takeCopy);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(path);
    layout->addWidget(m_warning);
    dropWarning();

    connect(cmdUploadOrgChart, &QPushButton::clicked, this, &ChartField::browsePressed);
    connect(txtOrganizationChart, &PathEdit::textChanged, this, [this] { Q_EMIT pathChanged(this->path()); });
    connect(m_takeCopy, &QPushButton::clicked, this, [this] { setPath(m_storedCopy); });
}

QString ChartField::path() const
{
    return txtOrganizationChart->path();
}

void ChartField::setPath(const QString& path)
{
    txtOrganizationChart->setText(path);
}

void ChartField::warn(const QString& text, const std::optional<QString>& storedCopy)
{
    m_storedCopy = storedCopy.value_or(QString());
    m_takeCopy->setVisible(storedCopy.has_value());
    m_warningText->setText(text);
    m_warning->show();
}

void ChartField::dropWarning()
{
    m_warning->hide();
}
