// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

/// Reading and writing files block by block. Every failure is an Error with the system's number and the path.
namespace FileBlocks {

constexpr std::size_t blockSize = 1 << 20;

/// A path of the machine as the standard library has it.
[[nodiscard]] std::filesystem::path pathOf(const QString& path);

[[noreturn]] void fail(int number, const std::filesystem::path& path);

/// Whether the number of an Error is that of one file that cannot be read, while others may be.
bool isOfReading(int number);

/// Throws Error if the code is that of a failure.
void require(const std::error_code& code, const std::filesystem::path& path);

/// What stands at a path, which may be nothing. Throws Error if the system does not say.
std::filesystem::file_status statusOf(const std::filesystem::path& path);

/// Throws Error if it is not a file or cannot be read.
std::ifstream open(const std::filesystem::path& file);

/// A file that is there already is emptied.
std::ofstream create(const std::filesystem::path& file);

/// Reads at most one block into `buffer`. Returns what was read, empty at the end of the file.
std::string_view read(std::ifstream& stream, std::string& buffer, const std::filesystem::path& file);

void write(std::ofstream& stream, std::string_view content, const std::filesystem::path& file);

/// Returns when what was written so far is on the disk.
void sync(std::ofstream& stream, const std::filesystem::path& file);

/// Returns when the names in a folder are on the disk, as far as the system tells. Never fails.
void syncFolder(const std::filesystem::path& folder);

/// Closes a file and makes sure that it is on the disk.
void finish(std::ofstream& stream, const std::filesystem::path& file);

} // namespace FileBlocks

/// Writes a file block by block.
class BlockWriter
{
public:
    /// A file that is there already is emptied. Throws Error, as all that follows does.
    explicit BlockWriter(std::filesystem::path file);

    void write(std::string_view content);

    /// Returns when the file is on the disk.
    void finish();

private:
    std::filesystem::path m_file;
    std::ofstream m_stream;
    std::size_t m_unsynced = 0;
};

/// Copies a file in steps that are short enough to be taken between two movements of the mouse.
class BlockCopy
{
public:
    BlockCopy(const std::filesystem::path& from, std::filesystem::path to);

    /// Copies the next block and returns its size; 0 once the copy is complete and on the disk. Throws Error.
    std::size_t step();

private:
    std::filesystem::path m_from;
    std::filesystem::path m_to;
    std::ifstream m_source;
    std::optional<BlockWriter> m_target;
    std::string m_buffer;
};
