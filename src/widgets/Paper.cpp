// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/Paper.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QTextLayout>

QPalette Paper::palette()
{
    constexpr QColor button(239, 239, 239);
    constexpr QColor alternate(245, 245, 245);
    constexpr QColor blue(42, 110, 187);
    QPalette palette(Qt::black, button, Qt::white, Qt::darkGray, Qt::gray, Qt::black, Qt::white, Qt::white,
                     Qt::white);
    palette.setColor(QPalette::AlternateBase, alternate);
    palette.setColor(QPalette::Highlight, blue);
    return palette;
}

/// In points, a font would have the size that the painter's device makes of them; and a name such as "Sans"
/// may stand for another font elsewhere.
QFont Paper::font(const QFont& window)
{
    const QFontInfo used(window);
    QFont font(window);
    font.setFamily(used.family());
    font.setPixelSize(used.pixelSize());
    return font;
}

QStringList Paper::lines(const QString& text, const QFont& font, int width, int mostLines)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(text, font);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines.size() + 1 < mostLines) {
            lines << text.mid(line.textStart(), line.textLength()).trimmed();
            continue;
        }
        lines << QFontMetrics(font).elidedText(text.mid(line.textStart()), Qt::ElideRight, width);
        break;
    }
    layout.endLayout();
    return lines;
}
