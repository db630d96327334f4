// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QMap>
#include <QString>

#include <vector>

class DatabaseSession;

/// What a backup holds, so that a copy made from it can be compared with what was backed up.
struct Manifest
{
    struct File
    {
        QString name; ///< relative to the folder of the collection, with `/` between folders
        qint64 size = 0;
        QByteArray sha256; ///< 32 bytes
    };

    QString collection; ///< the name of its folder
    QString database;   ///< the name of its file among the others
    QDateTime made;
    QMap<QString, qint64>
        rows; ///< the number of rows in each table that holds records or what belongs to them
    std::vector<File> files;

    [[nodiscard]] QByteArray toJson() const;

    /// Throws Error if the text is not a manifest that this version of the program understands.
    [[nodiscard]] static Manifest fromJson(const QByteArray& text);

    /// Counts the rows of the open database. Throws Error.
    [[nodiscard]] static QMap<QString, qint64> countRows(DatabaseSession& session);
};
