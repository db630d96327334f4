// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/home/HomeButton.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int pictureSize = 96;
constexpr int margin = 16;
constexpr int spacing = 12;
constexpr qreal cornerRadius = 10.0;
constexpr int buttonWidth = 196;
constexpr int narrowestButton = 132;

QFont captionFont(const QFont& font)
{
    QFont larger = font;
    larger.setPointSizeF(font.pointSizeF() * 1.4);
    larger.setBold(true);
    return larger;
}

QColor blend(const QColor& base, const QColor& other, qreal part)
{
    return QColor::fromRgbF(static_cast<float>(base.redF() * (1 - part) + other.redF() * part),
                            static_cast<float>(base.greenF() * (1 - part) + other.greenF() * part),
                            static_cast<float>(base.blueF() * (1 - part) + other.blueF() * part));
}

} // namespace

HomeButton::HomeButton(const QString& picture, const QString& caption, const QString& explanation,
                       QWidget* parent)
    : QAbstractButton(parent), m_picture(picture), m_explanation(explanation)
{
    setText(caption);
    setAccessibleDescription(explanation);
    setFocusPolicy(Qt::StrongFocus);
    QSizePolicy policy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setCursor(Qt::PointingHandCursor);
}

QSize HomeButton::sizeHint() const
{
    const int width = std::max(buttonWidth, captionWidth());
    return {width, heightForWidth(width)};
}

QSize HomeButton::minimumSizeHint() const
{
    return {narrowestButton, heightForWidth(buttonWidth)};
}

/// How wide the button must be for its caption, which is not broken into lines.
int HomeButton::captionWidth() const
{
    return QFontMetrics(captionFont(font())).size(Qt::TextShowMnemonic, text()).width() + 2 * margin;
}

int HomeButton::heightForWidth(int width) const
{
    // a layout asks for the same few widths many times, and measuring lays out the text
    const auto known = m_heights.constFind(width);
    return known != m_heights.constEnd() ? *known : *m_heights.insert(width, measureHeight(width));
}

int HomeButton::measureHeight(int width) const
{
    const int captionHeight = QFontMetrics(captionFont(font())).height();
    const int explanationHeight =
        fontMetrics()
            .boundingRect(QRect(0, 0, width - 2 * margin, 1000), Qt::TextWordWrap, m_explanation)
            .height();
    return 2 * margin + pictureSize + 2 * spacing + captionHeight + explanationHeight;
}

void HomeButton::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) m_heights.clear();
    QAbstractButton::changeEvent(event);
}

void HomeButton::paintFrame(QPainter& painter) const
{
    const QColor accent = palette().color(QPalette::Highlight);
    QColor fill = palette().color(QPalette::Base);
    if (underMouse()) fill = blend(fill, accent, 0.10);
    if (isDown()) fill = blend(fill, accent, 0.28);
    const bool marked = underMouse() || isDown() || hasFocus();
    painter.setPen(QPen(marked ? accent : blend(fill, palette().color(QPalette::WindowText), 0.25),
                        hasFocus() ? 2.5 : 1.2));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), cornerRadius, cornerRadius);
}

void HomeButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintFrame(painter);

    QRect area = rect().adjusted(margin, margin, -margin, -margin);
    if (isDown()) area.translate(1, 1);
    m_picture.paint(&painter, area.left() + (area.width() - pictureSize) / 2, area.top(), pictureSize,
                    pictureSize);
    area.setTop(area.top() + pictureSize + spacing);

    painter.setPen(palette().color(QPalette::Text));
    painter.setFont(captionFont(font()));
    QRect used;
    painter.drawText(area, Qt::AlignHCenter | Qt::AlignTop | Qt::TextShowMnemonic, text(), &used);
    area.setTop(used.bottom() + spacing);

    painter.setFont(font());
    QColor quiet = palette().color(QPalette::Text);
    quiet.setAlphaF(0.75F);
    painter.setPen(quiet);
    painter.drawText(area, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, m_explanation);
}

void HomeButton::enterEvent(QEnterEvent* event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void HomeButton::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

void HomeButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}
