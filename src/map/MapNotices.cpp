// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapNotices.h"

#include "widgets/LinkButton.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int noticeMargin = 6;

} // namespace

MapNotices::MapNotices(QWidget& map) : QWidget(&map)
{
    setObjectName(QStringLiteral("MapNotices"));
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins({});
    lines->setSpacing(0);
    m_empty = addLabel(QStringLiteral("lblEmptyMap"));
    m_hidden = addLabel(QStringLiteral("lblHiddenOnMap"));
    makeOffer();
    auto* over = new QVBoxLayout(&map);
    over->setContentsMargins({});
    over->addWidget(this, 0, Qt::AlignTop);
}

QLabel* MapNotices::addLabel(const QString& name)
{
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setForegroundRole(QPalette::Text);
    label->setBackgroundRole(QPalette::Base);
    label->setAutoFillBackground(true);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setMargin(noticeMargin);
    label->hide();
    layout()->addWidget(label);
    return label;
}

void MapNotices::show(QLabel& label, const QString& text)
{
    label.setText(text);
    label.setVisible(!text.isEmpty());
}

void MapNotices::makeOffer()
{
    m_offer = new QWidget(this);
    m_offer->setObjectName(QStringLiteral("groupOffer"));
    m_offer->setBackgroundRole(QPalette::Base);
    m_offer->setAutoFillBackground(true);
    auto* line = new QHBoxLayout(m_offer);
    line->setContentsMargins(noticeMargin, 2, noticeMargin, 2);
    auto* text = new QLabel(tr("Most of the markers lie below others."), m_offer);
    text->setForegroundRole(QPalette::Text);
    line->addStretch();
    line->addWidget(text);
    LinkButton* group = makeLink(QStringLiteral("cmdGroup"), tr("Group Them"));
    LinkButton* refuse = makeLink(QStringLiteral("cmdRefuseGroup"), tr("Not Now"));
    line->addWidget(group);
    line->addWidget(refuse);
    line->addStretch();
    connect(group, &LinkButton::clicked, this, &MapNotices::groupsWanted);
    connect(refuse, &LinkButton::clicked, this, &MapNotices::groupsRefused);
    m_offer->hide();
    layout()->addWidget(m_offer);
}

LinkButton* MapNotices::makeLink(const QString& name, const QString& text)
{
    auto* link = new LinkButton(m_offer);
    link->setObjectName(name);
    link->setLink(text);
    return link;
}

void MapNotices::offerGroups(bool offered)
{
    // the focus must not fall back on another control than the map
    if (!offered && m_offer->isAncestorOf(window()->focusWidget())) parentWidget()->setFocus();
    m_offer->setVisible(offered);
}
