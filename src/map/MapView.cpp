#include "map/MapView.h"

#include "map/LegendLines.h"
#include "map/MapProjection.h"
#include "map/MarkerHit.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <set>

namespace {

constexpr double smallestMarker = 9;
constexpr double largestMarker = 14;
constexpr double clickZoom = 2;
constexpr double hitRadius = 14;
constexpr double ringWidth = 2.5;

/// A magnifying glass with a plus or a minus, which points with the middle of its glass. Dark lines over
/// broader light ones are seen on any ground.
QCursor zoomCursor(bool in, double devicePixelRatio)
{
    constexpr int size = 24;
    constexpr QPointF middle(10, 10);
    constexpr double radius = 6.5;
    constexpr double sign = 3;
    QPixmap picture(QSize(size, size) * devicePixelRatio);
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const auto& [colour, width] : {std::pair(Qt::white, 4.0), std::pair(Qt::black, 2.0)}) {
        painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap));
        painter.drawEllipse(middle, radius, radius);
        painter.drawLine(middle + QPointF(radius, radius) * std::numbers::sqrt2 / 2, QPointF(21, 21));
        painter.drawLine(middle - QPointF(sign, 0), middle + QPointF(sign, 0));
        if (in) painter.drawLine(middle - QPointF(0, sign), middle + QPointF(0, sign));
    }
    painter.end();
    return QCursor(picture, static_cast<int>(middle.x()), static_cast<int>(middle.y()));
}

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
    m_positions.clear();
    m_colours.clear();
    m_names.clear();
    m_topmost.clear();
    m_byName.clear();
    m_ringed.reset();
    for (const clsCities& place : places) {
        m_positions.push_back(MapProjection::toPlane(place.lon, place.lat));
        m_colours.push_back(place.colour);
        m_names.push_back(place.placeText() + QStringLiteral(": ") + functionName(place));
    }
    // one marker covers another at the very same position, so only the last of them needs to be drawn
    std::set<std::pair<double, double>> covered;
    for (std::size_t entry = m_positions.size(); entry-- > 0;) {
        if (covered.insert({m_positions[entry].x(), m_positions[entry].y()}).second)
            m_topmost.push_back(entry);
    }
    std::reverse(m_topmost.begin(), m_topmost.end());
    QAccessibleTableModelChangeEvent changed(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&changed);
    update();
}

void MapView::showEntry(std::size_t entry)
{
    m_extent.show(m_positions.at(entry));
    update();
}

void MapView::setRinged(std::optional<std::size_t> entry)
{
    if (entry && *entry >= m_positions.size()) entry.reset();
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
    switch (m_tool) {
    case MapTool::Pointer:
        setCursor(Qt::ArrowCursor);
        break;
    case MapTool::ZoomIn:
    case MapTool::ZoomOut:
        setCursor(zoomCursor(m_tool == MapTool::ZoomIn, devicePixelRatioF()));
        break;
    case MapTool::Pan:
        setCursor(m_press ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
        break;
    }
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
    return m_extent.toScreen(m_positions.at(entry));
}

std::optional<std::size_t> MapView::entryAt(QPointF screen) const
{
    return markerAt(m_positions, m_extent.toPlane(screen), m_extent.scale(), hitRadius);
}

// Painting ------------------------------------------------------------------------------------------------

void MapView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    m_states.paint(painter, m_extent, palette(), font());
    drawMarkers(painter);
    if (m_ringed) drawRing(painter);
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

void MapView::drawMarkers(QPainter& painter)
{
    const double diameter =
        std::clamp(m_extent.markerScale() / m_extent.scale(), smallestMarker, largestMarker);
    const double ratio = devicePixelRatioF();
    m_pictures.prepare(std::round(diameter), ratio);
    const double half = m_pictures.extent() / 2;
    const QRectF sight = QRectF(rect()).adjusted(-half, -half, half, half);
    for (const std::size_t entry : m_topmost) {
        const QPointF middle = m_extent.toScreen(m_positions[entry]);
        if (!sight.contains(middle)) continue;
        // on whole pixels of the screen, where a picture is copied as it is
        const QPointF corner(std::round((middle.x() - half) * ratio) / ratio,
                             std::round((middle.y() - half) * ratio) / ratio);
        painter.drawPixmap(corner, m_pictures.marker(m_colours[entry]));
    }
}

void MapView::drawRing(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle = positionOf(*m_ringed);
    const double radius = m_pictures.extent() / 2 + ringWidth;
    painter.drawPixmap(middle - QPointF(1, 1) * (m_pictures.extent() / 2),
                       m_pictures.marker(m_colours[*m_ringed]));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, ringWidth + 2));
    painter.drawEllipse(middle, radius, radius);
    painter.setPen(QPen(palette().color(QPalette::Highlight), ringWidth));
    painter.drawEllipse(middle, radius, radius);
    painter.setRenderHint(QPainter::Antialiasing, false);
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
    if (m_positions.empty()) return;
    if (m_byName.empty()) {
        m_byName.resize(m_positions.size());
        std::iota(m_byName.begin(), m_byName.end(), std::size_t{0});
        std::stable_sort(m_byName.begin(), m_byName.end(),
                         [this](std::size_t a, std::size_t b) { return m_names[a] < m_names[b]; });
    }
    const auto count = static_cast<int>(m_byName.size());
    int place = step > 0 ? 0 : count - 1;
    if (m_ringed) {
        const auto ringed = std::find(m_byName.begin(), m_byName.end(), *m_ringed);
        place = (static_cast<int>(ringed - m_byName.begin()) + step + count) % count;
    }
    const std::size_t entry = m_byName[static_cast<std::size_t>(place)];
    showEntry(entry);
    setRinged(entry);
    QToolTip::showText(mapToGlobal(positionOf(entry).toPoint()), m_names[entry].toHtmlEscaped(), this);
}

// Items for assistive tools -------------------------------------------------------------------------------

QString MapView::accessibleItemName(int item) const
{
    return m_names.at(static_cast<std::size_t>(item));
}

QRect MapView::accessibleItemRect(int item) const
{
    QRectF rect(0, 0, m_pictures.extent(), m_pictures.extent());
    rect.moveCenter(positionOf(static_cast<std::size_t>(item)));
    return rect.toAlignedRect();
}

int MapView::accessibleCurrentItem() const
{
    return m_ringed ? static_cast<int>(*m_ringed) : -1;
}
