// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/BrowsePage.h"

#include "platform/StdREG.h"
#include "views/clsView.h"

#include <QApplication>
#include <QSplitter>
#include <QStackedWidget>
#include <QStringList>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

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

QString detailsName()
{
    return QStringLiteral("Details");
}

QString hidden()
{
    return QStringLiteral("hidden");
}

/// The part of the second of two sizes that a splitter has.
double shareOf(const QSplitter& splitter, double former)
{
    const QList<int> sizes = splitter.sizes();
    const int all = sizes[0] + sizes[1];
    return all == 0 ? former : std::clamp(static_cast<double>(sizes[1]) / all, smallestShare, largestShare);
}

/// The reverse of `shareOf`, to the pixel: what is divided again and again must not move. A splitter that is
/// not shown yet is smaller than its parts need, which would change the shares.
void divide(QSplitter& splitter, double share)
{
    constexpr int notShown = 10000;
    const QSize whole = splitter.isVisible() ? splitter.size() : QSize(notShown, notShown);
    const int length =
        (splitter.orientation() == Qt::Horizontal ? whole.width() : whole.height()) - splitter.handleWidth();
    const int second = static_cast<int>(std::lround(length * share));
    splitter.setSizes({length - second, second});
}

} // namespace

BrowsePage::BrowsePage(QWidget* list, SettingsStore& settings, QWidget* parent)
    : QWidget(parent),
      m_settings(settings),
      m_columns(new QSplitter(Qt::Horizontal, this)),
      m_splitter(new QSplitter(m_columns)),
      m_graphics(new QStackedWidget(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_columns);
    m_columns->setObjectName(QStringLiteral("columns"));
    m_columns->setChildrenCollapsible(false);
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
    Place place{std::move(maker), nullptr, side, side == Qt::Horizontal ? 0.45 : 0.4, false};
    const QStringList saved = StdREG(m_settings).GetRegString(section(), valueName(kind)).split(u' ');
    if (saved.size() >= 2) {
        place.side = saved[0] == QStringLiteral("right") ? Qt::Horizontal : Qt::Vertical;
        place.share = std::clamp(saved[1].toDouble(), smallestShare, largestShare);
        place.isHidden = saved.contains(hidden());
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
    change(side, false);
}

void BrowsePage::hideGraphic(bool hidden)
{
    change(side(), hidden);
}

void BrowsePage::change(Qt::Orientation side, bool isHidden)
{
    if (m_shown == nullptr || (m_shown->side == side && m_shown->isHidden == isHidden)) return;
    rememberShare();
    const bool isBack = m_shown->isHidden && !isHidden;
    m_shown->side = side;
    m_shown->isHidden = isHidden;
    applyPlace();
    if (isBack) Q_EMIT graphicShown();
}

void BrowsePage::rememberShare()
{
    if (m_shown == nullptr || m_graphics->isHidden()) return;
    m_shown->share = shareOf(*m_splitter, m_shown->share);
}

void BrowsePage::applyPlace()
{
    if (m_shown->isHidden) {
        if (m_graphics->isAncestorOf(QApplication::focusWidget())) setFocus();
        m_graphics->hide();
        return applyDetails();
    }
    m_graphics->show();
    QWidget*& graphic = m_shown->graphic;
    if (graphic == nullptr) {
        graphic = m_shown->maker(m_graphics);
        m_graphics->addWidget(graphic);
    }
    m_graphics->setCurrentWidget(graphic);
    // a stack is as large as its largest page wants to be, unless the others are ignored
    for (const auto& [kind, place] : m_places) {
        const bool isShown = place.graphic == graphic;
        const auto policy = isShown ? QSizePolicy::Preferred : QSizePolicy::Ignored;
        if (place.graphic != nullptr) place.graphic->setSizePolicy(policy, policy);
    }
    m_splitter->setOrientation(m_shown->side);
    applyDetails();
    divide(*m_splitter, m_shown->share);
}

void BrowsePage::setDetails(Maker maker)
{
    m_details.maker = std::move(maker);
    const QStringList saved = StdREG(m_settings).GetRegString(section(), detailsName()).split(u' ');
    if (saved.size() != 2) return;
    m_details.isShown = saved[0] == QStringLiteral("shown");
    m_details.share = std::clamp(saved[1].toDouble(), smallestShare, largestShare);
}

void BrowsePage::showDetails(bool shown)
{
    rememberShare();
    rememberDetails();
    m_details.isShown = shown;
    if (m_shown != nullptr) applyPlace();
}

void BrowsePage::rememberDetails()
{
    if (m_details.widget == nullptr || m_details.widget->isHidden()) return;
    m_details.share = shareOf(*m_columns, m_details.share);
}

void BrowsePage::applyDetails()
{
    if (m_details.isShown && m_details.widget == nullptr) {
        m_details.widget = m_details.maker(m_columns);
        m_details.widget->hide();
        m_columns->addWidget(m_details.widget);
    }
    if (m_details.widget == nullptr || m_details.widget->isHidden() != m_details.isShown) return;
    m_details.widget->setVisible(m_details.isShown);
    divide(*m_columns, m_details.share);
}

void BrowsePage::save()
{
    rememberShare();
    rememberDetails();
    StdREG settings(m_settings);
    settings.WriteRegString(section(), detailsName(),
                            QStringLiteral("%1 %2")
                                .arg(m_details.isShown ? QStringLiteral("shown") : hidden())
                                .arg(m_details.share, 0, 'f', 3));
    for (const auto& [kind, place] : m_places) {
        const QString side = place.side == Qt::Horizontal ? QStringLiteral("right") : QStringLiteral("below");
        QString value = QStringLiteral("%1 %2").arg(side).arg(place.share, 0, 'f', 3);
        if (place.isHidden) value += u' ' + hidden();
        settings.WriteRegString(section(), valueName(kind), value);
    }
}
