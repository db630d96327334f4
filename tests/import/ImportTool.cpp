// SPDX-License-Identifier: GPL-3.0-or-later

#include "ImportTool.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

TemporaryFolder::TemporaryFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "orvik-import-XXXXXX").string();
    if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    m_path = name;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::vector<std::string> TemporaryFolder::names() const
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_path))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
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
    std::array<int, 2> output{};
    std::array<int, 2> errorOutput{};
    if (::pipe2(output.data(), O_CLOEXEC) != 0 || ::pipe2(errorOutput.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    std::vector<char*> words = {const_cast<char*>(ORVIK_IMPORT_TOOL)};
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);

    m_process = ::fork();
    if (m_process == 0) {
        ::dup2(output[1], STDOUT_FILENO);
        ::dup2(errorOutput[1], STDERR_FILENO);
        if (prepare) prepare();
        ::execv(ORVIK_IMPORT_TOOL, words.data());
        ::_exit(127);
    }
    ::close(output[1]);
    ::close(errorOutput[1]);
    m_output = output[0];
    m_errorOutput = errorOutput[0];
}

ImportTool::~ImportTool()
{
    if (m_process > 0) {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }
    ::close(m_output);
    ::close(m_errorOutput);
}

bool ImportTool::readMore(std::chrono::steady_clock::time_point deadline)
{
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    std::array<pollfd, 2> waiting = {{{m_output, POLLIN, 0}, {m_errorOutput, POLLIN, 0}}};
    if (left.count() <= 0 || ::poll(waiting.data(), waiting.size(), static_cast<int>(left.count())) <= 0)
        return false;
    bool isOpen = false;
    for (const pollfd& ready : waiting) {
        if (ready.revents == 0) continue;
        std::array<char, 4096> buffer{};
        const ssize_t got = ::read(ready.fd, buffer.data(), buffer.size());
        if (got <= 0) continue;
        isOpen = true;
        (ready.fd == m_output ? m_said : m_saidError).append(buffer.data(), static_cast<std::size_t>(got));
    }
    return isOpen;
}

bool ImportTool::waitForLine(const std::string& start)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (('\n' + m_said).find('\n' + start) == std::string::npos)
        if (!readMore(deadline)) return false;
    return true;
}

void ImportTool::signal(int number)
{
    ::kill(m_process, number);
}

ToolResult ImportTool::finish(std::chrono::seconds limit)
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (readMore(deadline)) {
    }
    ToolResult result;
    if (std::chrono::steady_clock::now() >= deadline) {
        result.status = -2;
        return result;
    }
    int status = 0;
    ::waitpid(m_process, &status, 0);
    m_process = -1;
    if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
    std::istringstream lines(m_said);
    for (std::string line; std::getline(lines, line);)
        result.lines.push_back(divided(line, '\t'));
    result.error = m_saidError;
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
