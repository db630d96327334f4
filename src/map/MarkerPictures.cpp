// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MarkerPictures.h"

#include "map/ColourPalette.h"

#include <QPainter>

#include <cmath>

QPixmap MarkerPictures::picture(int colour, double diameter, double devicePixelRatio)
{
    const int pixels = static_cast<int>(std::ceil((diameter + 2) * devicePixelRatio));
    QPixmap picture(pixels, pixels);
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const double middle = pixels / devicePixelRatio / 2;
    draw(painter, colour, {middle, middle}, diameter);
    return picture;
}

void MarkerPictures::draw(QPainter& painter, int colour, QPointF middle, double diameter)
{
    painter.setRenderHint(QPainter::Antialiasing);
    const PaletteColour& fill = colourPalette[static_cast<std::size_t>(colour)];
    // a light ring outside and a dark one inside set every colour off from what lies below
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 220));
    painter.drawEllipse(middle, diameter / 2 + 1, diameter / 2 + 1);
    painter.setPen(QPen(QColor(40, 40, 40), 1));
    painter.setBrush(QColor(fill.red, fill.green, fill.blue));
    painter.drawEllipse(middle, diameter / 2 - 0.5, diameter / 2 - 0.5);
}

void MarkerPictures::prepare(double diameter, double devicePixelRatio)
{
    if (diameter == m_diameter && devicePixelRatio == m_devicePixelRatio) return;
    m_diameter = diameter;
    m_devicePixelRatio = devicePixelRatio;
    for (std::size_t colour = 0; colour < m_markers.size(); ++colour)
        m_markers[colour] = picture(static_cast<int>(colour), diameter, devicePixelRatio);
}
