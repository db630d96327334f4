// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "files/UnfinishedFile.h"

#include <string>

/// The file that an export writes. It has its name only once it is finished. Every failure is an Error with
/// the path.
class ExportFile
{
public:
    explicit ExportFile(const QString& file) : m_file(file) {}

    /// Takes what a writer appends.
    [[nodiscard]] std::string& text() { return m_text; }

    /// What the file is called until it is finished, for a writer that leaves writing to a library.
    [[nodiscard]] const QString& unfinished() const { return m_file.unfinished(); }

    /// Writes the text to the disk if it has become long.
    void passOn();

    /// Returns when the file has its name and is on the disk.
    void finish();

private:
    UnfinishedFile m_file;
    std::string m_text;
};
