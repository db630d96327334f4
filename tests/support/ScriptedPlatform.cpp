// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/ScriptedPlatform.h"

#include "platform/StdREG.h"
#include "platform/SteppedWork.h"

#include <gtest/gtest.h>

#include <algorithm>

ScriptedMessages::~ScriptedMessages()
{
    finish();
}

void ScriptedMessages::finish()
{
    for (const Line& line : m_script)
        ADD_FAILURE() << "never shown: " << line.text.toStdString();
    m_script.clear();
}

ScriptedMessages::Line ScriptedMessages::take(const QString& text, std::optional<Question> question,
                                              const QStringList& answers)
{
    if (heard) {
        *heard << text;
        return {};
    }
    if (m_script.empty()) {
        ADD_FAILURE() << "not in the script: " << text.toStdString();
        return {};
    }
    Line line = m_script.front();
    m_script.pop_front();
    const bool fits = line.beginning ? text.startsWith(line.text) : text == line.text;
    if (!fits) {
        ADD_FAILURE() << "shown: " << text.toStdString() << "\nexpected: " << line.text.toStdString();
    } else if (line.question != question || line.answers != answers) {
        ADD_FAILURE() << "a message or a question of another kind: " << text.toStdString();
    }
    return line;
}

void ScriptedMessages::show(const QString& text)
{
    take(text, std::nullopt);
}

bool ScriptedMessages::ask(const QString& text, Question about)
{
    return take(text, about).answer;
}

std::optional<int> ScriptedMessages::choose(const QString& text, const QStringList& answers)
{
    return take(text, std::nullopt, answers).choice;
}

QString ScriptedFileDialogs::openFile(const QString& title, const QString& filter)
{
    filters << filter;
    return take(files, title);
}

QString ScriptedFileDialogs::chooseFolder(const QString& title, const QString& start)
{
    starts << start;
    return take(folders, title);
}

QString ScriptedFileDialogs::saveFile(const QString& title, const QString& name, const QString& filter)
{
    filters << filter;
    proposed << name;
    return take(files, title);
}

bool ScriptedWorks::run(SteppedWork& work)
{
    titles << work.title();
    for (int steps = 0; work.step(); ++steps) {
        if (!cancelAfter || steps < *cancelAfter) continue;
        while (work.undoStep()) {
        }
        return false;
    }
    return true;
}

QString ScriptedFileDialogs::take(std::deque<QString>& script, const QString& title)
{
    if (script.empty()) {
        ADD_FAILURE() << "a file dialog that is not in the script: " << title.toStdString();
        return {};
    }
    QString name = script.front();
    script.pop_front();
    return name;
}

bool ScriptedShell::open(const QUrl& url)
{
    const QString name = url.isLocalFile() ? url.toLocalFile() : url.toString();
    opened << name;
    return hasProgram && std::none_of(unknown.begin(), unknown.end(),
                                      [&](const QString& ending) { return name.endsWith(ending); });
}

bool ScriptedShell::start(const QString& program, const QString& file)
{
    started << program + u' ' + file;
    return canStart;
}

bool ScriptedOtherWindows::listen(const QString& database)
{
    if (open.contains(database)) return false;
    listenedTo = database;
    return true;
}

bool ScriptedOtherWindows::call(const QString& database, const WindowCall& what)
{
    if (!open.contains(database)) return false;
    calls.push_back(what);
    return true;
}

QString MemorySettings::value(const QString& path) const
{
    const auto found = values.find(path);
    return found == values.end() ? QString() : found->second;
}

void ScriptedPlatform::setDatabase(const QString& name)
{
    StdREG(settings).WriteRegString(QString(), QStringLiteral("DBFile"), name);
}
