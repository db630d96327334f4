// SPDX-License-Identifier: GPL-3.0-or-later

#include "ImportTool.h"

#include <QDir>
#include <QStringList>

#include <csignal>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

std::vector<std::string> TemporaryFolder::names() const
{
    std::vector<std::string> names;
    const auto all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    for (const QString& name : QDir(m_folder.path()).entryList(all, QDir::Name))
        names.push_back(name.toStdString());
    return names;
}

std::vector<std::vector<std::string>> ToolResult::summary(const std::string& key) const
{
    std::vector<std::vector<std::string>> found;
    for (const std::vector<std::string>& fields : lines)
        if (fields.size() > 2 && fields[0] == "summary" && fields[1] == key)
            found.emplace_back(fields.begin() + 2, fields.end());
    return found;
}

ImportTool::ImportTool(const Arguments& arguments, const std::function<void()>& prepare)
{
    QStringList words;
    for (const std::string& argument : arguments)
        words << QString::fromStdString(argument);
    if (prepare) m_process.setChildProcessModifier(prepare);
    m_process.start(QStringLiteral(ORVIK_IMPORT_TOOL), words);
    if (!m_process.waitForStarted()) throw std::runtime_error("cannot start the importer");
}

bool ImportTool::waitForLine(const std::string& start)
{
    while (('\n' + m_said).find('\n' + start) == std::string::npos) {
        if (!m_process.waitForReadyRead(60'000)) return false;
        m_said += m_process.readAllStandardOutput().toStdString();
    }
    return true;
}

void ImportTool::signal(int number)
{
    ::kill(static_cast<pid_t>(m_process.processId()), number);
}

ToolResult ImportTool::finish(std::chrono::seconds limit)
{
    ToolResult result;
    const bool hasEnded = m_process.state() == QProcess::NotRunning ||
                          m_process.waitForFinished(static_cast<int>(limit.count() * 1000));
    if (!hasEnded) {
        result.status = -2;
        return result;
    }
    if (m_process.exitStatus() == QProcess::NormalExit) result.status = m_process.exitCode();
    std::istringstream lines(m_said + m_process.readAllStandardOutput().toStdString());
    for (std::string line; std::getline(lines, line);)
        result.lines.push_back(divided(line, '\t'));
    result.error = m_process.readAllStandardError().toStdString();
    return result;
}

ToolResult ImportTool::run(const Arguments& arguments, const std::function<void()>& prepare)
{
    return ImportTool(arguments, prepare).finish();
}

std::string testData(const std::string& name)
{
    return std::string(ORVIK_IMPORT_DATA) + '/' + name;
}

std::string readFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::string& path, const std::string& content)
{
    std::ofstream file(path, std::ios::binary);
    file << content;
    if (!file.flush()) throw std::runtime_error("cannot write " + path);
}

std::vector<std::string> divided(const std::string& text, char divider)
{
    std::vector<std::string> parts(1);
    for (const char character : text) {
        if (character == divider)
            parts.emplace_back();
        else
            parts.back() += character;
    }
    return parts;
}
