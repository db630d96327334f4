// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DesktopOtherWindows.h"
#include "platform/WindowDoor.h"
#include "support/Testing.h"

#include <QCoreApplication>
#include <QLocalSocket>

#include <atomic>
#include <csignal>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

int noArguments = 0;

/// Two databases of a user, and a place for what is running.
class OtherWindowsTest : public testing::Test
{
    QTemporaryDir m_files;
    QTemporaryDir m_running;

protected:
    OtherWindowsTest()
    {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_running.path()));
        writeFile(notes());
        writeFile(floods());
        QFile::link(notes(), m_files.filePath(u"link.sqlite"_s));
        window.setReceiver([this](const WindowCall& call) { heard.push_back(call); });
    }

    QString notes() const { return m_files.filePath(u"my notes.sqlite"_s); }
    QString floods() const { return m_files.filePath(u"floods.sqlite"_s); }
    QString running() const { return m_running.path(); }

    /// Calls from a start of its own, while this process does what its window would do.
    static bool call(const QString& database, const WindowCall& what)
    {
        std::atomic<bool> isOver = false;
        bool isTaken = false;
        std::thread other([&] {
            isTaken = DesktopOtherWindows().call(database, what);
            isOver = true;
        });
        while (!isOver)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        other.join();
        return isTaken;
    }

    QCoreApplication application{noArguments, nullptr};
    DesktopOtherWindows window;
    std::vector<WindowCall> heard;
};

TEST_F(OtherWindowsTest, AProgramWithoutAWindowHasTheDoorOrTheWindowHasIt)
{
    ASSERT_TRUE(window.listen(notes()));
    WindowDoor door(WindowDoor::folder(), QFileInfo(notes()).path() + u"/link.sqlite"_s);
    EXPECT_FALSE(door.take());
    EXPECT_TRUE(door.isOfAnother());
    {
        WindowDoor other(WindowDoor::folder(), floods());
        EXPECT_TRUE(other.take());
        EXPECT_FALSE(window.listen(floods()));
    }
    EXPECT_TRUE(window.listen(floods()));
    EXPECT_TRUE(door.take()) << "the window has gone on to another database";
}

TEST_F(OtherWindowsTest, ACallReachesTheWindowOfItsDatabaseAlone)
{
    const WindowCall search{{u"--search=flood plain\n\"ü%20"_s, u"--"_s, u"/a b"_s}, u"token"_s};
    EXPECT_FALSE(call(notes(), search)) << "nobody is there";
    ASSERT_TRUE(window.listen(notes()));
    EXPECT_TRUE(window.listen(notes()));
    EXPECT_FALSE(window.call(notes(), search)) << "it is its own";
    EXPECT_FALSE(DesktopOtherWindows().listen(notes()));
    EXPECT_TRUE(call(notes(), search));
    EXPECT_TRUE(call(QFileInfo(notes()).path() + u"/link.sqlite"_s, {}));
    EXPECT_EQ(heard, (std::vector<WindowCall>{search, {}}));
    EXPECT_FALSE(call(floods(), search));

    DesktopOtherWindows second;
    ASSERT_TRUE(second.listen(floods()));
    EXPECT_FALSE(window.listen(floods()));
    EXPECT_TRUE(call(notes(), {})) << "it stays with its own";
    ASSERT_TRUE(second.listen(QString()));
    ASSERT_TRUE(window.listen(floods()));
    EXPECT_FALSE(call(notes(), {}));
    EXPECT_TRUE(call(floods(), {}));
    EXPECT_EQ(heard.size(), 4u);
    for (const QFileInfo& door : QDir(running()).entryInfoList(QDir::System))
        EXPECT_EQ(door.permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther |
                                        QFile::WriteOther | QFile::ExeOther),
                  QFile::Permissions())
            << "only the user may call";
}

TEST_F(OtherWindowsTest, CallsFromBeforeTheWindowWasMadeAreNotLost)
{
    window.setReceiver({});
    ASSERT_TRUE(window.listen(notes()));
    EXPECT_TRUE(call(notes(), {{u"--read-only"_s}, {}}));
    window.setReceiver([this](const WindowCall& call) { heard.push_back(call); });
    ASSERT_EQ(heard.size(), 1u);
    EXPECT_EQ(heard.front().arguments, QStringList(u"--read-only"_s));
}

TEST_F(OtherWindowsTest, TheDoorOfAKilledProcessIsTakenOver)
{
    std::array<int, 2> ready{};
    ASSERT_EQ(pipe(ready.data()), 0);
    const pid_t killed = fork();
    if (killed == 0) {
        DesktopOtherWindows doomed;
        const char isListening = doomed.listen(notes()) ? 'y' : 'n';
        if (write(ready[1], &isListening, 1) == 1) pause();
        _exit(0);
    }
    char isListening = 0;
    ASSERT_EQ(read(ready[0], &isListening, 1), 1);
    EXPECT_EQ(isListening, 'y');
    EXPECT_FALSE(window.listen(notes())) << "while it lives";
    kill(killed, SIGKILL);
    waitpid(killed, nullptr, 0);
    EXPECT_EQ(QDir(running()).entryList(QDir::Files | QDir::System).size(), 2) << "what it left";
    EXPECT_FALSE(window.call(notes(), {}));
    ASSERT_TRUE(window.listen(notes()));
    EXPECT_TRUE(call(notes(), {}));
    EXPECT_EQ(heard.size(), 1u);
}

TEST_F(OtherWindowsTest, WhatIsNoCallIsSentAway)
{
    ASSERT_TRUE(window.listen(notes()));
    const QStringList doors = QDir(running()).entryList(QDir::System);
    ASSERT_EQ(doors.size(), 1);
    const QByteArray whole = WindowCall{{u"x"_s}, {}}.message();
    for (const QByteArray& bytes :
         {QByteArray("GET / HTTP/1.1\n"), QByteArray(200000, 'x'), QByteArray("\0\0\0\0", 4),
          QByteArray(whole).replace("argument", "argumen"), QByteArray(whole).replace(" 1\n", " 2\n"),
          QByteArray(whole).insert(whole.size() - 5, QByteArray(WindowCall::longestMessage, 'x'))}) {
        SCOPED_TRACE(bytes.left(40).toStdString());
        QLocalSocket stranger;
        stranger.connectToServer(running() + u'/' + doors.front());
        ASSERT_TRUE(stranger.waitForConnected());
        stranger.write(bytes);
        while (stranger.state() == QLocalSocket::ConnectedState)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        EXPECT_EQ(stranger.readAll(), QByteArray());
    }
    // neither one who says nothing nor one who leaves in the middle is in the way of a call
    QLocalSocket silent;
    silent.connectToServer(running() + u'/' + doors.front());
    {
        QLocalSocket hasty;
        hasty.connectToServer(running() + u'/' + doors.front());
        hasty.write(whole.first(whole.size() - 1));
        hasty.waitForBytesWritten();
    }
    EXPECT_TRUE(call(notes(), {{u"y"_s}, {}}));
    ASSERT_EQ(heard.size(), 1u);
    EXPECT_EQ(heard.front().arguments, QStringList(u"y"_s));
}

} // namespace
