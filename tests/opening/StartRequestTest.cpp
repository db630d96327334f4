// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/StartRequest.h"

#include "opening/DatabasePath.h"
#include "support/TestDatabase.h"

namespace {

/// A request in one line: what it opens, for what, and what it does then.
std::string textOf(const StartRequest& request)
{
    QString text = request.path + (request.readOnly ? u" read-only"_s : QString());
    if (!request.keywords.isEmpty()) text += u" search "_s + request.keywords;
    if (request.record) {
        text += u" show %1 %2"_s.arg(static_cast<int>(request.record->kind)).arg(request.record->identifier);
    }
    return text.toStdString();
}

TEST(StartRequest, IsWhatTheArgumentsSay)
{
    const std::pair<QStringList, const char*> cases[] = {
        {{}, ""},
        {{u"my notes.sqlite"_s}, "/home/ann/my notes.sqlite"},
        {{u"../x/./y.mdb"_s}, "/home/x/y.mdb"},
        {{u"."_s}, "/home/ann"},
        {{u"/a/b"_s, u"--read-only"_s}, "/a/b read-only"},
        {{u"--"_s, u"--read-only"_s}, "/home/ann/--read-only"},
        {{u"--search"_s, u"flood  plain"_s}, " search flood  plain"},
        {{u"--search=-x\n\"ü%"_s}, " search -x\n\"ü%"},
        {{u"--show"_s, u"document:12"_s}, " show 0 12"},
        {{u"--show=EVENT:7"_s, u"/a"_s, u"--search"_s, u"x"_s}, "/a search x show 1 7"},
        {{u"--show"_s, u"organization:3"_s}, " show 2 3"},
        {{u"-platform"_s, u"offscreen"_s, u"--style=fusion"_s, u"/a"_s, u"-display"_s, u":1"_s,
          u"-reverse"_s},
         "/a"},
    };
    for (const auto& [arguments, expected] : cases) {
        SCOPED_TRACE(arguments.join(u' ').toStdString());
        const CommandLine line = CommandLine::read(arguments, u"/home/ann"_s);
        ASSERT_TRUE(line.request) << line.answer.toStdString();
        EXPECT_EQ(textOf(*line.request), expected);
        // another window understands it in the same way, wherever that was started
        const CommandLine handedOver = CommandLine::read(line.request->arguments(), u"/elsewhere"_s);
        EXPECT_EQ(handedOver.request, line.request);
    }
}

TEST(StartRequest, SaysWhatIsWrongWithTheArguments)
{
    const std::pair<QStringList, const char*> cases[] = {
        {{u"--bogus"_s}, "Unknown option 'bogus'."},
        {{u"a"_s, u"b"_s}, "Only one file or folder can be opened."},
        {{QString()}, "The name of the file is empty."},
        {{u"--search"_s, u" "_s}, "--search takes the words to search for."},
        {{u"--search"_s}, "Missing value after '--search'."},
    };
    for (const auto& [arguments, reason] : cases) {
        const CommandLine line = CommandLine::read(arguments, u"/"_s);
        EXPECT_FALSE(line.request);
        EXPECT_TRUE(line.isError);
        EXPECT_EQ(line.answer.toStdString(), "orvik-database: " + std::string(reason) + "\n");
    }
    for (const char* record : {"", "document", "document:", "document:0", "document:-1", "document:x",
                               "documents:1", ":1", "1", "document:99999999999999999999", "event:7:8"}) {
        const CommandLine line = CommandLine::read({u"--show"_s, QString::fromLatin1(record)}, u"/"_s);
        EXPECT_TRUE(line.isError && line.answer.contains(u"--show takes"_s)) << record;
    }
    for (const char* option : {"-h", "--help", "-v", "--version"}) {
        const CommandLine line = CommandLine::read({QString::fromLatin1(option), u"a"_s}, u"/"_s);
        EXPECT_FALSE(line.request || line.isError || line.answer.isEmpty()) << option;
    }
}

TEST(DatabasePath, IsTheOneDatabaseOfAFolder)
{
    const QTemporaryDir home;
    const auto at = [&home](const char* path) { return home.filePath(QString::fromUtf8(path)); };
    for (const char* file : {"notes/data/my notes.sqlite", "notes/data/notes.mdb",
                             "notes/data/documents/x.sqlite", "Old/DATA/old.accdb", "several/data/a.sqlite",
                             "several/data/b.sqlite", "empty/data/documents/readme.txt", "plain.txt"})
        writeFile(at(file));
    const std::tuple<const char*, const char*, int> cases[] = {
        {"notes", "notes/data/my notes.sqlite", 0},
        {"notes/", "notes/data/my notes.sqlite", 0},
        {"notes/data", "notes/data/my notes.sqlite", 0},
        {"Old", "Old/DATA/old.accdb", 0},
        {"plain.txt", "plain.txt", 0}, // what it is shows when it is opened
        {"several", "", EINVAL},
        {"empty", "", ENOENT},
        {"gone", "", ENOENT},
    };
    for (const auto& [path, database, error] : cases) {
        QString found;
        EXPECT_EQ(errorNumberOf([&, asked = at(path)] { found = databaseAt(asked); }), error) << path;
        EXPECT_EQ(found, error == 0 ? at(database) : QString()) << path;
    }
}

} // namespace
