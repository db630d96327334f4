// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/ProgramFolder.h"

#include <QString>

class Shell;

/// A page of the user's guide that the program opens.
enum class HelpChapter
{
    Contents,
    Subjects, ///< from A to Z
    FindDocument,
    Timeline,
    Map,
    Chart,
    Links,
    Search,
    AdvancedSearch,
    Records,
    History, ///< of records: versions, deleted ones, undo
    Collections,
    Lists, ///< of types, venues and cities
    Files,
    Export, ///< out of the program: files, paper, pictures
    Database,
    Safety, ///< backups
    Check,  ///< of a collection
    Keys
};

/// The user's guide in the program folder: one help file, and the same pages beside it.
class HelpFile
{
public:
    /// The folder and the shell must outlive this object.
    HelpFile(const ProgramFolder& folder, Shell& shell) : m_folder(folder), m_shell(shell) {}

    /// Opens the guide at a chapter with the desktop's default program. Contents and Subjects open the help
    /// file or, if that fails, their page. A default program cannot be told at which page to open a help
    /// file, so for every other chapter the page is tried first. Throws Error if neither opens.
    void open(HelpChapter chapter) const;

    /// Returns the chapter about a window of that name; Contents for a window without a chapter of its own.
    [[nodiscard]] static HelpChapter chapterOf(const QString& windowName);

    /// The file name of a chapter's page.
    [[nodiscard]] static QString pageName(HelpChapter chapter);

    /// Replaces the files of a program folder's guide that are missing or older than the installed ones, or
    /// of another size. A file that cannot be copied stays as it is.
    static void renew(const QString& programFolder, const QString& installedFolder);

private:
    [[nodiscard]] bool openFile(const QString& path) const;

    const ProgramFolder& m_folder;
    Shell& m_shell;
};
