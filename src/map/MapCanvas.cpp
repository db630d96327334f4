// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapCanvas.h"

#include "map/MapProjection.h"
#include "widgets/Paper.h"

#include <QAccessible>
#include <QPainter>

#include <algorithm>
#include <cmath>

MapCanvas::MapCanvas(QWidget* parent) : QWidget(parent)
{
    AccessibleItems::install();
    setMinimumSize(120, 90);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    // the states cover every pixel
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void MapCanvas::setStates(StatesLayer layer)
{
    m_states.setLayer(std::move(layer));
    update();
}

void MapCanvas::setPlaces(const std::vector<clsCities>& places)
{
    m_markers.set(places);
    m_ringed.reset();
    arrange();
}

void MapCanvas::setGrouped(bool grouped)
{
    m_markers.setGrouped(grouped);
    arrange();
}

void MapCanvas::setHidden(HiddenColours hidden)
{
    if (hidden == m_markers.hidden()) return;
    m_markers.setHidden(hidden);
    arrange();
}

void MapCanvas::setRaised(std::optional<int> colour)
{
    m_markers.setRaised(colour);
    update();
}

/// To be called when places or extent have changed.
void MapCanvas::arrange()
{
    const bool isAnew = m_markers.arrange(m_extent, font());
    if (isAnew) {
        m_states.setObstacles(m_markers.obstacles());
        QAccessibleTableModelChangeEvent changed(this, QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&changed);
    }
    if (isAnew || m_extent.scale() != m_arrangedScale) {
        m_arrangedScale = m_extent.scale();
        Q_EMIT arranged();
    }
    update();
}

void MapCanvas::goToPlaces()
{
    m_extent.goTo(m_markers.positions());
    arrange();
}

void MapCanvas::showEntry(std::size_t entry)
{
    m_extent.show(m_markers.position(entry));
    arrange();
}

void MapCanvas::setRinged(std::optional<std::size_t> entry)
{
    if (entry && *entry >= m_markers.count()) entry.reset();
    if (entry == m_ringed) return;
    m_ringed = entry;
    update();
    if (accessibleCurrentItem() < 0 || !hasFocus()) return;
    QAccessibleEvent focused(this, QAccessible::Focus);
    focused.setChild(accessibleCurrentItem());
    QAccessible::updateAccessibility(&focused);
}

void MapCanvas::zoom(double factor, QPointF about)
{
    m_extent.zoom(factor, about);
    arrange();
}

void MapCanvas::goToState(QPointF screen)
{
    const StateShape* state = m_states.layer().stateAt(m_extent.toPlane(screen));
    if (const auto inset = m_extent.insetAt(screen))
        m_extent.fit(m_extent.insets()[*inset].state().bounds);
    else if (state && !m_extent.isFit(state->bounds))
        m_extent.fit(state->bounds);
    else
        m_extent.zoom(zoomStep, screen);
    arrange();
}

void MapCanvas::zoomTo(const QRectF& screen)
{
    m_extent.zoomTo(screen);
    arrange();
}

void MapCanvas::pan(QPointF pixels)
{
    m_extent.pan(pixels);
    arrange();
}

void MapCanvas::takeApart(std::size_t entry)
{
    QRectF places;
    for (const std::size_t member : drawnWith(entry)) {
        const QPointF place = m_extent.toScreen(m_markers.positions()[member]);
        // a rectangle unites only with one that has an area
        places |= QRectF(place - QPointF(0.5, 0.5), QSizeF(1, 1));
    }
    constexpr double room = 0.15;
    const double across = room * std::max(places.width(), places.height());
    places.adjust(-across, -across, across, across);
    const double factor = std::min(width() / places.width(), height() / places.height());
    // a disc of a single spot stays one, and a nearer look shows where that is
    if (places.width() <= 2 || factor < zoomStep)
        zoom(zoomStep, positionOf(entry));
    else
        zoomTo(places);
}

void MapCanvas::zoomIn()
{
    zoom(zoomStep, QRectF(rect()).center());
}

void MapCanvas::zoomOut()
{
    zoom(1 / zoomStep, QRectF(rect()).center());
}

void MapCanvas::showFullExtent()
{
    const StatesLayer& layer = m_states.layer();
    m_extent.fitWithInsets(hasStates() ? layer.fullExtent() : MapProjection::contiguousStates(),
                           layer.insets(m_markers.positions()));
    arrange();
}

void MapCanvas::showContiguousStates()
{
    m_extent.fit(MapProjection::contiguousStates());
    arrange();
}

QPointF MapCanvas::positionOf(std::size_t entry) const
{
    return m_extent.toScreen(m_markers.position(entry));
}

QPointF MapCanvas::degreesAt(QPointF screen) const
{
    const QPointF degrees = MapProjection::toDegrees(m_extent.toPlane(screen));
    // in the plane, the east beyond the back of the map lies in the west
    return {std::remainder(degrees.x(), 360), degrees.y()};
}

std::optional<std::size_t> MapCanvas::entryAt(QPointF screen) const
{
    return m_markers.entryAt(screen, m_extent);
}

void MapCanvas::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    m_states.paint(painter, m_extent, palette(), font());
    m_markers.paint(painter, m_extent, rect(), devicePixelRatioF());
    if (m_ringed) {
        m_markers.paintRinged(painter, m_extent, *m_ringed, palette().color(QPalette::Highlight));
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void MapCanvas::draw(QPainter& painter) const
{
    m_states.draw(painter, m_extent, Paper::font(font()));
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(Paper::faint, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRect(QPoint(), m_extent.size().toSize()));
    m_markers.draw(painter, m_extent);
}

void MapCanvas::resizeEvent(QResizeEvent* /*event*/)
{
    m_extent.setSize(size());
    arrange();
}

void MapCanvas::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) m_states.forget();
    if (event->type() == QEvent::FontChange) arrange();
}

QString MapCanvas::accessibleItemName(int item) const
{
    return m_markers.name(m_markers.leads()[static_cast<std::size_t>(item)]);
}

QRect MapCanvas::accessibleItemRect(int item) const
{
    const std::size_t lead = m_markers.leads()[static_cast<std::size_t>(item)];
    if (m_extent.isCovered(m_markers.position(lead))) return {};
    const double width = 2 * m_markers.radiusOf(lead);
    QRectF marker(0, 0, width, width);
    marker.moveCenter(positionOf(lead));
    return marker.toAlignedRect();
}

int MapCanvas::accessibleCurrentItem() const
{
    if (!m_ringed) return -1;
    const std::vector<std::size_t>& leads = m_markers.leads();
    const auto found = std::ranges::lower_bound(leads, m_markers.leadOf(*m_ringed));
    if (found == leads.end() || *found != m_markers.leadOf(*m_ringed)) return -1;
    return static_cast<int>(found - leads.begin());
}
