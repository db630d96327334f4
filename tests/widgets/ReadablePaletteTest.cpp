// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/ReadablePalette.h"

#include "support/Testing.h"

#include <cstdlib>

namespace {

struct Desktop
{
    const char* name;
    QColor window;
    QColor base;
    QColor text;
};

/// A desktop that names its grounds and its text; the rest is left as a light palette or a dark one has it.
QPalette halfNamed(const Desktop& desktop, bool restIsLight)
{
    QPalette palette;
    palette.setColor(QPalette::Window, desktop.window);
    palette.setColor(QPalette::WindowText, desktop.text);
    palette.setColor(QPalette::Base, desktop.base);
    palette.setColor(QPalette::Text, desktop.text);
    palette.setColor(QPalette::AlternateBase, restIsLight ? QColor(245, 245, 245) : QColor(42, 46, 50));
    palette.setColor(QPalette::PlaceholderText,
                     restIsLight ? QColor(0, 0, 0, 128) : QColor(255, 255, 255, 128));
    palette.setColor(QPalette::Link, restIsLight ? QColor(0, 0, 255) : QColor(125, 185, 255));
    palette.setColor(QPalette::LinkVisited, restIsLight ? QColor(85, 0, 127) : QColor(205, 170, 255));
    palette.setColor(QPalette::ToolTipBase, restIsLight ? QColor(255, 255, 220) : QColor(30, 30, 30));
    palette.setColor(QPalette::ToolTipText, desktop.text);
    return palette;
}

const Desktop light{"light", QColor(239, 240, 241), QColor(252, 252, 252), QColor(35, 38, 41)};
const Desktop dark{"dark", QColor(49, 54, 59), QColor(35, 38, 41), QColor(239, 240, 241)};

TEST(ReadablePalette, LetsRowsLinksAndToolTipsBeRead)
{
    const Desktop desktops[]{light,
                             dark,
                             {"black and white", Qt::black, Qt::black, Qt::white},
                             {"grey", QColor(118, 118, 118), QColor(110, 110, 110), Qt::white},
                             {"white lists in a dark window", QColor(49, 54, 59), Qt::white, Qt::black}};
    for (int i = 0; i < 2 * int(std::size(desktops)); ++i) {
        SCOPED_TRACE(desktops[i / 2].name);
        const QPalette given = halfNamed(desktops[i / 2], i % 2 == 0);
        const QPalette palette = ReadablePalette::of(given);
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            const auto reads = [&](QPalette::ColorRole text, QPalette::ColorRole ground) {
                return ReadablePalette::canBeRead(palette.color(group, text), palette.color(group, ground));
            };
            EXPECT_TRUE(reads(QPalette::Text, QPalette::AlternateBase));
            const QColor hint = palette.color(group, QPalette::PlaceholderText);
            const int apart = qGray(hint.rgb()) - qGray(palette.color(group, QPalette::Base).rgb());
            EXPECT_GE(std::abs(apart) * hint.alpha(), 40 * 255) << "a hint lets its ground shine through";
            EXPECT_TRUE(reads(QPalette::ToolTipText, QPalette::ToolTipBase));
            for (const QPalette::ColorRole link : {QPalette::Link, QPalette::LinkVisited}) {
                EXPECT_TRUE(reads(link, QPalette::Base));
                EXPECT_TRUE(reads(link, QPalette::Window));
            }
        }
        EXPECT_EQ(palette.color(QPalette::Base), given.color(QPalette::Base));
        EXPECT_EQ(palette.color(QPalette::Text), given.color(QPalette::Text));
        EXPECT_EQ(ReadablePalette::of(palette), palette) << "mending twice must come to an end";
    }
}

TEST(ReadablePalette, KeepsWhatCanBeReadAndTellsRowsApart)
{
    const QPalette named =
        halfNamed({"darker", QColor(42, 46, 50), QColor(27, 30, 32), QColor(252, 252, 252)}, false);
    EXPECT_EQ(ReadablePalette::of(named), named);
    const QColor row = ReadablePalette::of(halfNamed(dark, true)).color(QPalette::AlternateBase);
    EXPECT_GT(row.lightness(), dark.base.lightness() + 5);
    EXPECT_LT(row.lightness(), dark.base.lightness() + 40);
}

} // namespace
