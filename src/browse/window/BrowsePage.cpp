// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/BrowsePage.h"

#include "platform/StdREG.h"
#include "views/clsView.h"

#include <QSplitter>
#include <QStackedWidget>
#include <QStringList>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr double smallestShare = 0.1;
constexpr double largestShare = 0.9;

QString valueName(RecordKind kind)
{
    return QStringLiteral("Graphic%1").arg(static_cast<int>(viewOf(kind)));
}

QString section()
{
    return QStringLiteral("Window");
}

} // namespace

BrowsePage::BrowsePage(QWidget* list, SettingsStore& settings, QWidget* parent)
    : QWidget(parent),
      m_settings(settings),
      m_splitter(new QSplitter(this)),
      m_graphics(new QStackedWidget(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_splitter);
    m_splitter->setObjectName(QStringLiteral("splitter"));
    m_splitter->addWidget(list);
    m_splitter->addWidget(m_graphics);
    m_splitter->setChildrenCollapsible(false);
    m_graphics->hide();
    setFocusProxy(list);
}

BrowsePage::~BrowsePage() = default;

void BrowsePage::setGraphic(RecordKind kind, Maker maker, Qt::Orientation side)
{
    Place place{std::move(maker), nullptr, side, side == Qt::Horizontal ? 0.45 : 0.4};
    const QStringList saved = StdREG(m_settings).GetRegString(section(), valueName(kind)).split(u' ');
    if (saved.size() == 2) {
        place.side = saved[0] == QStringLiteral("right") ? Qt::Horizontal : Qt::Vertical;
        place.share = std::clamp(saved[1].toDouble(), smallestShare, largestShare);
    }
    m_places[kind] = place;
}

void BrowsePage::showKind(RecordKind kind)
{
    Place& place = m_places.at(kind);
    if (&place == m_shown) return;
    rememberShare();
    m_shown = &place;
    applyPlace();
}

Qt::Orientation BrowsePage::side() const
{
    return m_shown == nullptr ? Qt::Vertical : m_shown->side;
}

void BrowsePage::setSide(Qt::Orientation side)
{
    if (m_shown == nullptr || m_shown->side == side) return;
    rememberShare();
    m_shown->side = side;
    applyPlace();
}

void BrowsePage::rememberShare()
{
    const QList<int> sizes = m_splitter->sizes();
    if (m_shown == nullptr || m_graphics->isHidden() || sizes[0] + sizes[1] == 0) return;
    m_shown->share =
        std::clamp(static_cast<double>(sizes[1]) / (sizes[0] + sizes[1]), smallestShare, largestShare);
}

void BrowsePage::applyPlace()
{
    m_graphics->show();
    QWidget*& graphic = m_shown->graphic;
    if (graphic == nullptr) {
        graphic = m_shown->maker(m_graphics);
        m_graphics->addWidget(graphic);
    }
    m_graphics->setCurrentWidget(graphic);
    m_splitter->setOrientation(m_shown->side);
    const int length = m_shown->side == Qt::Horizontal ? width() : height();
    const int forGraphic = static_cast<int>(length * m_shown->share);
    m_splitter->setSizes({length - forGraphic, forGraphic});
}

void BrowsePage::save()
{
    rememberShare();
    StdREG settings(m_settings);
    for (const auto& [kind, place] : m_places) {
        const QString side = place.side == Qt::Horizontal ? QStringLiteral("right") : QStringLiteral("below");
        settings.WriteRegString(section(), valueName(kind),
                                QStringLiteral("%1 %2").arg(side).arg(place.share, 0, 'f', 3));
    }
}
