#include "chart/ChartView.h"

#include "chart/ChartScale.h"
#include "util/ReadableLine.h"
#include "widgets/PlainToolTip.h"

#include <QAccessible>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QFontMetrics>
#include <QGraphicsLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <QValueAxis>

#include <algorithm>
#include <cmath>

namespace {

constexpr double widestShare = 0.7; ///< that a bar takes of its slot
constexpr double widestBar = 90;    ///< pixels
constexpr int pixelsPerStep = 36;
constexpr int mostSteps = 10;
constexpr int besideAxis = 26; ///< the margins on both sides, and the ticks
constexpr int titleRoom = 48;  ///< for the title and the margins
constexpr int titleTop = 4;
constexpr int lowestPlot = 60;
constexpr int lowestHeight = 150;
constexpr int nameGap = 8;
constexpr int widestTurnedSlot = 100;
constexpr double shareForNames = 0.4; ///< of the height, at most
constexpr int allDigits = 15;

} // namespace

ChartView::ChartView(QWidget* parent)
    : QChartView(parent),
      m_bars(new QBarSet(QString())),
      m_series(new QBarSeries(this)),
      m_names(new QBarCategoryAxis(this)),
      m_axis(new QValueAxis(this))
{
    AccessibleItems::install();
    setObjectName(QStringLiteral("MSChart1"));
    setAccessibleName(tr("Documents by Type"));
    setAccessibleDescription(tr("The arrow keys go from bar to bar, the menu key opens a bar's menu"));
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setRenderHint(QPainter::Antialiasing);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    m_series->append(m_bars);
    m_series->setLabelsVisible(true);
    m_series->setLabelsPosition(QAbstractBarSeries::LabelsOutsideEnd);
    m_series->setLabelsPrecision(allDigits);
    m_axis->setLabelFormat(QStringLiteral("%d"));
    m_axis->setTickType(QValueAxis::TicksDynamic);
    m_names->setGridLineVisible(false);
    m_names->setLabelsVisible(false);

    chart()->addSeries(m_series);
    chart()->addAxis(m_names, Qt::AlignBottom);
    chart()->addAxis(m_axis, Qt::AlignLeft);
    m_series->attachAxis(m_names);
    m_series->attachAxis(m_axis);
    chart()->setTitle(tr("Documents by Type"));
    chart()->legend()->hide();
    chart()->setBackgroundRoundness(0);
    chart()->layout()->setContentsMargins(0, 0, 0, 0);
    // the names stand below the plot, wherever the chart's own layout puts it
    connect(chart(), &QChart::plotAreaChanged, viewport(), qOverload<>(&QWidget::update));
    applyPalette();
}

void ChartView::setCounts(std::vector<DocumentTypeCount> counts)
{
    m_counts = std::move(counts);
    m_current.reset();
    m_bars->remove(0, m_bars->count());
    m_bars->deselectAllBars();
    QList<qreal> values;
    for (const DocumentTypeCount& count : m_counts)
        values << static_cast<double>(count.documents);
    m_bars->append(values);
    for (QAbstractAxis* axis : {static_cast<QAbstractAxis*>(m_names), static_cast<QAbstractAxis*>(m_axis)})
        axis->setVisible(!m_counts.empty());
    applyMinimumSize();
    layOut();
    QAccessibleTableModelChangeEvent changed(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&changed);
}

qint64 ChartView::highestCount() const
{
    const auto highest = std::ranges::max_element(m_counts, {}, &DocumentTypeCount::documents);
    return highest == m_counts.end() ? 0 : highest->documents;
}

/// What the axis takes of the width with its numbers, none of which is twice the highest count.
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
    layOutNames();
    QStringList categories;
    // names are written by this view, since the axis would leave out those that are alike or long
    for (std::size_t bar = 0; bar < m_counts.size(); ++bar)
        categories << QString::number(bar);
    const int plotHeight = std::max(height() - m_nameRoom - titleRoom, lowestPlot);
    const double numberRoom = static_cast<double>(fontMetrics().height() + 8) / plotHeight;
    const ChartScale scale = ChartScale::forCounts(
        highestCount(), std::min(plotHeight / pixelsPerStep, mostSteps), std::min(numberRoom, 0.5));
    applyScale(scale);
    if (categories != m_names->categories()) m_names->setCategories(categories);
    chart()->setMargins(QMargins(4, 4, 8, m_nameRoom));
    viewport()->update();
}

/// Makes the axis coarser before it becomes longer and shorter before it becomes finer: in between, a long
/// axis with small steps would have thousands of numbers.
void ChartView::applyScale(const ChartScale& scale)
{
    const auto top = static_cast<double>(scale.top);
    const auto step = static_cast<double>(scale.step);
    if (step > m_axis->tickInterval()) m_axis->setTickInterval(step);
    m_axis->setRange(0, top);
    m_axis->setTickInterval(step);
}

void ChartView::layOutNames()
{
    const int count = std::max(static_cast<int>(m_counts.size()), 1);
    const int slot = (width() - axisRoom()) / count;
    m_series->setBarWidth(std::min(widestShare, widestBar / std::max(slot, 1)));
    int widest = 0;
    for (const DocumentTypeCount& type : m_counts)
        // a pixel more, since the advance is rounded and a name that is cut by a part of one is elided
        widest = std::max(widest, fontMetrics().horizontalAdvance(readableLine(type.name)) + 1);
    m_turned = widest > slot - nameGap && slot < widestTurnedSlot;
    const int longest = static_cast<int>(height() * shareForNames);
    m_nameRoom = nameGap + (m_turned ? std::min(widest, longest) : fontMetrics().height());
}

void ChartView::drawNames(QPainter& painter) const
{
    painter.setPen(palette().color(QPalette::Text));
    const double slot = inView(1, 0).x() - inView(0, 0).x();
    const int room = m_turned ? m_nameRoom - nameGap : static_cast<int>(slot) - nameGap;
    const double height = fontMetrics().height();
    for (std::size_t bar = 0; bar < m_counts.size(); ++bar) {
        const QString name = fontMetrics().elidedText(readableLine(m_counts[bar].name), Qt::ElideRight, room);
        painter.save();
        painter.translate(inView(static_cast<double>(bar), 0) + QPointF(0, nameGap));
        if (m_turned) {
            constexpr double upwards = -90;
            painter.rotate(upwards);
            painter.drawText(QRectF(-room, -height / 2, room, height), Qt::AlignRight | Qt::AlignVCenter,
                             name);
        } else {
            painter.drawText(QRectF(-slot / 2, 0, slot, height), Qt::AlignHCenter | Qt::AlignTop, name);
        }
        painter.restore();
    }
}

int ChartView::axisWidth() const
{
    return static_cast<int>(std::ceil(chart()->mapToScene(chart()->plotArea().topLeft()).x()));
}

/// The title and the axis stay where they are while the bars are scrolled.
void ChartView::drawStanding(QPainter& painter)
{
    const QRect sight = viewport()->visibleRegion().boundingRect();
    if (sight.left() > 0) {
        const QRect axis(0, 0, axisWidth(), height());
        const QRect place = axis.translated(sight.left(), 0);
        painter.fillRect(place, palette().color(QPalette::Base));
        render(&painter, place, axis);
    }
    painter.setFont(chart()->titleFont());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRect(sight.left(), titleTop, sight.width(), titleRoom / 2), Qt::AlignCenter,
                     chart()->title());
    painter.setFont(font());
}

/// A point of the chart, by the number of a bar and a value, in the pixels of the view.
QPointF ChartView::inView(double bar, double value) const
{
    return mapFromScene(chart()->mapToScene(chart()->mapToPosition(QPointF(bar, value), m_series)));
}

void ChartView::applyPalette()
{
    const QColor text = palette().color(QPalette::Text);
    QColor faint = text;
    constexpr int faintness = 60;
    faint.setAlpha(faintness);
    QFont title = font();
    title.setBold(true);
    chart()->setTitleFont(title);
    // its place is over the middle of the whole chart; this view draws it over the middle of what is in sight
    chart()->setTitleBrush(Qt::transparent);
    chart()->setBackgroundBrush(palette().color(QPalette::Base));
    m_bars->setColor(palette().color(QPalette::Highlight));
    m_bars->setSelectedColor(palette().color(QPalette::Highlight).darker());
    m_bars->setBorderColor(Qt::transparent);
    m_bars->setLabelColor(text);
    m_bars->setLabelFont(font());
    for (QAbstractAxis* axis : {static_cast<QAbstractAxis*>(m_names), static_cast<QAbstractAxis*>(m_axis)}) {
        axis->setLabelsFont(font());
        axis->setLabelsColor(text);
        axis->setLinePenColor(faint);
        axis->setGridLineColor(faint);
    }
}

void ChartView::setCurrentBar(std::optional<int> bar)
{
    m_bars->deselectAllBars();
    m_current = bar;
    if (!bar) return;
    m_bars->selectBar(*bar);
    QAccessibleEvent focused(this, QAccessible::Focus);
    focused.setChild(*bar);
    QAccessible::updateAccessibility(&focused);
}

QRect ChartView::barRect(int bar) const
{
    const double value = static_cast<double>(m_counts.at(static_cast<std::size_t>(bar)).documents);
    const double half = m_series->barWidth() / 2;
    const QRect plain(inView(bar - half, value).toPoint(), inView(bar + half, 0).toPoint());
    return plain.adjusted(0, -fontMetrics().height() - 2, 0, 0);
}

std::optional<int> ChartView::barAt(QPoint position) const
{
    if (m_counts.empty()) return std::nullopt;
    const QPointF inChart = chart()->mapFromScene(mapToScene(position));
    const int bar = static_cast<int>(std::lround(chart()->mapToValue(inChart, m_series).x()));
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

// the chart's own items are not for the mouse

void ChartView::mouseReleaseEvent(QMouseEvent* /*event*/) {}

void ChartView::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void ChartView::mouseMoveEvent(QMouseEvent* /*event*/) {}

void ChartView::wheelEvent(QWheelEvent* event)
{
    // left to the area that scrolls the chart
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
    // where the bar is once it has been scrolled to
    const QPoint position = viewport()->mapToGlobal(barRect(bar).center());
    QToolTip::showText(position, PlainToolTip::text(accessibleItemName(bar)), this);
}

/// The menu key, or whatever opens a menu from the keyboard. The mouse has opened its menu when it went down.
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
    // the base has asked for all that the chart took, with the names as they stood before
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
    if (m_counts.empty()) {
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap,
                         tr("No documents of any type."));
    } else {
        drawNames(painter);
    }
    drawStanding(painter);
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
