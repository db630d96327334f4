// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <string>

/// Copying files and folders so that the target is the old one or the whole new one, even if the source is
/// the target. Names are taken byte for byte. Every failure is an Error with the system's number; nothing
/// half-finished is left behind.
namespace FileCopy {

/// The content of a file. Throws Error if it is not a file.
std::string read(const std::filesystem::path& file);

/// Whether two files hold the same. Throws Error if one of them cannot be read.
bool haveSameContent(const std::filesystem::path& file, const std::filesystem::path& other);

/// Throws Error if it is not a file or cannot be read.
void requireReadable(const std::filesystem::path& file);

/// Replaces a file by a copy of another.
void copyFile(const std::filesystem::path& from, const std::filesystem::path& to);

/// Replaces a file by a new one.
void writeFile(const std::string& content, const std::filesystem::path& to);

/// Replaces a folder by a copy of another with all that it holds. `from` must not hold `to`'s own folder.
/// Throws Error for a link in it that leads out of it or back to a folder that holds the link.
void copyFolder(const std::filesystem::path& from, const std::filesystem::path& to);

/// Whether a name is that of a copy which is being made for a record, or which a killed program left.
bool isUnfinished(const std::filesystem::path& name);

/// Removes from a folder what unfinished copies left there when the program was killed. An old folder that
/// was about to be replaced is restored. Never fails, and touches only copies named after records.
void clearUnfinished(const std::filesystem::path& folder);

} // namespace FileCopy
