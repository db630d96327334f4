#include "map/MapView.h"

#include "map/MapProjection.h"
#include "widgets/PlainToolTip.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include <cmath>

namespace {

constexpr double clickZoom = 2;

} // namespace

MapView::MapView(QWidget* parent) : QWidget(parent)
{
    AccessibleItems::install();
    setObjectName(QStringLiteral("Map1"));
    setAccessibleName(tr("Map of the organizations"));
    setAccessibleDescription(
        tr("Page Down and Page Up go from place to place, Return selects the organizations "
           "there, plus and minus zoom, the arrow keys move the map, Home shows all of it"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(false);
    setMinimumSize(120, 90);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    // the states cover every pixel
    setAttribute(Qt::WA_OpaquePaintEvent);
    updateCursor();
}

void MapView::setStates(StatesLayer layer)
{
    m_states.setLayer(std::move(layer));
    update();
}

void MapView::setPlaces(const std::vector<clsCities>& places)
{
    m_markers.set(places);
    m_states.setMarkers(m_markers.positions());
    m_ringed.reset();
    QAccessibleTableModelChangeEvent changed(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&changed);
    update();
}

void MapView::goToPlaces()
{
    m_extent.goTo(m_markers.positions());
    update();
}

void MapView::showEntry(std::size_t entry)
{
    m_extent.show(m_markers.position(entry));
    update();
}

void MapView::setRinged(std::optional<std::size_t> entry)
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

void MapView::setTool(MapTool tool)
{
    if (tool == m_tool) return;
    m_tool = tool;
    updateCursor();
    Q_EMIT toolChanged(tool);
}

void MapView::updateCursor()
{
    setCursor(cursorOf(m_tool, m_press.has_value(), devicePixelRatioF()));
}

void MapView::zoom(double factor, QPointF about)
{
    m_extent.zoom(factor, about);
    update();
}

void MapView::zoomIn()
{
    zoom(clickZoom, QRectF(rect()).center());
}

void MapView::zoomOut()
{
    zoom(1 / clickZoom, QRectF(rect()).center());
}

void MapView::showFullExtent()
{
    m_extent.fit(hasStates() ? m_states.layer().fullExtent() : MapProjection::contiguousStates());
    update();
}

void MapView::showContiguousStates()
{
    m_extent.fit(MapProjection::contiguousStates());
    update();
}

QPointF MapView::positionOf(std::size_t entry) const
{
    return m_extent.toScreen(m_markers.position(entry));
}

std::optional<std::size_t> MapView::entryAt(QPointF screen) const
{
    return m_markers.entryAt(screen, m_extent);
}

// Painting ------------------------------------------------------------------------------------------------

void MapView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    m_states.paint(painter, m_extent, palette(), font());
    m_markers.paint(painter, m_extent, rect(), devicePixelRatioF());
    if (m_ringed) {
        m_markers.paintRinged(painter, m_extent, *m_ringed, palette().color(QPalette::Highlight));
    }
    if (m_press && m_press->isDrag && m_tool == MapTool::ZoomIn) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DashLine));
        painter.drawRect(QRectF(m_press->begin, m_press->last).normalized());
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void MapView::resizeEvent(QResizeEvent* /*event*/)
{
    m_extent.setSize(size());
}

void MapView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) m_states.forget();
}

bool MapView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto& help = *static_cast<QHelpEvent*>(event);
    const auto entry = entryAt(help.pos());
    if (entry && describe)
        QToolTip::showText(help.globalPos(), describe(*entry), this);
    else
        QToolTip::hideText();
    return true;
}

// Mouse and keyboard --------------------------------------------------------------------------------------

void MapView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_press = Press{event->position(), event->position()};
        updateCursor();
    } else if (event->button() == Qt::RightButton && !m_press) {
        const auto entry = entryAt(event->position());
        if (entry) Q_EMIT menuRequested(*entry, event->globalPosition().toPoint());
    }
}

void MapView::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_press) return;
    const QPointF position = event->position();
    if (!m_press->isDrag) {
        const double distance = (position - m_press->begin).manhattanLength();
        if (distance < QApplication::startDragDistance()) return;
        m_press->isDrag = true;
        QToolTip::hideText();
    }
    if (m_tool != MapTool::ZoomIn) m_extent.pan(position - m_press->last);
    m_press->last = position;
    update();
}

void MapView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_press) return;
    const Press press = *m_press;
    m_press.reset();
    updateCursor();
    if (!press.isDrag) {
        click(event->position());
    } else if (m_tool == MapTool::ZoomIn) {
        const QRectF wanted = QRectF(press.begin, event->position()).normalized();
        // a rectangle without an area would show nothing
        if (wanted.width() > 1 && wanted.height() > 1) m_extent.zoomTo(wanted);
    }
    update();
}

void MapView::click(QPointF position)
{
    switch (m_tool) {
    case MapTool::ZoomIn:
        zoom(clickZoom, position);
        break;
    case MapTool::ZoomOut:
        zoom(1 / clickZoom, position);
        break;
    case MapTool::Pointer:
        if (const auto entry = entryAt(position)) {
            setRinged(entry);
            Q_EMIT chosen(*entry);
        }
        break;
    case MapTool::Pan:
        break;
    }
}

void MapView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    // with the tools that zoom, each of the two clicks zooms
    const bool zooms = m_tool == MapTool::ZoomIn || m_tool == MapTool::ZoomOut;
    if (zooms)
        mousePressEvent(event);
    else
        zoom(clickZoom, event->position());
}

void MapView::wheelEvent(QWheelEvent* event)
{
    constexpr double unitsToDouble = 240;
    const int turned = event->angleDelta().y();
    if (turned != 0) zoom(std::exp2(turned / unitsToDouble), event->position());
    event->accept();
}

void MapView::keyPressEvent(QKeyEvent* event)
{
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
        QWidget::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        zoomIn();
        break;
    case Qt::Key_Minus:
        zoomOut();
        break;
    case Qt::Key_Home:
        showFullExtent();
        break;
    case Qt::Key_End:
        showContiguousStates();
        break;
    case Qt::Key_PageDown:
        goToPlace(1);
        break;
    case Qt::Key_PageUp:
        goToPlace(-1);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (m_ringed) Q_EMIT chosen(*m_ringed);
        break;
    case Qt::Key_Escape:
        setTool(MapTool::Pointer);
        break;
    default:
        if (!moveByKey(event->key())) QWidget::keyPressEvent(event);
    }
}

/// The menu key, or whatever opens a menu from the keyboard. The mouse has opened its menu when it went down.
void MapView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() != QContextMenuEvent::Keyboard || !m_ringed) return;
    showEntry(*m_ringed);
    Q_EMIT menuRequested(*m_ringed, mapToGlobal(positionOf(*m_ringed).toPoint()));
}

bool MapView::moveByKey(int key)
{
    constexpr int part = 8;
    const QPointF across(width() / part, 0);
    const QPointF down(0, height() / part);
    switch (key) {
    case Qt::Key_Left:
        m_extent.pan(across);
        break;
    case Qt::Key_Right:
        m_extent.pan(-across);
        break;
    case Qt::Key_Up:
        m_extent.pan(down);
        break;
    case Qt::Key_Down:
        m_extent.pan(-down);
        break;
    default:
        return false;
    }
    update();
    return true;
}

/// Rings the next place in the order of names, or the one before.
void MapView::goToPlace(int step)
{
    if (m_markers.count() == 0) return;
    const std::size_t entry = m_markers.neighbour(m_ringed, step);
    showEntry(entry);
    setRinged(entry);
    QToolTip::showText(mapToGlobal(positionOf(entry).toPoint()), PlainToolTip::text(m_markers.name(entry)),
                       this);
}

// Items for assistive tools -------------------------------------------------------------------------------

QString MapView::accessibleItemName(int item) const
{
    return m_markers.name(static_cast<std::size_t>(item));
}

QRect MapView::accessibleItemRect(int item) const
{
    QRectF marker(0, 0, m_markers.markerExtent(), m_markers.markerExtent());
    marker.moveCenter(positionOf(static_cast<std::size_t>(item)));
    return marker.toAlignedRect();
}

int MapView::accessibleCurrentItem() const
{
    return m_ringed ? static_cast<int>(*m_ringed) : -1;
}
