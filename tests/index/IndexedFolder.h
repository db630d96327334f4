// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QMap>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>

/// How a run of the indexing program ended.
struct IndexRun
{
    int status = -1; ///< the exit status; -1 after a signal or if it did not end
    QByteArray output;

    /// The last line of the output.
    [[nodiscard]] QByteArray last() const { return output.trimmed().split('\n').constLast(); }
};

/// A folder of files with an index beside it, gone with the object. Whatever the program changes between two
/// runs, the times of files are those that a test sets, long ago.
class IndexedFolder
{
public:
    IndexedFolder();

    [[nodiscard]] QString path(const QString& name) const;
    [[nodiscard]] QString index() const { return m_folder.filePath(QStringLiteral("c.sqlite.filetext")); }

    /// Writes a file that was changed so many seconds after a moment long ago.
    void write(const QString& name, const QByteArray& content, int seconds = 0) const;

    /// Puts a script in the place of the program that reads PDF files, or nothing if it is empty.
    void replacePdfReader(const QByteArray& script);

    /// Starts the program with these names; the caller waits for it.
    void start(QProcess& process, const QStringList& names) const;

    /// Whether SQLite finds no damage in the index, which must be there.
    [[nodiscard]] bool isWhole() const;

    /// Runs it, and checks that the index is whole then and each of its texts belongs to a file.
    [[nodiscard]] IndexRun run(const QStringList& names) const;

    /// What the index holds: by the names of the files their texts, or why they have none behind a `!`.
    [[nodiscard]] QMap<QString, QString> contents() const;

    /// The names of the files that hold a word, as the index finds it.
    [[nodiscard]] QStringList holding(const QString& word) const;

private:
    QTemporaryDir m_folder;
    QString m_programs; ///< the only folder where programs are looked for, if not empty
};

/// A PDF of one page with a line of text in Latin-1. What is `inTrailer` may say that it is encrypted.
[[nodiscard]] QByteArray pdfOf(const QByteArray& text, const QByteArray& inTrailer = {});
