// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Clock.h"
#include "platform/FileAttributes.h"
#include "platform/FileDialogs.h"
#include "platform/Messages.h"
#include "platform/OtherWindows.h"
#include "platform/Platform.h"
#include "platform/Printing.h"
#include "platform/SettingsStore.h"
#include "platform/Shell.h"
#include "platform/Volumes.h"
#include "platform/WorkRunner.h"
#include "support/Testing.h"

#include <deque>

/// Messages that follow a script of exact texts and answers. A message that is not next in the script, and a
/// line of the script that was not used, each fail the test.
class ScriptedMessages final : public Messages
{
public:
    ~ScriptedMessages() override;

    void expectMessage(const QString& text) { m_script.push_back({text}); }
    void expectQuestion(const QString& text, bool answer, Question about = Question::Harmless)
    {
        m_script.push_back({text, about, answer});
    }

    /// `answer` is the number of the answer that is chosen, without a number the question is cancelled.
    void expectChoice(const QString& text, const QStringList& answers, std::optional<int> answer)
    {
        Line line{text};
        line.answers = answers;
        line.choice = answer;
        m_script.push_back(line);
    }

    /// Expects a message of which only the beginning is known, since the system words the rest.
    void expectMessageBeginning(const QString& text)
    {
        m_script.push_back({text, std::nullopt, false, true});
    }

    /// Fails the test if lines are left, and forgets them.
    void finish();

    void show(const QString& text) override;
    [[nodiscard]] bool ask(const QString& text, Question about) override;
    [[nodiscard]] std::optional<int> choose(const QString& text, const QStringList& answers) override;
    void beep() override { ++beeps; }

    int beeps = 0;

    /// If it is set, everything is noted here instead of being compared, and every question answered with No
    /// or Cancel.
    std::optional<QStringList> heard;

private:
    struct Line
    {
        QString text;
        std::optional<Question> question = std::nullopt;
        bool answer = false;
        bool beginning = false;
        QStringList answers = {};
        std::optional<int> choice = std::nullopt;
    };
    Line take(const QString& text, std::optional<Question> question, const QStringList& answers = {});

    std::deque<Line> m_script;
};

/// File dialogs that return the files and folders of a script; an empty name stands for a dialog that is
/// closed.
class ScriptedFileDialogs final : public FileDialogs
{
public:
    [[nodiscard]] QString openFile(const QString& title, const QString& filter) override;
    [[nodiscard]] QString saveFile(const QString& title, const QString& proposed,
                                   const QString& filter) override;
    [[nodiscard]] QString chooseFolder(const QString& title, const QString& start) override;

    std::deque<QString> files;
    std::deque<QString> folders;
    QStringList filters;  ///< of the dialogs for files that were opened
    QStringList proposed; ///< by the dialogs for files to be written
    QStringList starts;   ///< of the dialogs for folders that were opened

private:
    static QString take(std::deque<QString>& script, const QString& title);
};

/// Settings that live as long as the test.
class MemorySettings final : public SettingsStore
{
public:
    [[nodiscard]] QString value(const QString& path) const override;
    void setValue(const QString& path, const QString& value) override { values[path] = value; }

    std::map<QString, QString> values;
};

/// A clock that stands still until it is set.
class ScriptedClock final : public Clock
{
public:
    [[nodiscard]] QDateTime now() const override { return moment; }

    QDateTime moment{QDate(2005, 6, 15), QTime(12, 0)};
};

/// Discs and drives as the test puts them in.
class ScriptedVolumes final : public Volumes
{
public:
    [[nodiscard]] std::vector<Volume> mounted() const override
    {
        ++scans;
        return volumes;
    }

    std::vector<Volume> volumes;
    mutable int scans = 0;
};

/// Records what the desktop was asked to open.
class ScriptedShell final : public Shell
{
public:
    [[nodiscard]] bool open(const QUrl& url) override;
    [[nodiscard]] bool start(const QString& program, const QString& file) override;

    QStringList opened;     ///< addresses, and files by their paths
    QStringList started;    ///< `program file`
    bool hasProgram = true; ///< whether the desktop knows a program for what it is asked to open
    bool canStart = true;
    QStringList unknown; ///< endings of names for which the desktop knows no program
};

/// Other windows as the test has them, by the databases that they have open.
class ScriptedOtherWindows final : public OtherWindows
{
public:
    [[nodiscard]] bool listen(const QString& database) override;
    [[nodiscard]] bool call(const QString& database, const WindowCall& what) override;
    void setReceiver(Receiver receiver) override { called = std::move(receiver); }

    QStringList open;   ///< what others have open
    QString listenedTo; ///< what this program is called for
    std::vector<WindowCall> calls;
    Receiver called; ///< calls this program
};

/// Does work without a window, to its end or until the test has the user cancel it.
class ScriptedWorks final : public WorkRunner
{
public:
    [[nodiscard]] bool run(SteppedWork& work) override;

    std::optional<int> cancelAfter; ///< so many steps
    QStringList titles;             ///< of the works that were begun
};

/// A computer without printers until the test says what its user does in their dialog.
class ScriptedPrinting final : public Printing
{
public:
    [[nodiscard]] bool hasPrinter() override { return user != nullptr; }
    [[nodiscard]] bool choose(QPrinter& printer, int pages) override { return user(printer, pages); }

    std::function<bool(QPrinter& printer, int pages)> user; ///< returns false to cancel
};

/// The desktop of one test.
struct ScriptedPlatform
{
    ScriptedMessages messages;
    MemorySettings settings;
    SystemFileAttributes fileAttributes;
    ScriptedFileDialogs fileDialogs;
    ScriptedClock clock;
    ScriptedVolumes volumes;
    ScriptedShell shell;
    ScriptedOtherWindows otherWindows;
    ScriptedWorks works;
    ScriptedPrinting printing;
    QString programs; ///< the folder of those that run beside the window; empty for none

    [[nodiscard]] Platform platform()
    {
        return {messages, settings,     fileAttributes, fileDialogs, clock,   volumes,
                shell,    otherWindows, works,          printing,    programs};
    }

    /// Names the database that the program opens at its start.
    void setDatabase(const QString& name);
};
