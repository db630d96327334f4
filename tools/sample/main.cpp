// SPDX-License-Identifier: GPL-3.0-or-later

#include "SampleBuilder.h"
#include "SourceTable.h"

#include <QFontDatabase>
#include <QGuiApplication>

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdio>

namespace {

int usage()
{
    std::fputs("Usage: orvik-sample SOURCE_DIR SCHEMA_SQL TARGET_DIR\n"
               "Builds the sample program folder TARGET_DIR from the texts and maps in SOURCE_DIR.\n",
               stderr);
    return 2;
}

} // namespace

int main(int argc, char* argv[])
{
    // The pictures and pages are drawn in memory: no display is needed.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) return usage();
    if (QFontDatabase::families().isEmpty()) {
        std::fputs("orvik-sample: no font is installed, so no page can be drawn\n", stderr);
        return 1;
    }
    try {
        SampleBuilder(arguments.at(1), arguments.at(2), arguments.at(3)).build();
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "orvik-sample: %s\n", problem.what());
        return 1;
    }
    return 0;
}
