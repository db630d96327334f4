// SPDX-License-Identifier: GPL-3.0-or-later

#include "Report.h"

#include "ImportError.h"

#include <cerrno>
#include <unistd.h>

namespace accessimport {

namespace {

std::string escaped(std::string_view field)
{
    std::string text;
    for (const char character : field) {
        switch (character) {
        case '\\':
            text += "\\\\";
            break;
        case '\t':
            text += "\\t";
            break;
        case '\n':
            text += "\\n";
            break;
        case '\r':
            text += "\\r";
            break;
        default:
            text += character;
        }
    }
    return text;
}

bool writeAll(int descriptor, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace

void Report::writeLine(std::string_view word, std::initializer_list<std::string_view> fields)
{
    std::string line(word);
    for (const std::string_view field : fields)
        line += '\t' + escaped(field);
    if (!writeAll(m_output, line + '\n'))
        throw ImportError(ExitStatus::Stopped, "The import was stopped: its progress cannot be reported.");
}

void Report::phase(std::string_view name)
{
    writeLine("phase", {name});
}

void Report::progress(int percent, std::uint64_t done, std::uint64_t total, std::string_view table)
{
    if (percent == m_percent && table == m_table) return;
    m_percent = percent;
    m_table = table;
    writeLine("progress", {std::to_string(percent), std::to_string(done), std::to_string(total), table});
}

void Report::summary(std::initializer_list<std::string_view> fields)
{
    writeLine("summary", fields);
}

void Report::done(std::string_view target)
{
    writeLine("done", {target});
}

void Report::error(std::string_view message) noexcept
{
    try {
        writeAll(m_errorOutput, "error\t" + escaped(message) + '\n');
    } catch (...) { // Out of memory: the exit status still tells.
    }
}

} // namespace accessimport
