// SPDX-License-Identifier: GPL-3.0-or-later

#include "print/PagePreview.h"

#include "print/PrintedPages.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr int around = 10;     ///< pixels between the page and the edge of the preview
constexpr int wheelStep = 120; ///< of a wheel that clicks

} // namespace

PagePreview::PagePreview(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("picPage"));
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(200, 200);
}

void PagePreview::show(PrintedPages& pages, int page)
{
    const QSizeF paper = pages.format().size();
    const QSizeF room = size() - QSize(2 * around, 2 * around);
    const double scale = std::min(room.width() / paper.width(), room.height() / paper.height());
    const QSizeF shown = paper * scale;
    m_page = QImage((shown * devicePixelRatioF()).toSize(), QImage::Format_RGB32);
    m_page.setDevicePixelRatio(devicePixelRatioF());
    m_page.fill(Qt::white);
    QPainter painter(&m_page);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    update();
    pages.paint(painter, page);
}

void PagePreview::clear()
{
    m_page = {};
    update();
}

void PagePreview::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().brush(QPalette::Mid));
    if (!m_page.isNull()) {
        const QSize shown = m_page.deviceIndependentSize().toSize();
        const QRect place(QPoint((width() - shown.width()) / 2, (height() - shown.height()) / 2), shown);
        painter.drawImage(place.topLeft(), m_page);
        painter.setPen(palette().color(QPalette::Shadow));
        painter.drawRect(place.adjusted(-1, -1, 0, 0));
    }
    if (!hasFocus()) return;
    // that of the style is filled, and would colour the page
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void PagePreview::resizeEvent(QResizeEvent* /*event*/)
{
    Q_EMIT outdated();
}

void PagePreview::wheelEvent(QWheelEvent* event)
{
    m_wheel += event->angleDelta().y();
    const int steps = m_wheel / wheelStep;
    m_wheel -= steps * wheelStep;
    if (steps != 0) Q_EMIT turned(-steps);
}

void PagePreview::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_PageDown:
    case Qt::Key_Down:
        return Q_EMIT turned(1);
    case Qt::Key_PageUp:
    case Qt::Key_Up:
        return Q_EMIT turned(-1);
    case Qt::Key_Home:
        return Q_EMIT turned(-toTheEnd);
    case Qt::Key_End:
        return Q_EMIT turned(toTheEnd);
    default:
        QWidget::keyPressEvent(event);
    }
}
