// SPDX-License-Identifier: GPL-3.0-or-later

#include "AccessFile.h"
#include "ImportTool.h"
#include "Supervisor.h"
#include "support/Testing.h"

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <mutex>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

using namespace accessimport;

namespace {

using Names = std::vector<std::string>;

/// How small.mdb is damaged: cut to a size, with one byte changed.
struct Damage
{
    std::size_t size = 0;
    std::size_t changedAt = 0;
    char change = 0; ///< these bits are turned over

    std::string applyTo(const std::string& sound) const
    {
        std::string bytes = sound.substr(0, size);
        bytes[changedAt] = static_cast<char>(bytes[changedAt] ^ change);
        return bytes;
    }
};

/// How many times the usual number of damaged files to try.
std::size_t thoroughness()
{
    const char* text = std::getenv("ORVIK_IMPORT_THOROUGHNESS");
    return text ? static_cast<std::size_t>(std::max(1, std::atoi(text))) : 1;
}

/// Runs the importer on many damaged files, two at a time, and hands each result to a check.
void importAll(const std::vector<Damage>& damages,
               const std::function<void(const Damage&, const ToolResult&, const TemporaryFolder&)>& check)
{
    const std::string sound = readFile(testData("small.mdb"));
    std::atomic<std::size_t> next = 0;
    std::mutex checking;
    const auto work = [&] {
        for (std::size_t at = next++; at < damages.size(); at = next++) {
            const TemporaryFolder folder;
            writeFile(folder.path("it.mdb"), damages[at].applyTo(sound));
            const ToolResult result = ImportTool::run({folder.path("it.mdb"), folder.path("it.sqlite")});
            const std::lock_guard<std::mutex> lock(checking);
            SCOPED_TRACE("size " + std::to_string(damages[at].size) + ", byte " +
                         std::to_string(damages[at].changedAt));
            check(damages[at], result, folder);
        }
    };
    std::thread other(work);
    work();
    other.join();
}

/// What holds for every failure: a message, no target and nothing else left.
void expectCleanFailure(const ToolResult& result, const TemporaryFolder& folder)
{
    EXPECT_TRUE(result.error.starts_with("error\tThe file is ")) << result.error;
    EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 1) << result.error;
    EXPECT_EQ(folder.names(), (Names{"it.mdb"}));
}

TEST(ImportFailures, aFileThatIsNotReadableSaysWhy)
{
    const std::string sound = readFile(testData("small.mdb"));
    const auto changed = [&sound](std::size_t at, const std::string& text) {
        std::string bytes = sound;
        return bytes.replace(at, text.size(), text);
    };
    const auto scrambledAt = [](std::size_t at) {
        AccessFile file("small.mdb");
        file.unscramble();
        file.bytes[at] = static_cast<char>(file.bytes[at] ^ 0x55);
        file.unscramble();
        return file.bytes;
    };
    const std::vector<std::tuple<std::string, int, std::string>> cases = {
        {"", 2, "The file is empty."},
        {"%PDF-1.4", 2, "The file is not an Access database."},
        {std::string(100000, 'x'), 2, "The file is not an Access database."},
        {std::string("SQLite format 3\0", 16) + std::string(4080, '\0'), 2,
         "The file is not an Access database."},
        {changed(4, "Standard Jet XX"), 2, "The file is not an Access database."},
        {changed(0x14, std::string(1, '\0')), 3,
         "The file is an Access 97 database or older. Convert it to the "
         "Access 2000 or 2002-2003 format first."},
        {changed(0x14, "\x09"), 3, "The file is an Access database of an unknown version (9)."},
        {scrambledAt(0x3e), 4, "The file is encrypted. Save a copy without encryption first."},
        {scrambledAt(0x42), 4,
         "The file is protected by a database password. Save a copy without a password first."},
        {sound.substr(0, 100), 5, "The file is cut short: it ends within its first page."},
        {sound.substr(0, 4096), 5, "The file is cut short: it holds no tables any more."},
        {sound.substr(0, sound.size() - 1), 5,
         "The file is cut short: it does not end at the end of a page."},
    };
    for (const auto& [bytes, status, message] : cases) {
        SCOPED_TRACE(message);
        const TemporaryFolder folder;
        // The name says nothing about the content.
        writeFile(folder.path("it.dat"), bytes);
        const ToolResult result = ImportTool::run({folder.path("it.dat"), folder.path("it.sqlite")});
        EXPECT_EQ(result.status, status);
        EXPECT_EQ(result.error, "error\t" + message + '\n');
        EXPECT_EQ(folder.names(), (Names{"it.dat"}));
    }
}

TEST(ImportFailures, aPlaceThatCannotBeReadOrWrittenSaysWhy)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.path("folder"));
    const auto outcome = [](const std::vector<std::string>& arguments,
                            const std::function<void()>& prepare = {}) {
        const ToolResult result = ImportTool::run(arguments, prepare);
        return std::to_string(result.status) + ' ' + result.error;
    };
    const std::string missing = folder.path("missing");
    const std::string target = folder.path("it.sqlite");
    EXPECT_EQ(outcome({missing, target}),
              "2 error\tCannot read " + missing + ": No such file or directory.\n");
    EXPECT_EQ(outcome({folder.path("folder"), target}),
              "2 error\tCannot read " + folder.path("folder") + ": it is not a file.\n");
    EXPECT_EQ(outcome({testData("small.mdb"), missing + "/it.sqlite"}),
              "6 error\tCannot write " + missing + "/it.sqlite: No such file or directory.\n");
    EXPECT_EQ(outcome({testData("small.mdb"), folder.path("folder")}),
              "6 error\tCannot write " + folder.path("folder") + ": it is not a file.\n");
    EXPECT_EQ(outcome({testData("small.mdb")}).substr(0, 8), "1 Usage:");

    // A disk that fills up while the target is written.
    const auto limitFileSize = [] {
        constexpr rlimit limit = {100000, 100000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    };
    EXPECT_EQ(outcome({testData("small.mdb"), target}, limitFileSize).substr(0, 44),
              "6 error\tThe new database cannot be written: ");
    EXPECT_EQ(folder.names(), (Names{"folder"}));
}

TEST(ImportFailures, anExistingTargetIsReplacedOnlyWhenAskedFor)
{
    const TemporaryFolder folder;
    const std::string target = folder.path("it.sqlite");
    writeFile(target, "mine");
    EXPECT_EQ(ImportTool::run({testData("small.mdb"), target}).status, 8);
    EXPECT_EQ(readFile(target), "mine");

    // A failed replacement leaves what was there.
    writeFile(folder.path("bad.mdb"), readFile(testData("small.mdb")).substr(0, 40960));
    EXPECT_EQ(ImportTool::run({"--replace", folder.path("bad.mdb"), target}).status, 5);
    EXPECT_EQ(readFile(target), "mine");

    // The journal of the old database must not be played back into the new one; leftovers of a lost run go
    // too.
    writeFile(target + "-journal", "old");
    writeFile(target + ".abcdefgh.part", "left over");
    writeFile(target + ".part", "not ours");
    EXPECT_EQ(ImportTool::run({"--replace", testData("small.mdb"), target}).status, 0);
    EXPECT_EQ(SQLite::Database(target).execAndGet("SELECT count(*) FROM Event").getInt(), 120);
    EXPECT_EQ(folder.names(), (Names{"bad.mdb", "it.sqlite", "it.sqlite.part"}));

    // A source is no target.
    writeFile(folder.path("bad.mdb"), readFile(testData("small.mdb")));
    EXPECT_EQ(ImportTool::run({"--replace", folder.path("bad.mdb"), folder.path("bad.mdb")}).status, 8);
    EXPECT_EQ(readFile(folder.path("bad.mdb")), readFile(testData("small.mdb")));
}

TEST(ImportFailures, theSourceStaysAsItWas)
{
    const TemporaryFolder folder;
    const std::string source = folder.path("it.mdb");
    writeFile(source, readFile(testData("small.mdb")));
    ::chmod(source.c_str(), 0444);
    // An access time from before the last change is one that the system would bring up to date on reading.
    const std::array<timespec, 2> times = {{{1000000000, 0}, {1100000000, 0}}};
    ::utimensat(AT_FDCWD, source.c_str(), times.data(), 0);
    struct stat before = {};
    ::stat(source.c_str(), &before);
    ASSERT_EQ(ImportTool::run({source, folder.path("it.sqlite")}).status, 0);
    struct stat after = {};
    ::stat(source.c_str(), &after);
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_size, before.st_size);
    EXPECT_EQ(after.st_atim.tv_sec, before.st_atim.tv_sec);
    EXPECT_EQ(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
    EXPECT_EQ(after.st_ctim.tv_nsec, before.st_ctim.tv_nsec);
    EXPECT_EQ(readFile(source), readFile(testData("small.mdb")));
    EXPECT_EQ(folder.names(), (Names{"it.mdb", "it.sqlite"}));
}

TEST(ImportFailures, aStoppedImportLeavesNothing)
{
    for (const char* line :
         {"phase\treading", "phase\tcopying", "progress\t40", "phase\tindexing", "phase\tverifying"}) {
        SCOPED_TRACE(line);
        const TemporaryFolder folder;
        ImportTool tool({testData("large.mdb"), folder.path("it.sqlite")});
        ASSERT_TRUE(tool.waitForLine(line));
        tool.signal(SIGTERM);
        const ToolResult result = tool.finish();
        EXPECT_EQ(result.status, 9);
        EXPECT_EQ(result.error, "error\tThe import was stopped.\n");
        EXPECT_EQ(folder.names(), Names{});
    }
}

TEST(ImportFailures, aFileCutAnywhereIsRefusedOrImportedWhole)
{
    const std::string sound = readFile(testData("small.mdb"));
    const TemporaryFolder whole;
    ASSERT_EQ(ImportTool::run({testData("small.mdb"), whole.path("it.sqlite")}).status, 0);
    const std::string content = readFile(whole.path("it.sqlite"));
    std::mt19937 random(1);
    std::vector<Damage> damages;
    const std::size_t pages = sound.size() / 4096;
    for (std::size_t count = 0; count < 60 * thoroughness(); ++count) {
        const std::size_t anywhere = random() % sound.size();
        const std::size_t atPage = (random() % pages) * 4096;
        const std::size_t nearEnd = sound.size() - 4096 * (1 + count % 40);
        for (const std::size_t size : {anywhere, atPage, nearEnd})
            damages.push_back({std::max<std::size_t>(size, 1), 0, 0});
    }
    std::size_t refused = 0;
    importAll(damages, [&](const Damage& damage, const ToolResult& result, const TemporaryFolder& folder) {
        if (result.status == 0) {
            EXPECT_EQ(damage.size % 4096, 0U);
            EXPECT_TRUE(readFile(folder.path("it.sqlite")) == content);
            return;
        }
        ++refused;
        EXPECT_TRUE(result.status == 5 || (damage.size <= 0x14 && result.status == 2)) << result.status;
        expectCleanFailure(result, folder);
    });
    EXPECT_GT(refused, damages.size() / 2);
}

TEST(ImportFailures, aFileWithChangedBytesEndsInAMessageOrASoundDatabase)
{
    const std::string sound = readFile(testData("small.mdb"));
    std::vector<std::size_t> ruling; // the pages that say where everything else is
    for (std::size_t page = 0; page < sound.size() / 4096; ++page)
        if (page < 24 || sound[page * 4096] == 2 || sound[page * 4096] == 5) ruling.push_back(page);
    std::mt19937 random(2);
    std::vector<Damage> damages;
    for (std::size_t count = 0; count < 60 * thoroughness(); ++count) {
        const std::size_t anywhere = random() % sound.size();
        const std::size_t onRulingPage = ruling[random() % ruling.size()] * 4096 + random() % 4096;
        const std::size_t inPageHeader = (random() % (sound.size() / 4096)) * 4096 + random() % 64;
        for (const std::size_t at : {anywhere, onRulingPage, inPageHeader})
            damages.push_back({sound.size(), at, static_cast<char>(1 + random() % 255)});
    }
    std::size_t refused = 0;
    importAll(damages, [&](const Damage&, const ToolResult& result, const TemporaryFolder& folder) {
        if (result.status != 0) {
            ++refused;
            EXPECT_TRUE(result.status >= 2 && result.status <= 5) << result.status << result.error;
            return expectCleanFailure(result, folder);
        }
        SQLite::Database database(folder.path("it.sqlite"));
        EXPECT_EQ(database.execAndGet("PRAGMA integrity_check").getString(), "ok");
        // Rows are never lost without a word.
        const bool isComplete = std::stoul(result.summary("rows").at(0).at(0)) >= 2528U;
        EXPECT_TRUE(isComplete || !result.summary("warning").empty());
    });
    EXPECT_GT(refused, damages.size() / 30);
}

TEST(Supervisor, turnsEveryEndOfTheOtherProcessIntoAStatus)
{
    const auto outcome = [](const std::function<ExitStatus()>& work) {
        Supervisor supervisor;
        try {
            return supervisor.run(work);
        } catch (const ImportError& error) {
            return error.status();
        }
    };
    const auto ended = [](int signal) {
        return [signal] {
            std::signal(signal, SIG_DFL);
            ::raise(signal);
            return ExitStatus::Success;
        };
    };
    EXPECT_EQ(outcome([] { return ExitStatus::Success; }), ExitStatus::Success);
    EXPECT_EQ(outcome([] { return ExitStatus::Unverified; }), ExitStatus::Unverified);
    EXPECT_EQ(outcome(ended(SIGSEGV)), ExitStatus::Damaged);
    EXPECT_EQ(outcome(ended(SIGABRT)), ExitStatus::Damaged);
    EXPECT_EQ(outcome(ended(SIGXCPU)), ExitStatus::Damaged);
    EXPECT_EQ(outcome(ended(SIGKILL)), ExitStatus::Stopped);
    EXPECT_EQ(outcome([]() -> ExitStatus { std::_Exit(77); }), ExitStatus::Damaged);
}

} // namespace
