// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/HelpFile.h"

#include "help/HelpTexts.h"
#include "platform/Shell.h"
#include "util/Error.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <array>
#include <cerrno>

namespace {

struct WindowChapter
{
    const char* window;
    HelpChapter chapter;
};

constexpr std::array windowChapters{
    WindowChapter{"frmDocument", HelpChapter::Records},
    WindowChapter{"frmEvent", HelpChapter::Records},
    WindowChapter{"frmOrganization", HelpChapter::Records},
    WindowChapter{"frmPicList", HelpChapter::Records},
    WindowChapter{"frmDeletedRecords", HelpChapter::History},
    WindowChapter{"frmChangedSince", HelpChapter::History},
    WindowChapter{"frmHistory", HelpChapter::History},
    WindowChapter{"frmGoToDate", HelpChapter::Timeline},
    WindowChapter{"frmSearch", HelpChapter::Search},
    WindowChapter{"frmAdvSearch", HelpChapter::AdvancedSearch},
    WindowChapter{"frmExport", HelpChapter::Export},
    WindowChapter{"frmPrint", HelpChapter::Export},
    WindowChapter{"frmImport", HelpChapter::Database},
    WindowChapter{"frmProgress", HelpChapter::Safety},
    WindowChapter{"frmCheck", HelpChapter::Check},
    WindowChapter{"frmNewDatabase", HelpChapter::Collections},
    WindowChapter{"frmSettings", HelpChapter::Collections},
    WindowChapter{"frmLists", HelpChapter::Lists},
    WindowChapter{"frmListEntry", HelpChapter::Lists},
    WindowChapter{"frmMergeEntry", HelpChapter::Lists},
    WindowChapter{"frmPosition", HelpChapter::Lists},
};

QString bookPath()
{
    return QStringLiteral("\\Kelmsett.chm");
}

QString pagesPath()
{
    return QStringLiteral("\\help\\");
}

bool isOutdated(const QFileInfo& copy, const QFileInfo& installed)
{
    return !copy.exists() || copy.size() != installed.size() ||
           copy.lastModified() < installed.lastModified();
}

void renewFile(const QString& copy, const QString& installed)
{
    if (!isOutdated(QFileInfo(copy), QFileInfo(installed))) return;
    QDir().mkpath(QFileInfo(copy).path());
    const QString unfinished = copy + QStringLiteral(".new");
    QFile::remove(unfinished);
    if (!QFile::copy(installed, unfinished)) return;
    QFile::setPermissions(unfinished, QFile::permissions(unfinished) | QFile::WriteOwner);
    QFile::remove(copy);
    QFile::rename(unfinished, copy);
}

} // namespace

QString HelpFile::pageName(HelpChapter chapter)
{
    switch (chapter) {
    case HelpChapter::Contents:
        return QStringLiteral("index.html");
    case HelpChapter::Subjects:
        return QStringLiteral("subjects.html");
    case HelpChapter::FindDocument:
        return QStringLiteral("find-a-document.html");
    case HelpChapter::Timeline:
        return QStringLiteral("timeline.html");
    case HelpChapter::Map:
        return QStringLiteral("map.html");
    case HelpChapter::Chart:
        return QStringLiteral("chart.html");
    case HelpChapter::Links:
        return QStringLiteral("links.html");
    case HelpChapter::Search:
        return QStringLiteral("search.html");
    case HelpChapter::AdvancedSearch:
        return QStringLiteral("advanced-search.html");
    case HelpChapter::Records:
        return QStringLiteral("records.html");
    case HelpChapter::History:
        return QStringLiteral("history.html");
    case HelpChapter::Collections:
        return QStringLiteral("collections.html");
    case HelpChapter::Lists:
        return QStringLiteral("lists.html");
    case HelpChapter::Files:
        return QStringLiteral("files.html");
    case HelpChapter::Export:
        return QStringLiteral("export.html");
    case HelpChapter::Database:
        return QStringLiteral("database.html");
    case HelpChapter::Safety:
        return QStringLiteral("safe.html");
    case HelpChapter::Check:
        return QStringLiteral("check.html");
    case HelpChapter::Keys:
        return QStringLiteral("keys.html");
    }
    return {};
}

HelpChapter HelpFile::chapterOf(const QString& windowName)
{
    const auto* const found =
        std::find_if(windowChapters.begin(), windowChapters.end(),
                     [&](const WindowChapter& entry) { return windowName == QLatin1String(entry.window); });
    return found == windowChapters.end() ? HelpChapter::Contents : found->chapter;
}

void HelpFile::open(HelpChapter chapter) const
{
    const bool wholeGuide = chapter == HelpChapter::Contents || chapter == HelpChapter::Subjects;
    const QString book = m_folder.machinePath(bookPath());
    const QString page = m_folder.machinePath(pagesPath()) + pageName(chapter);
    if (openFile(wholeGuide ? book : page) || openFile(wholeGuide ? page : book)) return;
    if (QFileInfo::exists(book) || QFileInfo::exists(page)) {
        throw Error(ENOEXEC,
                    HelpTexts::tr("No program of the desktop opens the user's guide. (%1)").arg(page));
    }
    throw Error(ENOENT, HelpTexts::tr("The user's guide was not found. (%1)").arg(book));
}

bool HelpFile::openFile(const QString& path) const
{
    return QFileInfo(path).isFile() && m_shell.open(QUrl::fromLocalFile(path));
}

void HelpFile::renew(const QString& programFolder, const QString& installedFolder)
{
    const QDir installed(installedFolder);
    if (installedFolder.isEmpty() || !installed.exists() ||
        installed.canonicalPath() == QDir(programFolder).canonicalPath())
        return;
    const ProgramFolder from(installed.path());
    const ProgramFolder to(programFolder);
    const auto renewAt = [&](const QString& path) {
        renewFile(to.machinePath(path), from.machinePath(path));
    };
    if (QFileInfo::exists(from.machinePath(bookPath()))) renewAt(bookPath());
    for (const QString& folder : {QString(), QStringLiteral("pictures\\")}) {
        const QString path = pagesPath() + folder;
        for (const QString& name : QDir(from.machinePath(path)).entryList(QDir::Files))
            renewAt(path + name);
    }
}
