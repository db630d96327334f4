// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/ReadablePalette.h"

#include <QApplication>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace {

constexpr int leastContrast = 70;       ///< in steps of grey
constexpr int leastContrastOfHint = 40; ///< a hint may be fainter than a text
constexpr int hintAlpha = 128;
constexpr double shareOfText = 0.06;

/// Shades of one hue: for light grounds, for dark ones, and for a light one beside a dark one.
using Shades = std::array<QColor, 3>;

constexpr Shades linkShades{QColor(0, 40, 150), QColor(150, 205, 255), QColor(80, 150, 230)};
constexpr Shades visitedShades{QColor(90, 0, 140), QColor(205, 170, 255), QColor(170, 120, 220)};

/// The groups that the user works with; what is disabled may be faint.
constexpr std::array liveGroups{QPalette::Active, QPalette::Inactive};

int contrast(const QColor& text, const QColor& ground)
{
    return std::abs(qGray(text.rgb()) - qGray(ground.rgb()));
}

bool canBeReadIn(const QPalette& palette, QPalette::ColorRole text, QPalette::ColorRole ground)
{
    return std::all_of(liveGroups.begin(), liveGroups.end(), [&](QPalette::ColorGroup group) {
        return ReadablePalette::canBeRead(palette.color(group, text), palette.color(group, ground));
    });
}

/// A ground a little nearer to the text than another, as far as rows need to be told apart.
QColor shaded(const QColor& ground, const QColor& text)
{
    const auto between = [](int from, int to) {
        return from + static_cast<int>(std::lround((to - from) * shareOfText));
    };
    return QColor(between(ground.red(), text.red()), between(ground.green(), text.green()),
                  between(ground.blue(), text.blue()));
}

/// The colour that a translucent text has on a ground.
QColor seenOn(const QColor& ground, const QColor& text)
{
    const auto part = [&text](int below, int above) {
        return below + static_cast<int>(std::lround((above - below) * static_cast<double>(text.alphaF())));
    };
    return QColor(part(ground.red(), text.red()), part(ground.green(), text.green()),
                  part(ground.blue(), text.blue()));
}

/// The hints of empty fields.
void mendHint(QPalette& palette)
{
    const bool readable =
        std::all_of(liveGroups.begin(), liveGroups.end(), [&palette](QPalette::ColorGroup group) {
            const QColor ground = palette.color(group, QPalette::Base);
            return contrast(seenOn(ground, palette.color(group, QPalette::PlaceholderText)), ground) >=
                   leastContrastOfHint;
        });
    if (readable) return;
    QColor hint = palette.color(QPalette::Text);
    hint.setAlpha(hintAlpha);
    palette.setColor(QPalette::PlaceholderText, hint);
}

/// Links stand in lists and texts as well as in windows.
void mendLink(QPalette& palette, QPalette::ColorRole link, const Shades& shades)
{
    if (canBeReadIn(palette, link, QPalette::Base) && canBeReadIn(palette, link, QPalette::Window)) return;
    const auto leastContrastOf = [&palette](const QColor& text) {
        return std::min(contrast(text, palette.color(QPalette::Base)),
                        contrast(text, palette.color(QPalette::Window)));
    };
    palette.setColor(
        link, *std::max_element(shades.begin(), shades.end(), [&](const QColor& one, const QColor& other) {
            return leastContrastOf(one) < leastContrastOf(other);
        }));
}

} // namespace

bool ReadablePalette::canBeRead(const QColor& text, const QColor& ground)
{
    return contrast(text, ground) >= leastContrast;
}

QPalette ReadablePalette::of(QPalette palette)
{
    if (!canBeReadIn(palette, QPalette::Text, QPalette::AlternateBase)) {
        palette.setColor(QPalette::AlternateBase,
                         shaded(palette.color(QPalette::Base), palette.color(QPalette::Text)));
    }
    mendHint(palette);
    mendLink(palette, QPalette::Link, linkShades);
    mendLink(palette, QPalette::LinkVisited, visitedShades);
    if (!canBeReadIn(palette, QPalette::ToolTipText, QPalette::ToolTipBase)) {
        palette.setColor(QPalette::ToolTipBase, palette.color(QPalette::Base));
        palette.setColor(QPalette::ToolTipText, palette.color(QPalette::Text));
    }
    return palette;
}

void ReadablePalette::apply()
{
    // the palette remembers which of its colours were set here; all others go on following the desktop
    const QPalette readable = of(QApplication::palette());
    if (readable != QApplication::palette()) QApplication::setPalette(readable);
}
