// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <string>
#include <vector>

/// Counts the system calls of a process that concern one folder, and lets one of them fail.
///
/// The kernel hands each call over before it is done, whoever makes it: the program, Qt, SQLite, libarchive
/// or the C library. So none is missed for want of a function that stands in for it.
namespace SystemCalls {

enum class Effect
{
    None,    ///< calls are counted only
    Fail,    ///< the call fails with EIO; one that closes a file closes it all the same
    NoSpace, ///< this call and all later ones that need room on the disk fail with ENOSPC
    Shorten, ///< a call that writes takes the first half only
    Kill     ///< the process is killed before the call
};

/// What happens at which call, counted from 1. With `NoSpace` and `Shorten`, only calls count that need room.
struct Fault
{
    Effect effect = Effect::None;
    int at = 0;
};

/// Whether the kernel, and what the process runs in, can let it watch its calls.
[[nodiscard]] bool canBeWatched();

/// Watches the calls of this process, and of those that it forks, for the rest of its life; it can start no
/// other program then. Throws std::runtime_error if the kernel does not allow that.
void watch(const std::string& folder);

/// From here on calls count.
void begin(const Fault& fault);
void end();

/// The call that failed, such as `unlink /folder/file`; empty if none did.
[[nodiscard]] std::string failed();

/// For each call counted since the last beginning, a number that stands for its name and its path.
[[nodiscard]] std::vector<quint64> kinds();

} // namespace SystemCalls
