// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

/// A folder of its own for one test, gone with this object.
class TemporaryFolder
{
public:
    std::string path(const std::string& name) const
    {
        return m_folder.filePath(QString::fromStdString(name)).toStdString();
    }
    /// The names in it, sorted.
    std::vector<std::string> names() const;

private:
    QTemporaryDir m_folder;
};

/// How one run of the importer ended and what it said.
struct ToolResult
{
    int status = -1; ///< the exit status; -1 after a signal, -2 if it did not end within the time limit
    std::vector<std::vector<std::string>> lines; ///< of the output, divided into fields
    std::string error;

    /// The values after the key, of the summary lines with this key.
    std::vector<std::vector<std::string>> summary(const std::string& key) const;
};

/// One run of the importer as a process.
class ImportTool
{
public:
    using Arguments = std::vector<std::string>;

    /// Starts it; `prepare` runs in the new process before the program does.
    explicit ImportTool(const Arguments& arguments, const std::function<void()>& prepare = {});

    /// Reads on until the output has a line that starts with this. False if it ends before.
    bool waitForLine(const std::string& start);
    void signal(int number);
    ToolResult finish(std::chrono::seconds limit = std::chrono::seconds(60));

    static ToolResult run(const Arguments& arguments, const std::function<void()>& prepare = {});

private:
    QProcess m_process;
    std::string m_said; ///< what was read of its output so far
};

/// A file of the test data.
std::string testData(const std::string& name);
std::string readFile(const std::string& path);
void writeFile(const std::string& path, const std::string& content);

/// The parts of a text between the dividers; one that is empty has one empty part.
std::vector<std::string> divided(const std::string& text, char divider);
