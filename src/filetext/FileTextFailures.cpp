// SPDX-License-Identifier: GPL-3.0-or-later

#include "filetext/FileTextFailures.h"

#include "platform/PlatformTexts.h"

QString FileTextFailures::translated(const QString& failure)
{
    const QByteArray source = failure.toUtf8();
    const QString own = QCoreApplication::translate("FileText", source.constData());
    return own == failure ? PlatformTexts::tr(source.constData()) : own;
}
