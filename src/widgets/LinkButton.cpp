// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/LinkButton.h"

#include "widgets/PlainToolTip.h"
#include "widgets/ReadablePalette.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int margin = 4;
constexpr qreal cornerRadius = 3.0;

/// The background for links too dark for that of the window.
constexpr QColor plateColour(236, 238, 242);

} // namespace

LinkButton::LinkButton(QWidget* parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

void LinkButton::setLink(const QString& text)
{
    setText(text);
    setShortcut({});
    setAccessibleName(text);
    setToolTip(PlainToolTip::text(text));
    updateGeometry();
}

void LinkButton::setColour(const QColor& colour)
{
    m_colour = colour;
    update();
}

QColor LinkButton::colour() const
{
    if (m_colour.isValid()) return m_colour;
    // a disabled link still has to be readable
    return palette().color(QPalette::Active, isEnabled() ? QPalette::Link : QPalette::WindowText);
}

QSize LinkButton::sizeHint() const
{
    // one pixel more, since the advance is rounded and the text must not be shortened for that
    return {fontMetrics().horizontalAdvance(text()) + 2 * margin + 1, fontMetrics().height() + 2 * margin};
}

QSize LinkButton::minimumSizeHint() const
{
    return {fontMetrics().horizontalAdvance(text().left(3)) + 2 * margin, sizeHint().height()};
}

void LinkButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!ReadablePalette::canBeRead(colour(), palette().color(QPalette::Window))) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(plateColour);
        painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
    }
    QFont drawn = font();
    drawn.setUnderline(isEnabled());
    painter.setFont(drawn);
    painter.setPen(colour());
    const QRect area = rect().adjusted(margin, 0, -margin, 0);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, area.width()));
    if (!hasFocus()) return;
    painter.setPen(palette().color(QPalette::Highlight));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
}

/// Enter goes to the link that has the focus, not to a command of the window with that key.
bool LinkButton::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const int key = dynamic_cast<QKeyEvent&>(*event).key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) event->accept();
    }
    return QAbstractButton::event(event);
}

void LinkButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}
