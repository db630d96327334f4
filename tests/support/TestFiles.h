// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

/// Writes a whole file, and makes the folders that it stands in.
inline void writeFile(const QString& path, const QByteArray& content = {})
{
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly) ||
        file.write(content) != content.size())
        throw std::runtime_error("cannot write " + path.toStdString());
}

/// All that a file holds, or `(no file)`.
inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}
