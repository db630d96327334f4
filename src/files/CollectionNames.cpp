// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/CollectionNames.h"

#include <QDir>

bool CollectionNames::isTaken(const QString& place, const QString& name)
{
    const QStringList there =
        QDir(place).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    return there.contains(name, Qt::CaseInsensitive) ||
           name.compare(QStringLiteral("data"), Qt::CaseInsensitive) == 0;
}

QString CollectionNames::variant(const QString& wanted, int number)
{
    return number == 1 ? wanted : wanted + u' ' + QString::number(number);
}
