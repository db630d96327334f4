// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/DatabaseName.h"

#include "files/ProgramFolder.h"

#include <QDir>

QString DatabaseName::fileOf(const ProgramFolder& home, const QString& name)
{
    QString path = name;
    path.replace(u'\\', u'/');
    if (QDir::isAbsolutePath(path)) return QDir::cleanPath(path);
    if (path.contains(u'/')) return QDir::cleanPath(home.folderPath(ProgramFolders::data) + path);
    return home.find(ProgramFolders::data, name).value_or(home.machinePath(ProgramFolders::data) + name);
}

QString DatabaseName::nameOf(const ProgramFolder& home, const QString& file)
{
    QString absolute = QDir::cleanPath(QDir::current().absoluteFilePath(file));
    const QString root = QDir::cleanPath(home.root()) + u'/';
    if (!absolute.startsWith(root)) return absolute;
    return QDir(home.folderPath(ProgramFolders::data)).relativeFilePath(absolute);
}
