// SPDX-License-Identifier: GPL-3.0-or-later

#include "print/GraphicPages.h"

#include <QPainter>

#include <algorithm>

namespace {

/// A small graphic is not blown up to more than this, in twips a pixel: 15 are its size on the screen.
constexpr double largestScale = 24;

} // namespace

void GraphicPages::paintContent(QPainter& painter, int /*page*/)
{
    const QRectF content = format().content();
    const double scale = std::min(
        {content.width() / m_picture.size.width(), content.height() / m_picture.size.height(), largestScale});
    painter.translate(content.left() + (content.width() - m_picture.size.width() * scale) / 2, content.top());
    painter.scale(scale, scale);
    painter.setClipRect(QRect({}, m_picture.size));
    m_picture.draw(painter);
}
