// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

namespace accessimport {

/// The file that the target is written to before it is complete: `TARGET.<letters>.part`, beside the target.
///
/// It exists from construction on and is gone after destruction, unless it was published. It is locked all
/// that time, so that what a lost process left behind can be told from one at work, and is removed.
class TemporaryTarget
{
public:
    /// Throws ImportError: TargetExists, or TargetUnwritable.
    TemporaryTarget(const std::string& target, bool replace);
    ~TemporaryTarget();
    TemporaryTarget(const TemporaryTarget&) = delete;
    TemporaryTarget& operator=(const TemporaryTarget&) = delete;

    const std::string& path() const { return m_path; }

    /// Puts the file, safely on the disk, in the target's place. Throws ImportError.
    void publish();

private:
    void removeLeftovers() const;
    void create();

    std::string m_target;
    bool m_replace;
    std::string m_path;
    int m_descriptor = -1;
};

} // namespace accessimport
