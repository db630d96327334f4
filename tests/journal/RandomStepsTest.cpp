// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/EditorTest.h"
#include "journal/RandomUser.h"
#include "journal/RecordDump.h"

#include <QCryptographicHash>
#include <QFile>
#include <QHash>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

// In place of the system's: a process that is killed loses nothing that it has written, so that nothing here
// has to wait for the disc.
extern "C" int fsync(int /*file*/)
{
    return 0;
}
extern "C" int fdatasync(int /*file*/)
{
    return 0;
}

namespace {

constexpr unsigned seed = 20050615;
constexpr int fewestSteps = 1000;
constexpr int kills = 300;
constexpr int mostStepsOfAProcess = 4;

class RandomSteps : public EditorTest
{
protected:
    /// Works until it is killed, or has done enough steps. Notes each state that it has left.
    [[noreturn]] void work(unsigned chance, int most)
    {
        try {
            m_state.session.open(m_database.fileName()); // a connection cannot be shared with another process
            RecordDump dump(m_database.fileName());
            RandomUser user(m_state.session, m_state.folder, m_clock, m_file, chance);
            for (int i = 0; i < most; ++i) {
                user.doSomething();
                QFile noted(m_noted);
                if (!noted.open(QIODevice::Append)) _exit(2);
                noted.write(QByteArray::number(place()) + ' ' + state(dump) + '\n');
            }
        } catch (const Error& error) {
            std::fprintf(stderr, "Error %d: %s\n", error.number(), error.what());
            _exit(1);
        }
        if (most == mostStepsOfAProcess) pause();
        _exit(0);
    }

    /// The step that Undo would take back: where the file is in the course of its steps.
    qint64 place()
    {
        const auto step = UndoSteps(m_state.session, m_clock, m_state.folder).undoable();
        return step ? step->number : 0;
    }

    static QByteArray state(RecordDump& dump)
    {
        return QCryptographicHash::hash(dump.rows(), QCryptographicHash::Sha1).toHex();
    }

    /// Takes over what a process noted before it ended, and looks at what it left.
    void takeStates()
    {
        QFile noted(m_noted);
        if (noted.open(QIODevice::ReadWrite)) {
            for (const QByteArray& line : noted.readAll().split('\n'))
                if (line.size() > 40) expectState(line.split(' ').front().toLongLong(), line.last(40));
            noted.resize(0);
        }
        // a deletion of several records that was interrupted is a step, too
        m_state.session.open(m_database.fileName());
        RecordDump dump(m_database.fileName());
        expectState(place(), state(dump));
        m_state.session.close();
    }

    /// A place has one state, whichever way leads there.
    void expectState(qint64 at, const QByteArray& found)
    {
        ASSERT_EQ(m_states.value(at, found).toStdString(), found.toStdString()) << "after step " << at;
        m_states.insert(at, found);
    }

    /// Takes back or does again as long as there is something; returns how many steps there were.
    int go(UndoOutcome (UndoSteps::*direction)(Undo, std::optional<qint64>))
    {
        UndoSteps steps(m_state.session, m_clock, m_state.folder);
        RecordDump dump(m_database.fileName());
        int count = 0;
        for (; (steps.*direction)(Undo::UnlessChanged, std::nullopt).isDone(); ++count)
            expectState(place(), state(dump));
        return count;
    }

    QString m_file = userFile(u"a.pdf"_s, "%PDF");
    QString m_noted = m_database.folder() + u"/noted"_s;
    QHash<qint64, QByteArray> m_states;
};

TEST_F(RandomSteps, AreTakenBackAndDoneAgainAlthoughProcessesDie)
{
    std::printf("seed %u\n", seed);
    std::mt19937 random(seed);
    m_state.session.close();
    takeStates();
    int interruptedWhileWriting = 0;
    // those that Undo reaches from here
    const auto steps = [this] {
        return ask("WITH RECURSIVE Undone (Place) AS ("
                   "SELECT (SELECT UndoStep FROM Journal ORDER BY Number DESC LIMIT 1) UNION ALL "
                   "SELECT (SELECT UndoStep FROM Journal WHERE Number < Place ORDER BY Number DESC LIMIT 1) "
                   "FROM Undone WHERE Place > 0) SELECT count(*) FROM Undone WHERE Place > 0")
            .toInt();
    };
    for (int round = 0; round < kills || steps() < fewestSteps; ++round) {
        const bool isKilled = round < kills;
        const pid_t child = fork();
        if (child == 0) work(seed + 1 + static_cast<unsigned>(round), isKilled ? mostStepsOfAProcess : 100);
        if (isKilled) {
            std::this_thread::sleep_for(std::chrono::microseconds(2000 + random() % 30000));
            kill(child, SIGKILL);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(isKilled ? WIFSIGNALED(status) : WEXITSTATUS(status) == 0);
        if (QFile::exists(m_database.fileName() + u"-journal"_s)) ++interruptedWhileWriting;
        m_database.run("SELECT count(*) FROM Document"); // rolls back what is unfinished
        ASSERT_EQ(ask("PRAGMA integrity_check"), u"ok"_s);
        ASSERT_NO_FATAL_FAILURE(takeStates());
    }
    EXPECT_GT(interruptedWhileWriting, 0);
    m_state.session.open(m_database.fileName());
    ASSERT_NO_FATAL_FAILURE(go(&UndoSteps::redo));
    const int undone = go(&UndoSteps::undo);
    EXPECT_EQ(place(), 0);
    EXPECT_EQ(go(&UndoSteps::redo), undone);
    EXPECT_GE(undone, fewestSteps);
}

} // namespace
