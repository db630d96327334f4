// SPDX-License-Identifier: GPL-3.0-or-later

#include "FileContent.h"
#include "IndexFile.h"
#include "Indexer.h"
#include "filetext/FileTextIndex.h"
#include "util/Error.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <exception>
#include <string_view>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#endif

namespace {

constexpr int done = 0;
constexpr int failed = 1;
constexpr int misused = 2;

/// Whatever else runs on the machine comes first.
void stepBack()
{
#ifdef Q_OS_UNIX
    constexpr int lowest = 19;
    setpriority(PRIO_PROCESS, 0, lowest);
#endif
}

/// The names on the standard input, each ended by a zero byte.
QStringList givenNames()
{
    QFile input;
    QStringList names;
    if (!input.open(stdin, QIODevice::ReadOnly)) return names;
    const QByteArray all = input.readAll();
    for (const QByteArray& name : all.split('\0')) {
        if (!name.isEmpty()) names.append(QString::fromUtf8(name));
    }
    return names;
}

void bringUpToDate(const QString& path, const QString& folder, const QStringList& names)
{
    IndexFile index(path);
    Indexer(index, folder, QCoreApplication::applicationFilePath()).run(names);
}

/// An index that is damaged is made anew: it holds nothing that the files do not.
int makeIndex(const QString& path, const QString& folder)
{
    const QStringList names = givenNames();
    try {
        bringUpToDate(path, folder, names);
    } catch (const SQLite::Exception& exception) {
        const Error error(exception.getErrorCode(), QString::fromUtf8(exception.what()));
        if (!error.isOfDamage()) throw;
        IndexFile::remove(path);
        bringUpToDate(path, folder, names);
    }
    return done;
}

int printPageText(const QString& file)
{
    const QByteArray text = FileContent::pageTextOf(file, ProcessLimits{}.output);
    const auto size = static_cast<std::size_t>(text.size());
    return std::fwrite(text.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0 ? done : failed;
}

int run(const QStringList& arguments)
{
    if (arguments.size() == 2 && FileTextIndex::isPath(arguments.at(0))) {
        stepBack();
        return makeIndex(arguments.at(0), arguments.at(1));
    }
    std::fputs("usage: orvik-index DATABASE.filetext FOLDER <NAMES\n       orvik-index --text PAGE\n",
               stderr);
    return misused;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    try {
        // for each of thousands of pages, so without what it does not need
        const bool isText = argumentCount == 3 && std::string_view(arguments[1]) == "--text";
        if (isText) return printPageText(QFile::decodeName(arguments[2]));
        const QCoreApplication application(argumentCount, arguments);
        return run(QCoreApplication::arguments().sliced(1));
    } catch (const Error& error) {
        std::fprintf(stderr, "orvik-index: %s\n", error.description().toUtf8().constData());
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "orvik-index: %s\n", exception.what());
    }
    return failed;
}
