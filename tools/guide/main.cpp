// SPDX-License-Identifier: GPL-3.0-or-later

// Takes the pictures of the user's guide from the program, on a copy of a program folder.
//
// orvik-guide-pictures PROGRAM_FOLDER TARGET_FOLDER

#include "GuidePictures.h"
#include "QuietDesktop.h"
#include "app/Main_Mod.h"
#include "browse/window/frmMain.h"
#include "platform/StdREG.h"
#include "widgets/IconSet.h"

#include <QApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdlib>

namespace {

constexpr QSize windowSize(1000, 640);

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("Usage: orvik-guide-pictures PROGRAM_FOLDER TARGET_FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/pictures/orvik-database.svg")));
    // without a display, Qt does not know where the desktop keeps its icons
    QIcon::setThemeSearchPaths(QStandardPaths::locateAll(
        QStandardPaths::GenericDataLocation, QStringLiteral("icons"), QStandardPaths::LocateDirectory));
    IconSet::chooseTheme();

    const QString source = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    const QTemporaryDir place(QDir::tempPath() + QStringLiteral("/orvik-XXXXXX"));
    const QString folder = place.filePath(QStringLiteral(".local/share/orvik"));
    ProgramFolder::fillFromSample(folder, source);
    const QStringList databases =
        QDir(folder + QStringLiteral("/data")).entryList({QStringLiteral("*.sqlite")}, QDir::Files);
    if (databases.isEmpty()) {
        std::fprintf(stderr, "%s holds no database.\n", argv[1]);
        return EXIT_FAILURE;
    }
    QuietDesktop desktop;
    StdREG(desktop).WriteRegString(QString(), QStringLiteral("DBFile"), databases.front());

    Main_Mod program(desktop.platform(), desktop, ProgramFolder(folder, source), QString());
    program.Main();
    if (program.window() == nullptr) return EXIT_FAILURE;
    program.window()->resize(windowSize);
    QDir().mkpath(QString::fromLocal8Bit(argv[2]));
    const QStringList failures = GuidePictures(*program.window(), QString::fromLocal8Bit(argv[2])).takeAll();
    for (const QString& failure : failures)
        std::fprintf(stderr, "not taken: %s\n", qPrintable(failure));
    return failures.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
}
