// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapCanvas.h"

#include "map/MapProjection.h"
#include "widgets/Paper.h"

#include <QAccessible>
#include <QPainter>

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
    m_states.setObstacles(m_markers.obstacles());
    m_ringed.reset();
    QAccessibleTableModelChangeEvent changed(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&changed);
    update();
}

void MapCanvas::goToPlaces()
{
    m_extent.goTo(m_markers.positions());
    update();
}

void MapCanvas::showEntry(std::size_t entry)
{
    m_extent.show(m_markers.position(entry));
    update();
}

void MapCanvas::setRinged(std::optional<std::size_t> entry)
{
    if (entry && *entry >= m_markers.count()) entry.reset();
    if (entry == m_ringed) return;
    m_ringed = entry;
    update();
    if (!m_ringed || !hasFocus()) return;
    QAccessibleEvent focused(this, QAccessible::Focus);
    focused.setChild(static_cast<int>(*m_ringed));
    QAccessible::updateAccessibility(&focused);
}

void MapCanvas::zoom(double factor, QPointF about)
{
    m_extent.zoom(factor, about);
    update();
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
    update();
}

void MapCanvas::zoomTo(const QRectF& screen)
{
    m_extent.zoomTo(screen);
    update();
}

void MapCanvas::pan(QPointF pixels)
{
    m_extent.pan(pixels);
    update();
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
    update();
}

void MapCanvas::showContiguousStates()
{
    m_extent.fit(MapProjection::contiguousStates());
    update();
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
}

void MapCanvas::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) m_states.forget();
}

QString MapCanvas::accessibleItemName(int item) const
{
    return m_markers.name(static_cast<std::size_t>(item));
}

QRect MapCanvas::accessibleItemRect(int item) const
{
    const auto entry = static_cast<std::size_t>(item);
    if (m_extent.isCovered(m_markers.position(entry))) return {};
    QRectF marker(0, 0, m_markers.markerExtent(), m_markers.markerExtent());
    marker.moveCenter(positionOf(entry));
    return marker.toAlignedRect();
}

int MapCanvas::accessibleCurrentItem() const
{
    return m_ringed ? static_cast<int>(*m_ringed) : -1;
}
