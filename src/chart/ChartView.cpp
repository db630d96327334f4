// SPDX-License-Identifier: GPL-3.0-or-later

#include "chart/ChartView.h"

#include "util/ReadableLine.h"
#include "widgets/PlainToolTip.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QGraphicsLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QToolTip>

#include <algorithm>

namespace {

// pixels
constexpr int titleTop = 4;
constexpr int titleHeight = 24;

} // namespace

ChartView::ChartView(QWidget* parent)
    : QChartView(parent), m_upright(*this, m_counts), m_horizontal(*this, m_counts)
{
    AccessibleItems::install();
    setObjectName(QStringLiteral("MSChart1"));
    setAccessibleName(tr("Documents by Type"));
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
    // the chart keeps room for its title; this view draws it, over the middle of what is in sight
    chart()->setTitleBrush(Qt::transparent);
    beginLayout();
}

void ChartView::setCounts(std::vector<DocumentTypeCount> counts)
{
    m_counts = std::move(counts);
    m_current.reset();
    beginLayout();
    QAccessibleTableModelChangeEvent changed(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&changed);
}

void ChartView::setHorizontal(bool isHorizontal)
{
    m_layout = isHorizontal ? static_cast<BarLayout*>(&m_horizontal) : &m_upright;
    chart()->setVisible(!isHorizontal);
    beginLayout();
}

void ChartView::setEmptyText(const QString& text)
{
    m_emptyText = text;
    viewport()->update();
}

/// Has the layout take the counts and the looks of the view, the current bar and the view's size.
void ChartView::beginLayout()
{
    QFont title = font();
    title.setBold(true);
    chart()->setTitleFont(title);
    chart()->setBackgroundBrush(palette().color(QPalette::Base));
    m_layout->begin();
    m_layout->mark(m_current);
    layOut();
}

void ChartView::layOut()
{
    m_layout->layOut();
    setMinimumSize(m_layout->leastSize());
    viewport()->update();
}

/// Draws the names and the title, which stays in sight while the bars are scrolled to the side.
void ChartView::drawTexts(QPainter& painter, const QRect& sight)
{
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::Text));
    m_layout->draw(painter, sight);
    painter.setPen(palette().color(QPalette::Text));
    if (m_counts.empty()) painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
    painter.setFont(chart()->titleFont());
    painter.drawText(QRect(sight.left(), titleTop, sight.width(), titleHeight), Qt::AlignCenter,
                     accessibleName());
}

void ChartView::resizeUnseen(QSize size)
{
    constexpr int mostSizes = 8;
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
    for (int i = 0; i < mostSizes && m_layout->wholeSize() != this->size(); ++i)
        take(m_layout->wholeSize());
}

void ChartView::draw(QPainter& painter)
{
    render(&painter, rect(), rect());
    drawTexts(painter, rect());
}

void ChartView::setCurrentBar(std::optional<int> bar)
{
    m_current = bar;
    m_layout->mark(bar);
    viewport()->update();
    if (!bar || !hasFocus()) return;
    QAccessibleEvent focused(this, QAccessible::Focus);
    focused.setChild(*bar);
    QAccessible::updateAccessibility(&focused);
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
    case Qt::Key_Down:
        goToBar(std::min(before + 1, last));
        break;
    case Qt::Key_Left:
    case Qt::Key_Up:
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
    // the base class took the minimum of the chart with the names as they were laid out before
    layOut();
}

void ChartView::changeEvent(QEvent* event)
{
    QChartView::changeEvent(event);
    if (event->type() != QEvent::PaletteChange && event->type() != QEvent::FontChange) return;
    beginLayout();
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
