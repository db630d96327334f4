// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "filetext/FilePassage.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

/// A search in an index of the files' texts, which it only reads. A file is found if each of the words begins
/// a word of its text, without regard to case and accents; `%` and `_` part a word.
class FileTextSearch
{
public:
    /// Opens an index, or returns null if there is none that this program reads. Throws Error if the index is
    /// damaged or locked.
    [[nodiscard]] static std::unique_ptr<FileTextSearch> open(const QString& index, const QStringList& words);

    ~FileTextSearch();
    FileTextSearch(const FileTextSearch&) = delete;
    FileTextSearch& operator=(const FileTextSearch&) = delete;

    struct File
    {
        qint64 key = 0;
        bool isFound = false;
    };

    /// Returns all files of the index by their names, letter by letter. Throws Error.
    [[nodiscard]] QHash<QString, File> files();

    /// Returns the place of a found file that has the most of the words close together, or an empty passage
    /// if there is none near the beginning. Throws Error.
    [[nodiscard]] FilePassage passage(qint64 file);

private:
    struct Connection;

    FileTextSearch(std::unique_ptr<Connection> connection, const QStringList& words);
    void add(const QString& part);

    std::unique_ptr<Connection> m_connection;
    QString m_expression; ///< what the index is asked for; empty if the words have no letter and no digit
    std::vector<SoughtWord> m_sought;
};
