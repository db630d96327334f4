// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/WorkRunner.h"

/// Works under a window that shows the progress, if the work takes a while.
class DesktopWorkRunner final : public WorkRunner
{
public:
    [[nodiscard]] bool run(SteppedWork& work) override;
};
