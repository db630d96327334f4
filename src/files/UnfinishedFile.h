// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <string_view>

/// A file that is being written. Until it is finished it has a name of its own, under which no other program
/// writes it too; then it takes the place of the file that was there before, with its permissions. A link
/// stays one: what it leads to is replaced. The unfinished file is removed with the object. Every failure is
/// an Error with the system's number and the path.
class UnfinishedFile
{
public:
    explicit UnfinishedFile(const QString& file);
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    void write(std::string_view content);

    /// Returns when the file has its name and is on the disk.
    void finish();

    /// What it will be called.
    [[nodiscard]] const QString& file() const { return m_file; }

    /// What it is called until then, for a library that writes it by its name.
    [[nodiscard]] const QString& unfinished() const { return m_unfinished; }

    /// Open for writing; -1 once it is finished.
    [[nodiscard]] int descriptor() const { return m_descriptor; }

    [[nodiscard]] static QString unfinishedName(const QString& file)
    {
        return file + QStringLiteral(".part");
    }

    /// Removes what a killed program left of a file, unless a program is still at it. Never fails.
    static void clearLeftOver(const QString& file);

private:
    QString m_file;
    QString m_unfinished;
    int m_descriptor = -1;
};
