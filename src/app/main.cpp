// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Main_Mod.h"
#include "app/Translations.h"
#include "opening/DesktopDatabaseConverter.h"
#include "platform/Clock.h"
#include "platform/DesktopFileDialogs.h"
#include "platform/DesktopMessages.h"
#include "platform/DesktopShell.h"
#include "platform/FileAttributes.h"
#include "platform/IniSettingsStore.h"
#include "platform/Volumes.h"
#include "widgets/IconSet.h"
#include "widgets/IndicatorStyle.h"
#include "widgets/ReadablePalette.h"

#include <QApplication>
#include <QLocale>
#include <QStandardPaths>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orvik-database"));
    QApplication::setApplicationDisplayName(QStringLiteral("Orvik Database"));
    QApplication::setApplicationVersion(QStringLiteral(ORVIK_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("orvik-database"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/pictures/orvik-database.svg")));
    const Translations translations(QLocale(), QCoreApplication::applicationDirPath() +
                                                   QStringLiteral("/../share/orvik/translations"));
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
    const ProgramFolder::Surroundings surroundings{
        qEnvironmentVariable("ORVIK_HOME"), QCoreApplication::applicationDirPath(),
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)};
    const QString sample = surroundings.executableFolder + QStringLiteral("/../share/orvik/sample");
    Main_Mod program({messages, settings, fileAttributes, fileDialogs, clock, volumes, shell}, converter,
                     ProgramFolder(ProgramFolder::choose(surroundings), sample), sample);
    program.Main();
    return program.window() == nullptr ? EXIT_FAILURE : QApplication::exec();
}
