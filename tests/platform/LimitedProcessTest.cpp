// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/LimitedProcess.h"

#include "support/Testing.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

#include <csignal>

using namespace std::chrono_literals;

namespace {

constexpr auto longTime = 60s;
constexpr qint64 muchMemory = 1LL << 30;
constexpr auto shell = "sh";

struct Case
{
    const char* program;
    const char* script;
    ProcessLimits limits;
    const char* output;
    const char* failure;
};

class LimitedProcessTest : public testing::Test
{
protected:
    /// What a process comes to; `finished` deletes it, as it may.
    static LimitedProcess::Result started(const Case& each)
    {
        std::unique_ptr<LimitedProcess> process = std::make_unique<LimitedProcess>(each.limits);
        LimitedProcess::Result taken;
        int calls = 0;
        process->start(QString::fromUtf8(each.program), {u"-c"_s, QString::fromUtf8(each.script)},
                       [&](const LimitedProcess::Result& result) {
                           taken = result;
                           ++calls;
                           process.reset();
                       });
        EXPECT_EQ(calls, 0) << "called before the event loop";
        while (process)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::processEvents();
        EXPECT_EQ(calls, 1);
        return taken;
    }

    int m_count = 1;
    char m_name[6] = "tests";
    char* m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application{m_count, m_arguments};
};

} // namespace

TEST_F(LimitedProcessTest, SaysWhatAProgramWroteOrWhyItFailed)
{
    const ProcessLimits wide{longTime, muchMemory, 1000};
    const Case cases[] = {
        {shell, "printf hello", wide, "hello", ""},
        {shell, "read line || printf nothing", wide, "nothing", ""}, // the test's own input is not its
        {shell, "printf full", {longTime, muchMemory, 4}, "full", ""},
        {shell, "printf half; exit 1", wide, "", "It is damaged."},
        {shell, "printf half; kill -SEGV $$", wide, "", "The program that reads it failed."},
        {shell, "while :; do echo more; done", wide, "", "It is too large."},
        {shell, "sleep 60", {100ms, muchMemory, 1000}, "", "It took too long."},
        {shell, "while :; do echo more >&2; done", {100ms, muchMemory, 1000}, "", "It took too long."},
        {shell,
         "head -c 200000000 /dev/zero | tail",
         {longTime, 100'000'000, 1000},
         "",
         "It takes too much memory."},
        {"no-such-program", "", wide, "", "The program that reads it is not installed: no-such-program"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.script);
        const LimitedProcess::Result result = started(each);
        EXPECT_EQ(result.output, each.output);
        EXPECT_EQ(result.failure, QString::fromUtf8(each.failure));
        EXPECT_EQ(result.hasStarted, each.program == shell);
        EXPECT_LE(result.errors.size(), 4000);
    }
}

TEST_F(LimitedProcessTest, EndsItsProgramAndRunsTheNext)
{
    const QTemporaryDir folder;
    const QString note = folder.filePath(u"process"_s);
    const QStringList endless{u"-c"_s, u"echo $$ >'%1.new'; mv '%1.new' '%1'; exec sleep 60"_s.arg(note)};
    LimitedProcess process;
    process.start(u"sh"_s, endless, [](const auto&) { ADD_FAILURE() << "was stopped"; });
    while (!QFile::exists(note))
        QThread::msleep(5);
    const pid_t number = contentOf(note).trimmed().toInt();
    EXPECT_TRUE(process.isRunning());
    EXPECT_EQ(kill(number, 0), 0);
    process.stop();
    EXPECT_FALSE(process.isRunning());
    const QDeadlineTimer end(20s); // a busy machine takes its time
    while (kill(number, 0) == 0 && !end.hasExpired())
        QCoreApplication::processEvents();
    EXPECT_EQ(kill(number, 0), -1);

    QByteArray output;
    process.start(u"sh"_s, {u"-c"_s, u"printf next"_s}, [&](const auto& result) { output = result.output; });
    while (output.isEmpty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(output, "next");
}
