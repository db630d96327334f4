// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "faults/SystemCalls.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QTemporaryDir>

#include <functional>
#include <vector>

/// Something that the program does with files, which is done again and again in a folder that is always the
/// same before, each time in a process of its own with another system call failing.
///
/// However it ends, all that it writes is there or nothing of it; if it says that all is well, all is there.
/// An error names a file. Then it is done once more in the same process, without a fault, and works. Nothing
/// else is left; what the program was not allowed to take away goes with the next start, or, in a folder
/// `temporary`, with that of the system.
class FaultScene
{
public:
    /// What the program does while calls fail. Throws Error.
    using Act = std::function<void()>;

    FaultScene();
    virtual ~FaultScene();
    FaultScene(const FaultScene&) = delete;
    FaultScene& operator=(const FaultScene&) = delete;

    /// Each call fails once in turn with EIO; the disk is full from each call on that needs room; each call
    /// that writes takes but half. Of the many times that SQLite does the same with the same file, the first
    /// and last few are taken and some in between; with ORVIK_EACH_CALL in the environment, each.
    void expectWholeOrNone();

    /// Kills the process at so many of its calls, spread evenly, and expects all or nothing after the next
    /// start. Then it is done once more, which clears the rest. Returns how often it was killed.
    int expectWholeOrNoneAfterKills(int kills);

    /// Everything in a folder: of files what they hold, of databases the rows of each table, of backups their
    /// entries.
    using Content = QMap<QString, QByteArray>;
    [[nodiscard]] static Content contentOf(const QString& folder);

protected:
    /// Fills the folder as it is before. Called once.
    virtual void prepare(const QString& folder) = 0;

    /// Makes what the program has before it begins, such as a session, and returns what it does. The act may
    /// be done twice, and is dropped before the process ends.
    virtual Act begin(const QString& folder) = 0;

    /// What the program does when it is started the next time, which clears what was left. Never fails.
    virtual void startAgain(const QString& /*folder*/) {}

    /// Whether a kill may leave a file of that name until the act is done again.
    [[nodiscard]] virtual bool isSpare(const QString& name) const;

    /// Whether an act that was done can be done again and leaves the same.
    bool isRepeatable = false;

    /// Whether the tables that were written before an error keep their rows, of which the journal then tells.
    /// The next try completes them.
    bool keepsTables = false;

private:
    struct Outcome
    {
        bool isWhole = false;         ///< the process got to its end
        bool isDone = false;          ///< the act did not throw
        QString error{};              ///< its description
        std::vector<quint64> kinds{}; ///< of the calls
        QString failed{};
        Content after{};
        QString retried{};  ///< the error of the second try, if there was one
        Content finished{}; ///< after that, and after the next start if the call was to take something away
    };

    void makeOriginal();
    [[nodiscard]] Outcome run(const SystemCalls::Fault& fault);
    [[nodiscard]] Outcome runHere(const SystemCalls::Fault& fault);
    void expectWholeOrNoneAfterKill(int at);
    void act(Outcome& outcome, const SystemCalls::Fault& fault);
    void expectEachCall(SystemCalls::Effect effect);
    [[nodiscard]] QString faultOf(const Outcome& outcome) const;
    [[nodiscard]] QString faultOfRetry(const Outcome& outcome) const;
    [[nodiscard]] bool isMixed(const Content& is) const;
    [[nodiscard]] Content contentHere() const;

    QTemporaryDir m_place;
    QString m_folder;   ///< in which the act is done
    QString m_original; ///< what that is copied from
    Content m_before;
    Content m_after;
};
