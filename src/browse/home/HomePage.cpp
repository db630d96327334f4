// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/home/HomePage.h"

#include "browse/home/HomeButton.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int buttonSpacing = 20;
constexpr int titleSpacing = 28;

} // namespace

HomePage::HomePage(QWidget* parent)
    : QWidget(parent), m_subtitle(new QLabel(this)), m_buttons(new QHBoxLayout)
{
    setObjectName(QStringLiteral("pnlHome"));
    setAccessibleName(tr("Home page"));

    auto* title = new QLabel(tr("Orvik Database"), this);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 2.2);
    font.setBold(true);
    title->setFont(font);
    title->setAlignment(Qt::AlignHCenter);
    m_subtitle->setAlignment(Qt::AlignHCenter);
    m_subtitle->setTextFormat(Qt::PlainText);

    m_buttons->setSpacing(buttonSpacing);
    m_buttons->addStretch();
    addKind(RecordKind::Document, QStringLiteral("home-documents"), tr("&Documents"),
            tr("Reports, publications and pictures"));
    addKind(RecordKind::Event, QStringLiteral("home-events"), tr("&Events"), tr("What happened, and when"));
    addKind(RecordKind::Organization, QStringLiteral("home-organizations"), tr("&Organizations"),
            tr("Who took part, and where they are"));
    connect(
        &addButton(QStringLiteral("home-search"), tr("Sear&ch"), tr("Find words in records of every kind")),
        &QAbstractButton::clicked, this, &HomePage::searchChosen);
    connect(&addButton(QStringLiteral("home-help"), tr("Hel&p"), tr("How to do what, in the user's guide")),
            &QAbstractButton::clicked, this, &HomePage::helpChosen);
    m_buttons->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->addStretch(2);
    layout->addWidget(title);
    layout->addWidget(m_subtitle);
    layout->addSpacing(titleSpacing);
    layout->addLayout(m_buttons);
    layout->addStretch(3);
}

void HomePage::setSubtitle(const QString& text)
{
    m_subtitle->setText(text);
}

void HomePage::addKind(RecordKind kind, const QString& picture, const QString& caption,
                       const QString& explanation)
{
    connect(&addButton(picture, caption, explanation), &QAbstractButton::clicked, this,
            [this, kind] { Q_EMIT recordsChosen(kind); });
}

HomeButton& HomePage::addButton(const QString& picture, const QString& caption, const QString& explanation)
{
    auto* button =
        new HomeButton(QStringLiteral(":/pictures/%1.svg").arg(picture), caption, explanation, this);
    button->setObjectName(QStringLiteral("Image1(%1)").arg(m_count++));
    QString name = caption;
    button->setAccessibleName(name.remove(u'&'));
    m_buttons->addWidget(button);
    return *button;
}
