// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DesktopShell.h"

#include "util/Logging.h"

#include <QProcess>

#ifdef ORVIK_USES_GIO
#include <gio/gio.h>
#else
#include <QDesktopServices>
#endif

bool DesktopShell::open(const QUrl& url)
{
#ifdef ORVIK_USES_GIO
    // the tool that Qt would start here says yes before it knows whether any program takes the file
    GError* failure = nullptr;
    const bool opened =
        g_app_info_launch_default_for_uri(url.toEncoded().constData(), nullptr, &failure) != FALSE;
    g_clear_error(&failure);
#else
    const bool opened = QDesktopServices::openUrl(url);
#endif
    qCInfo(filesLog).noquote() << (opened ? "opened:" : "no program opens:") << url.toDisplayString();
    return opened;
}

bool DesktopShell::start(const QString& program, const QString& file)
{
    QProcess process;
    process.setProgram(program);
#ifdef Q_OS_WIN
    process.setNativeArguments(u'"' + file + u'"');
#else
    process.setArguments({file});
#endif
    const bool started = process.startDetached();
    qCInfo(filesLog).noquote() << (started ? "started:" : "cannot be started:") << program << file;
    return started;
}
