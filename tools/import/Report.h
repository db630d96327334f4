// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace accessimport {

/// What the process says while it works, one line for each fact, its fields divided by TABs.
///
///     phase     reading | copying | indexing | verifying
///     progress  PERCENT  ROWS DONE  ROWS IN ALL  TABLE
///     summary   KEY  VALUE...          (the keys stand in CommandLine.cpp's help text)
///     done      TARGET
///     error     MESSAGE                (on the error output)
///
/// TAB, LF, CR and backslash within a field are written as \t \n \r \\. Every line is written at once.
class Report
{
public:
    /// Writes to these descriptors, which it does not own.
    Report(int output, int errorOutput) : m_output(output), m_errorOutput(errorOutput) {}

    void phase(std::string_view name);
    /// Writes a line when the percentage or the table changed. Throws ImportError(Stopped) if the output is
    /// no longer read.
    void progress(int percent, std::uint64_t done, std::uint64_t total, std::string_view table);
    void summary(std::initializer_list<std::string_view> fields);
    void done(std::string_view target);
    /// Never throws.
    void error(std::string_view message) noexcept;

private:
    void writeLine(std::string_view word, std::initializer_list<std::string_view> fields);

    int m_output;
    int m_errorOutput;
    int m_percent = -1;
    std::string m_table;
};

} // namespace accessimport
