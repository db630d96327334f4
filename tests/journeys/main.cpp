#include "widgets/IconSet.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    // this display knows no place of icon themes, and buttons without icons are none that a user sees
    QIcon::setThemeSearchPaths({QStringLiteral("/usr/share/icons")});
    IconSet::chooseTheme();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
