// SPDX-License-Identifier: GPL-3.0-or-later

#include "chart/ChartView.h"

#include "chart/ChartScale.h"
#include "util/ReadableLine.h"
#include "widgets/PlainToolTip.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QFontMetrics>
#include <QGraphicsLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace {

constexpr double widestShare = 0.7; ///< of its slot that a bar takes

// pixels
constexpr double widestBar = 90;
constexpr int pixelsPerStep = 36;
constexpr int besideAxis = 26; ///< the margins on both sides, and the ticks
constexpr int titleRoom = 48;  ///< with the margins above and below
constexpr int titleTop = 4;
constexpr int lowestPlot = 60;
constexpr int lowestHeight = 150;

constexpr int mostSteps = 10;

} // namespace

ChartView::ChartView(QWidget* parent) : QChartView(parent), m_bars(*chart())
{
    AccessibleItems::install();
    setObjectName(QStringLiteral("MSChart1"));
    setAccessibleName(tr("Documents by Type"));
    setEmptyText({});
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setRenderHint(QPainter::Antialiasing);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    chart()->setTitle(tr("Documents by Type"));
    chart()->legend()->hide();
    chart()->setBackgroundRoundness(0);
    chart()->layout()->setContentsMargins(0, 0, 0, 0);
    // the names are written below the plot, wherever the chart's layout puts it
    connect(chart(), &QChart::plotAreaChanged, viewport(), qOverload<>(&QWidget::update));
    applyPalette();
}

void ChartView::setCounts(std::vector<DocumentTypeCount> counts)
{
    m_counts = std::move(counts);
    m_current.reset();
    m_bars.setCounts(m_counts);
    applyMinimumSize();
    layOut();
    QAccessibleTableModelChangeEvent changed(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&changed);
}

void ChartView::setEmptyText(const QString& text)
{
    m_emptyText = text;
    setAccessibleDescription(
        text.isEmpty() ? tr("The arrow keys go from bar to bar, the menu key opens a bar's menu") : text);
    viewport()->update();
}

qint64 ChartView::highestCount() const
{
    const auto highest = std::ranges::max_element(m_counts, {}, &DocumentTypeCount::documents);
    return highest == m_counts.end() ? 0 : highest->documents;
}

/// The width that the axis takes with its numbers, none of which is twice the highest count.
int ChartView::axisRoom() const
{
    return besideAxis + fontMetrics().horizontalAdvance(QString::number(2 * highestCount()));
}

/// Wide enough for a name that is turned and for a number that is not.
int ChartView::narrowestSlot() const
{
    constexpr int numberGap = 4;
    const int number = fontMetrics().horizontalAdvance(QString::number(highestCount()));
    return std::max(fontMetrics().height() + 2, number + numberGap);
}

void ChartView::applyMinimumSize()
{
    setMinimumSize(axisRoom() + narrowestSlot() * accessibleItemCount(), lowestHeight);
}

void ChartView::layOut()
{
    const int count = std::max(accessibleItemCount(), 1);
    const int slot = (width() - axisRoom()) / count;
    m_names.layOut(m_counts, fontMetrics(), slot, height());
    const int plotHeight = std::max(height() - m_names.room() - titleRoom, lowestPlot);
    const double numberRoom = static_cast<double>(fontMetrics().height() + 8) / plotHeight;
    m_bars.layOut(ChartScale::forCounts(highestCount(), std::min(plotHeight / pixelsPerStep, mostSteps),
                                        std::min(numberRoom, 0.5)),
                  std::min(widestShare, widestBar / std::max(slot, 1)));
    chart()->setMargins(QMargins(4, 4, 8, m_names.room()));
    viewport()->update();
}

int ChartView::axisWidth() const
{
    return static_cast<int>(std::ceil(chart()->mapToScene(chart()->plotArea().topLeft()).x()));
}

/// Draws the names, and the title and the axis, which stay in sight while the bars are scrolled.
void ChartView::drawTexts(QPainter& painter, const QRect& sight)
{
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::Text));
    if (m_counts.empty()) {
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
    } else {
        m_names.draw(painter, fontMetrics(), inView(1, 0).x() - inView(0, 0).x(),
                     [this](int bar) { return inView(bar, 0); });
    }
    if (sight.left() > 0) {
        const QRect axis(0, 0, axisWidth(), height());
        const QRect place = axis.translated(sight.left(), 0);
        painter.fillRect(place, palette().color(QPalette::Base));
        render(&painter, place, axis);
    }
    painter.setFont(chart()->titleFont());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRect(sight.left(), titleTop, sight.width(), titleRoom / 2), Qt::AlignCenter,
                     accessibleName());
}

void ChartView::resizeUnseen(QSize size)
{
    constexpr int highest = 800;
    const auto take = [this](QSize wanted) {
        resize(wanted);
        // a widget that is never shown is not told of its size
        QResizeEvent event(wanted, {});
        QCoreApplication::sendEvent(this, &event);
        QCoreApplication::sendEvent(viewport(), &event);
    };
    // the chart's own title, which is transparent, would be among the texts of a picture
    chart()->setTitle(QStringLiteral(" "));
    take(size);
    const int height = std::min(m_names.heightForWhole(), highest);
    if (height > size.height()) take({size.width(), height});
}

void ChartView::draw(QPainter& painter)
{
    render(&painter, rect(), rect());
    drawTexts(painter, rect());
}

/// The point at a value above a bar, in pixels of the view.
QPointF ChartView::inView(double bar, double value) const
{
    return mapFromScene(chart()->mapToScene(m_bars.position(bar, value)));
}

void ChartView::applyPalette()
{
    QFont title = font();
    title.setBold(true);
    chart()->setTitleFont(title);
    // the chart keeps room for its title; this view draws it, over the middle of what is in sight
    chart()->setTitleBrush(Qt::transparent);
    chart()->setBackgroundBrush(palette().color(QPalette::Base));
    m_bars.setColours(palette(), font());
}

void ChartView::setCurrentBar(std::optional<int> bar)
{
    m_current = bar;
    m_bars.mark(bar);
    if (!bar) return;
    QAccessibleEvent focused(this, QAccessible::Focus);
    focused.setChild(*bar);
    QAccessible::updateAccessibility(&focused);
}

QRect ChartView::barRect(int bar) const
{
    const double value = static_cast<double>(m_counts.at(static_cast<std::size_t>(bar)).documents);
    const double half = m_bars.barWidth() / 2;
    const QRect plain(inView(bar - half, value).toPoint(), inView(bar + half, 0).toPoint());
    return plain.adjusted(0, -fontMetrics().height() - 2, 0, 0);
}

std::optional<int> ChartView::barAt(QPoint position) const
{
    if (m_counts.empty()) return std::nullopt;
    const QPointF inChart = chart()->mapFromScene(mapToScene(position));
    const int bar = m_bars.slotAt(inChart);
    if (bar < 0 || bar >= accessibleItemCount()) return std::nullopt;
    const QRectF plot = chart()->plotArea();
    if (inChart.x() < plot.left() || inChart.x() > plot.right()) return std::nullopt;
    if (position.x() < viewport()->visibleRegion().boundingRect().left() + axisWidth()) return std::nullopt;
    return position.y() >= barRect(bar).top() ? std::optional(bar) : std::nullopt;
}

QString ChartView::accessibleItemName(int item) const
{
    const DocumentTypeCount& count = m_counts.at(static_cast<std::size_t>(item));
    const QString name = readableLine(count.name);
    return count.documents == 1
               ? tr("%1: 1 document").arg(name)
               : tr("%1: %n documents", nullptr, static_cast<int>(count.documents)).arg(name);
}

void ChartView::mousePressEvent(QMouseEvent* event)
{
    const auto bar = barAt(event->pos());
    if (!bar) return;
    setCurrentBar(bar);
    Q_EMIT barSelected(*bar, event->button(), event->globalPosition().toPoint());
}

// the items of the chart get no mouse events

void ChartView::mouseReleaseEvent(QMouseEvent* /*event*/) {}

void ChartView::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void ChartView::mouseMoveEvent(QMouseEvent* /*event*/) {}

void ChartView::wheelEvent(QWheelEvent* event)
{
    // the area around the chart scrolls it
    event->ignore();
}

void ChartView::keyPressEvent(QKeyEvent* event)
{
    const int last = accessibleItemCount() - 1;
    const int before = m_current.value_or(-1);
    switch (event->key()) {
    case Qt::Key_Right:
        goToBar(std::min(before + 1, last));
        break;
    case Qt::Key_Left:
        goToBar(std::max(before - 1, 0));
        break;
    case Qt::Key_Home:
        goToBar(0);
        break;
    case Qt::Key_End:
        goToBar(last);
        break;
    default:
        event->ignore();
    }
}

void ChartView::goToBar(int bar)
{
    if (m_counts.empty()) return;
    setCurrentBar(bar);
    Q_EMIT barSelected(bar, Qt::NoButton, viewport()->mapToGlobal(barRect(bar).center()));
    // the bar may have been scrolled into sight
    const QPoint position = viewport()->mapToGlobal(barRect(bar).center());
    QToolTip::showText(position, PlainToolTip::text(accessibleItemName(bar)), this);
}

/// For the keyboard alone: a mouse button opens the menu when it is pressed.
void ChartView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() != QContextMenuEvent::Keyboard || !m_current) return;
    const QPoint position = viewport()->mapToGlobal(barRect(*m_current).center());
    Q_EMIT barSelected(*m_current, Qt::RightButton, position);
}

bool ChartView::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QChartView::viewportEvent(event);
    const auto& help = *static_cast<QHelpEvent*>(event);
    const auto bar = barAt(help.pos());
    if (bar)
        QToolTip::showText(help.globalPos(), PlainToolTip::text(accessibleItemName(*bar)), this);
    else
        QToolTip::hideText();
    return true;
}

void ChartView::resizeEvent(QResizeEvent* event)
{
    QChartView::resizeEvent(event);
    layOut();
    // the base class took the minimum of the chart with the names as they were laid out before
    applyMinimumSize();
}

void ChartView::changeEvent(QEvent* event)
{
    QChartView::changeEvent(event);
    if (event->type() != QEvent::PaletteChange && event->type() != QEvent::FontChange) return;
    applyPalette();
    layOut();
}

void ChartView::paintEvent(QPaintEvent* event)
{
    QChartView::paintEvent(event);
    QPainter painter(viewport());
    drawTexts(painter, viewport()->visibleRegion().boundingRect());
    if (!hasFocus()) return;
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
}

void ChartView::focusInEvent(QFocusEvent* event)
{
    QChartView::focusInEvent(event);
    viewport()->update();
}

void ChartView::focusOutEvent(QFocusEvent* event)
{
    QChartView::focusOutEvent(event);
    viewport()->update();
}
