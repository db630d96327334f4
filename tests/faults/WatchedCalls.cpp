// SPDX-License-Identifier: GPL-3.0-or-later

#include "faults/SystemCalls.h"

#include <gtest/gtest.h>

namespace {

/// Some containers do not let a process watch its calls, or the kernel cannot do it.
class WatchedCalls final : public testing::Environment
{
public:
    void SetUp() override
    {
        if (!SystemCalls::canBeWatched())
            GTEST_SKIP() << "No system call can be made to fail here: the kernel takes no seccomp filter.";
    }
};
const testing::Environment* const watchedCalls = testing::AddGlobalTestEnvironment(new WatchedCalls);

} // namespace
