#pragma once

#include "files/ProgramFolder.h"

#include <QString>

class Shell;

/// A page of the user's guide that the program leads to.
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
    Files,
    Database,
    Keys
};

/// The user's guide in the program folder: one help file, and the same pages beside it. Opens what the
/// desktop has a program for.
class HelpFile
{
public:
    /// Both must outlive this object.
    HelpFile(const ProgramFolder& folder, Shell& shell) : m_folder(folder), m_shell(shell) {}

    /// Opens the guide at a chapter. The contents and the subjects open the whole guide, for which the help
    /// file comes first. A desktop's default program cannot be told where to open a help file, so every other
    /// chapter is opened as a page, and the help file only where that fails. Throws Error where nothing
    /// opens.
    void open(HelpChapter chapter) const;

    /// The chapter about a window of that name; the contents for a window without a chapter of its own.
    [[nodiscard]] static HelpChapter chapterOf(const QString& windowName);

    /// The name of a chapter's page.
    [[nodiscard]] static QString pageName(HelpChapter chapter);

    /// Brings the guide of a program folder up to the one that was installed, file by file. What cannot be
    /// copied stays as it is.
    static void renew(const QString& programFolder, const QString& installedFolder);

private:
    [[nodiscard]] bool openFile(const QString& path) const;

    const ProgramFolder& m_folder;
    Shell& m_shell;
};
