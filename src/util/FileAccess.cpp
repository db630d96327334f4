// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/FileAccess.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

bool isWritable(const QString& path)
{
#ifdef Q_OS_UNIX
    // with the effective rights of the process, as opening the file would
    return faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK, AT_EACCESS) == 0;
#else
    return QFileInfo(path).isWritable();
#endif
}
