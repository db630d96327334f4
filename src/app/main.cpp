// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Main_Mod.h"
#include "app/Translations.h"
#include "opening/DesktopDatabaseConverter.h"
#include "opening/StartRequest.h"
#include "platform/Clock.h"
#include "platform/DesktopFileDialogs.h"
#include "platform/DesktopMessages.h"
#include "platform/DesktopOtherWindows.h"
#include "platform/DesktopPrinting.h"
#include "platform/DesktopShell.h"
#include "platform/DesktopWorkRunner.h"
#include "platform/FileAttributes.h"
#include "platform/IniSettingsStore.h"
#include "platform/Volumes.h"
#include "widgets/IconSet.h"
#include "widgets/IndicatorStyle.h"
#include "widgets/ReadablePalette.h"

#include <QApplication>
#include <QDir>
#include <QLocale>
#include <QStandardPaths>

#include <cstdio>

namespace {

constexpr int badArguments = 2;

QString translationsFolder()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/../share/orvik/translations");
}

/// Reads the command line before there are windows, so that what it prints needs no display.
CommandLine readCommandLine(int argc, char** argv)
{
    const QCoreApplication console(argc, argv);
    const Translations translations(QLocale(), translationsFolder());
    CommandLine line = CommandLine::read(QCoreApplication::arguments().sliced(1), QDir::currentPath());
    std::fputs(line.answer.toLocal8Bit().constData(), line.isError ? stderr : stdout);
    return line;
}

/// What the desktop gave this start of the program to bring its window to the front.
QString activationToken()
{
    return qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("orvik-database"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVIK_VERSION));
    const CommandLine line = readCommandLine(argc, argv);
    if (!line.request) return line.isError ? badArguments : EXIT_SUCCESS;
    // Qt takes it away for the first window
    const QString token = activationToken();
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Orvik Database"));
    QApplication::setDesktopFileName(QStringLiteral("orvik-database"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/pictures/orvik-database.svg")));
    const Translations translations(QLocale(), translationsFolder());
    IndicatorStyle::install();
    ReadablePalette::apply();
    IconSet::chooseTheme();

    DesktopMessages messages;
    IniSettingsStore settings;
    SystemFileAttributes fileAttributes;
    DesktopFileDialogs fileDialogs;
    DesktopDatabaseConverter converter(QCoreApplication::applicationDirPath() +
                                       QStringLiteral("/orvik-import"));
    SystemClock clock;
    SystemVolumes volumes;
    DesktopShell shell;
    DesktopOtherWindows otherWindows;
    DesktopWorkRunner works;
    DesktopPrinting printing;
    const ProgramFolder::Surroundings surroundings{
        qEnvironmentVariable("ORVIK_HOME"), QCoreApplication::applicationDirPath(),
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)};
    const QString sample = surroundings.executableFolder + QStringLiteral("/../share/orvik/sample");
    Main_Mod program({messages, settings, fileAttributes, fileDialogs, clock, volumes, shell, otherWindows,
                      works, printing, QCoreApplication::applicationDirPath()},
                     converter, ProgramFolder(ProgramFolder::choose(surroundings), sample), sample);
    if (program.handOver(*line.request, token)) return EXIT_SUCCESS;
    program.Main(*line.request);
    return program.window() == nullptr ? EXIT_FAILURE : QApplication::exec();
}
