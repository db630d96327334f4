// SPDX-License-Identifier: GPL-3.0-or-later

#include "Supervisor.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

using namespace accessimport;

TEST(Supervisor, turnsEveryEndOfTheOtherProcessIntoAStatus)
{
    const auto outcome = [](const std::function<ExitStatus()>& work) {
        Supervisor supervisor;
        try {
            return supervisor.run(work);
        } catch (const ImportError& error) {
            return error.status();
        }
    };
    const auto ended = [](int signal) {
        return [signal] {
            std::signal(signal, SIG_DFL);
            ::raise(signal);
            return ExitStatus::Success;
        };
    };
    EXPECT_EQ(outcome([] { return ExitStatus::Success; }), ExitStatus::Success);
    EXPECT_EQ(outcome([] { return ExitStatus::Unverified; }), ExitStatus::Unverified);
    EXPECT_EQ(outcome(ended(SIGSEGV)), ExitStatus::Damaged);
    EXPECT_EQ(outcome(ended(SIGABRT)), ExitStatus::Damaged);
    EXPECT_EQ(outcome(ended(SIGXCPU)), ExitStatus::Damaged);
    EXPECT_EQ(outcome(ended(SIGKILL)), ExitStatus::Stopped);
    EXPECT_EQ(outcome([]() -> ExitStatus { std::_Exit(77); }), ExitStatus::Damaged);
}
