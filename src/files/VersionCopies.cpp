// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/VersionCopies.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace {

const QRegularExpression& copyEnding()
{
    static const QRegularExpression ending(QStringLiteral("\\.version[0-9]+(-[0-9]+)?$"));
    return ending;
}

} // namespace

QString VersionCopies::freePath(const QString& database, int version)
{
    const QString wanted = QStringLiteral("%1.version%2").arg(database).arg(version);
    QString path = wanted;
    // a link that leads nowhere takes its name, too
    for (int number = 2; QFileInfo::exists(path) || QFileInfo(path).isSymLink(); ++number)
        path = QStringLiteral("%1-%2").arg(wanted).arg(number);
    return path;
}

bool VersionCopies::isCopy(const QString& file)
{
    return copyEnding().match(file).hasMatch();
}

QString VersionCopies::originalName(const QString& file)
{
    return QFileInfo(file).fileName().remove(copyEnding());
}
