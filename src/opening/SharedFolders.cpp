// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/SharedFolders.h"

#include "files/ProgramFolder.h"
#include "opening/DatabaseName.h"
#include "opening/OpeningTexts.h"
#include "platform/Messages.h"
#include "platform/Platform.h"
#include "platform/StdREG.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace {

constexpr std::size_t mostListed = 6;

/// One line for each entry, but not too many.
template <typename Entry, typename LineOf>
QString listed(const std::vector<Entry>& entries, LineOf&& lineOf)
{
    QStringList lines;
    for (const Entry& entry : entries) {
        if (static_cast<std::size_t>(lines.size()) == mostListed) break;
        lines << lineOf(entry);
    }
    if (entries.size() > mostListed) {
        lines << OpeningTexts::tr("… and %n more.", nullptr, static_cast<int>(entries.size() - mostListed));
    }
    return lines.join(u'\n');
}

QString fileName(const QString& path)
{
    return QFileInfo(path).fileName();
}

/// The folder that holds a database with all its files.
QString folderOf(const QString& database)
{
    return QDir::toNativeSeparators(QFileInfo(QFileInfo(database).path()).path());
}

QStringList movedTexts(const SharedFolderSplit::Result& result)
{
    const int moved = result.movedFiles;
    const int copied = result.copiedFiles;
    QStringList files;
    if (moved == 1) files << OpeningTexts::tr("1 file was moved with them.");
    if (moved > 1) files << OpeningTexts::tr("%n files were moved with them.", nullptr, moved);
    if (copied == 1) files << OpeningTexts::tr("1 copy was made of a file that several databases use.");
    if (copied > 1)
        files << OpeningTexts::tr("%n copies were made of files that several databases use.", nullptr,
                                  copied);
    return {
        OpeningTexts::tr("Several databases shared one folder, where the files of one could replace those of "
                         "another. %1 stays where it was; these have folders of their own now:")
            .arg(fileName(result.stays)),
        listed(result.moved,
               [](const MovedDatabase& database) {
                   return OpeningTexts::tr("%1, now in %2").arg(fileName(database.to), folderOf(database.to));
               }),
        files.join(u'\n')};
}

QStringList failedTexts(const SharedFolderSplit::Result& result)
{
    return {OpeningTexts::tr("These databases could not be moved with all their files to a folder of their "
                             "own. The program tries again when it next opens a database of their folder."),
            listed(result.failed, [](const FailedMove& failure) {
                return QStringLiteral("%1: %2").arg(fileName(failure.database), failure.reason);
            })};
}

} // namespace

SharedFolders::Outcome SharedFolders::separate(const Platform& platform, const ProgramFolder& home,
                                               const QString& place, const QString& file)
{
    const QString named = StdREG(platform.settings).GetRegString(QString(), QStringLiteral("DBFile"));
    const QString folder = QFileInfo(QDir::current().absoluteFilePath(file)).path();
    SharedFolderSplit split(folder, QDir::cleanPath(QDir::current().absoluteFilePath(place)));
    const SharedFolderSplit::Result result = split.run(file, DatabaseName::fileOf(home, named));
    Outcome outcome{file, result.moved};
    for (const MovedDatabase& database : result.moved) {
        if (fileName(database.from) == fileName(file)) outcome.file = database.to;
    }
    const QString report = reportOf(result);
    if (!report.isEmpty()) platform.messages.show(report);
    return outcome;
}

QString SharedFolders::reportOf(const SharedFolderSplit::Result& result)
{
    QStringList parts;
    if (!result.moved.empty()) parts << movedTexts(result);
    if (!result.failed.empty()) parts << failedTexts(result);
    parts.removeAll(QString());
    return parts.join(QStringLiteral("\n\n"));
}
