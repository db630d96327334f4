// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <stdexcept>
#include <string>

namespace accessimport {

/// How the process ends. The numbers are part of what callers rely on; never reuse one.
enum class ExitStatus
{
    Success = 0,
    Usage = 1,            ///< the command line is wrong
    SourceUnreadable = 2, ///< the source is missing, cannot be read or is no Access database
    Unsupported = 3,      ///< an Access version that is not supported, such as Access 97
    Encrypted = 4,        ///< the source is encrypted or protected by a password
    Damaged = 5,          ///< the source is damaged or cut short
    TargetUnwritable = 6, ///< the target cannot be written
    Unverified = 7,       ///< what was written does not agree with the source
    TargetExists = 8,     ///< the target exists and --replace was not given
    Stopped = 9,          ///< stopped by a signal, or the progress is no longer read
    Internal = 10         ///< any other failure
};

/// A failure that ends the import: the status to exit with and a sentence for the user.
class ImportError : public std::runtime_error
{
public:
    ImportError(ExitStatus status, const std::string& message) : std::runtime_error(message), m_status(status)
    {
    }

    ExitStatus status() const { return m_status; }

private:
    ExitStatus m_status;
};

} // namespace accessimport
