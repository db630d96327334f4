// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/RecentDatabases.h"

#include "opening/OpeningTexts.h"
#include "platform/StdREG.h"

#include <QDir>
#include <QFileInfo>

namespace {

QString section()
{
    return QStringLiteral("RecentDatabases");
}

} // namespace

QStringList RecentDatabases::names() const
{
    QStringList names;
    for (int i = 1; i <= limit; ++i)
        names << StdREG(m_settings).GetRegString(section(), QString::number(i));
    names.removeAll(QString());
    names.removeDuplicates();
    return names;
}

void RecentDatabases::add(const QString& name)
{
    QStringList all = names();
    all.removeAll(name);
    all.prepend(name);
    write(all);
}

void RecentDatabases::remove(const QString& name)
{
    QStringList all = names();
    all.removeAll(name);
    write(all);
}

void RecentDatabases::write(const QStringList& names)
{
    StdREG settings(m_settings);
    for (int i = 1; i <= limit; ++i) {
        const QString number = QString::number(i);
        const QString name = names.value(i - 1);
        if (settings.GetRegString(section(), number) != name)
            settings.WriteRegString(section(), number, name);
    }
}

QStringList RecentDatabases::captions(const QStringList& files)
{
    QStringList plain;
    for (const QString& file : files)
        plain << QFileInfo(file).completeBaseName();
    QStringList captions;
    for (qsizetype i = 0; i < files.size(); ++i) {
        const bool isUnique = plain.count(plain[i]) == 1;
        const QString folder = QDir::toNativeSeparators(QFileInfo(files[i]).path());
        captions << (isUnique ? plain[i] : OpeningTexts::tr("%1 (in %2)").arg(plain[i], folder));
    }
    return captions;
}
