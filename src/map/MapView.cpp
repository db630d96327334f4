// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapView.h"

#include "widgets/PlainToolTip.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include <cmath>

MapView::MapView(QWidget* parent) : MapCanvas(parent)
{
    setObjectName(QStringLiteral("Map1"));
    setAccessibleName(tr("Map of the organizations"));
    setSummary({});
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(false);
    updateCursor();
}

void MapView::setSummary(const QStringList& sentences)
{
    const QString keys = tr("Page Down and Page Up go from place to place, Return selects the organizations "
                            "there, plus and minus zoom, the arrow keys move the map, Home shows all of it");
    setAccessibleDescription((sentences + QStringList(keys)).join(u' '));
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

void MapView::paintEvent(QPaintEvent* event)
{
    MapCanvas::paintEvent(event);
    if (!m_press || !m_press->isDrag || m_tool != MapTool::ZoomIn) return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DashLine));
    painter.drawRect(QRectF(m_press->begin, m_press->last).normalized());
}

bool MapView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return MapCanvas::event(event);
    const auto& help = *static_cast<QHelpEvent*>(event);
    const auto entry = entryAt(help.pos());
    if (entry && describe)
        QToolTip::showText(help.globalPos(), describe(*entry), this);
    else
        QToolTip::hideText();
    return true;
}

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
    if (m_tool != MapTool::ZoomIn) pan(position - m_press->last);
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
        if (wanted.width() > 1 && wanted.height() > 1) zoomTo(wanted);
    }
    update();
}

void MapView::click(QPointF position)
{
    switch (m_tool) {
    case MapTool::ZoomIn:
        extent().insetAt(position) ? goToState(position) : zoom(zoomStep, position);
        break;
    case MapTool::ZoomOut:
        zoom(1 / zoomStep, position);
        break;
    case MapTool::Pointer:
        Q_EMIT pointed(degreesAt(position).y(), degreesAt(position).x());
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
    const auto entry = entryAt(event->position());
    if (zooms)
        mousePressEvent(event);
    else if (entry && markers().isDisc(*entry))
        takeApart(*entry);
    else
        goToState(event->position());
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
        MapCanvas::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        if (ringed() && markers().isDisc(markers().leadOf(*ringed())))
            takeApart(*ringed());
        else
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
        if (ringed()) Q_EMIT chosen(*ringed());
        break;
    case Qt::Key_Escape:
        setTool(MapTool::Pointer);
        break;
    default:
        if (!moveByKey(event->key())) MapCanvas::keyPressEvent(event);
    }
}

/// For the keyboard alone: a mouse button opens the menu when it is pressed.
void MapView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() != QContextMenuEvent::Keyboard || !ringed()) return;
    showEntry(*ringed());
    Q_EMIT menuRequested(*ringed(), mapToGlobal(positionOf(*ringed()).toPoint()));
}

bool MapView::moveByKey(int key)
{
    constexpr int part = 8;
    const int columns = width() / part;
    const int rows = height() / part;
    const QPointF across(columns, 0);
    const QPointF down(0, rows);
    switch (key) {
    case Qt::Key_Left:
        pan(across);
        break;
    case Qt::Key_Right:
        pan(-across);
        break;
    case Qt::Key_Up:
        pan(down);
        break;
    case Qt::Key_Down:
        pan(-down);
        break;
    default:
        return false;
    }
    return true;
}

/// Rings the next place in the order of names, or the one before.
void MapView::goToPlace(int step)
{
    if (markers().leads().empty()) return;
    const std::size_t entry = markers().neighbour(ringed(), step);
    showEntry(entry);
    setRinged(entry);
    QToolTip::showText(mapToGlobal(positionOf(entry).toPoint()), PlainToolTip::text(markers().name(entry)),
                       this);
}
