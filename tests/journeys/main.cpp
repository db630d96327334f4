// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/IconSet.h"

#include <QApplication>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    // the offscreen platform does not know where icon themes are, and users see no buttons without icons
    QIcon::setThemeSearchPaths({u"/usr/share/icons"_s});
    IconSet::chooseTheme();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
