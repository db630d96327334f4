// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/IconSet.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include <algorithm>
#include <array>
#include <cstdlib>

/// The resources of a static library must be initialized by hand; the macro cannot stand in a namespace.
static void loadPictures()
{
    Q_INIT_RESOURCE(pictures);
}

namespace {

constexpr int darkestLightWindow = 128;
constexpr int smallIcon = 16;

/// The file types that every database of the program knows; others look like a file of no known kind.
QString documentThemeName(int fileType)
{
    switch (fileType) {
    case 2:
        return QStringLiteral("application-pdf");
    case 3:
        return QStringLiteral("x-office-document");
    case 4:
        return QStringLiteral("text-html");
    case 5:
        return QStringLiteral("x-office-presentation");
    case 6:
        return QStringLiteral("image-x-generic");
    case 7:
        return QStringLiteral("text-plain");
    case 8:
        return QStringLiteral("x-office-spreadsheet");
    default:
        return QStringLiteral("text-x-generic");
    }
}

/// An icon with a smaller one in its lower right corner.
QIcon withEmblem(const QIcon& base, const QIcon& emblem)
{
    QIcon marked;
    for (const int scale : {1, 2, 3}) {
        const int size = smallIcon * scale;
        QPixmap picture = base.pixmap(QSize(size, size), 1.0);
        if (picture.isNull()) continue;
        QPainter painter(&picture);
        const int part = size * 9 / 16;
        emblem.paint(&painter, QRect(size - part, size - part, part, part));
        painter.end();
        marked.addPixmap(picture);
    }
    return marked;
}

/// How much of a pixel stands out from a ground, from 0 to 255.
int standingOut(const QColor& pixel, int ground)
{
    constexpr int plain = 90; // steps of grey from which on it counts in full
    const int contrast = std::min(std::abs(qGray(pixel.rgb()) - ground), plain);
    return pixel.alpha() * contrast / plain;
}

/// The same picture in the colour of the texts of selected rows: what stands out from the ground of a list
/// stands out from that of a selected row.
QPixmap selectedPicture(const QPixmap& picture, const QPalette& palette)
{
    const int ground = qGray(palette.color(QPalette::Base).rgb());
    QColor colour = palette.color(QPalette::HighlightedText);
    QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            colour.setAlpha(standingOut(image.pixelColor(x, y), ground));
            image.setPixelColor(x, y, colour);
        }
    }
    return QPixmap::fromImage(image);
}

QIcon withSelectedPictures(const QIcon& icon)
{
    QIcon both;
    for (const int scale : {1, 2, 3}) {
        const QPixmap picture = icon.pixmap(QSize(smallIcon, smallIcon) * scale, 1.0);
        if (picture.isNull()) continue;
        both.addPixmap(picture);
        both.addPixmap(selectedPicture(picture, QApplication::palette()), QIcon::Selected);
    }
    return both;
}

QIcon ownIcon(const QString& name)
{
    return QIcon(QStringLiteral(":/pictures/%1.svg").arg(name));
}

} // namespace

void IconSet::chooseTheme()
{
    loadPictures();
    const bool isDark = QApplication::palette().color(QPalette::Window).lightness() < darkestLightWindow;
    QIcon::setThemeName(isDark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze"));
}

QIcon IconSet::themeIcon(const QString& name)
{
    return QIcon::fromTheme(name);
}

QIcon IconSet::icon(const QString& key)
{
    const auto found = m_icons.constFind(key);
    if (found != m_icons.constEnd()) return *found;
    return *m_icons.insert(key, withSelectedPictures(make(key)));
}

QIcon IconSet::make(const QString& key)
{
    if (key == QStringLiteral("isKey")) return ownIcon(QStringLiteral("key"));
    if (key == QStringLiteral("Event")) return ownIcon(QStringLiteral("event"));
    if (key == QStringLiteral("Organization_wc")) return ownIcon(QStringLiteral("organization"));
    if (key == QStringLiteral("Organization_cd")) return ownIcon(QStringLiteral("organization-chart"));
    if (!key.startsWith(u'd')) return {};

    const bool onDisc = key.endsWith(QStringLiteral("cd"));
    const bool withheld = key.endsWith(QStringLiteral("ng"));
    const QIcon base =
        themeIcon(documentThemeName(key.mid(1, key.size() - (onDisc || withheld ? 3 : 1)).toInt()));
    if (onDisc) return withEmblem(base, ownIcon(QStringLiteral("emblem-disc")));
    return withheld ? withEmblem(base, ownIcon(QStringLiteral("emblem-withheld"))) : base;
}
