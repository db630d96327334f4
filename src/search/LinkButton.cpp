#include "search/LinkButton.h"

#include <QKeyEvent>
#include <QPainter>

#include <cstdlib>

namespace {

constexpr int margin = 4;
constexpr int leastContrast = 70; ///< in steps of grey
constexpr qreal cornerRadius = 3.0;

/// A colour on which dark links can be read.
constexpr QColor plateColour(236, 238, 242);

constexpr QColor linkOnDark(125, 185, 255);

bool canBeRead(const QColor& text, const QColor& ground)
{
    return std::abs(qGray(text.rgb()) - qGray(ground.rgb())) >= leastContrast;
}

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
    setToolTip(text);
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
    if (!isEnabled()) return palette().color(QPalette::WindowText);
    const QColor link = palette().color(QPalette::Link);
    return canBeRead(link, palette().color(QPalette::Window)) ? link : linkOnDark;
}

QSize LinkButton::sizeHint() const
{
    // a part of a pixel must not cost the last letters
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
    if (!canBeRead(colour(), palette().color(QPalette::Window))) {
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

/// Enter belongs to the link that has the keyboard, before it belongs to any command of the window.
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
