// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class SteppedWork;

/// Does long work to its end while the user can watch and cancel it. The only door to windows that show
/// progress.
class WorkRunner
{
public:
    virtual ~WorkRunner() = default;

    /// Returns false if the user cancelled the work, which has then been taken back. Throws what a step
    /// throws.
    [[nodiscard]] virtual bool run(SteppedWork& work) = 0;

protected:
    WorkRunner() = default;
    WorkRunner(const WorkRunner&) = default;
    WorkRunner& operator=(const WorkRunner&) = default;
};
