// SPDX-License-Identifier: GPL-3.0-or-later

// The program from its start to its home page, which ends it once it is painted. With the argument `list`
// it shows the full list of documents instead and tells by how much its memory grew, in megabytes.
//
// start_orvik FOLDER [list]

#include "BenchWindow.h"
#include "EndAtOnce.h"
#include "browse/window/frmMain.h"
#include "platform/DesktopShell.h"
#include "platform/OtherWindows.h"
#include "widgets/IconSet.h"
#include "widgets/IndicatorStyle.h"
#include "widgets/ReadablePalette.h"

#include <QApplication>
#include <QEvent>
#include <QFile>

#include <cstdio>
#include <cstdlib>

namespace {

class EndWhenPainted final : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) endAtOnce();
        return QObject::eventFilter(watched, event);
    }
};

double residentMegabytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ').front().toDouble() / 1024;
    }
    return 0;
}

void reportListMemory(Main_Mod& program)
{
    QApplication::processEvents();
    const double before = residentMegabytes();
    program.state().history.addView(
        {ViewKind::Documents, program.state().queries.documents, QStringLiteral("All")});
    QApplication::processEvents();
    std::printf("%.1f\n", residentMegabytes() - before);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/pictures/orvik-database.svg")));
    IndicatorStyle::install();
    ReadablePalette::apply();
    IconSet::chooseTheme();
    NoMessages messages;
    OneDatabase settings(QStringLiteral("large.sqlite"));
    SystemFileAttributes fileAttributes;
    NoFiles files;
    SystemClock clock;
    SystemVolumes volumes;
    NoOtherWindows otherWindows;
    NoPrinting printing;
    DesktopShell shell; // as in the program, with all that it links
    Main_Mod program(
        {messages, settings, fileAttributes, files, clock, volumes, shell, otherWindows, files, printing},
        files, ProgramFolder(QString::fromLocal8Bit(argv[1])), QString());
    program.Main();
    if (argc > 2) {
        reportListMemory(program);
        return EXIT_SUCCESS;
    }
    EndWhenPainted ender;
    program.window()->findChild<QWidget*>(QStringLiteral("pnlHome"))->installEventFilter(&ender);
    return QApplication::exec();
}
