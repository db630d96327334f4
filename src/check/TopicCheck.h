// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/Finding.h"

/// The check of one topic, in short steps. It only reads.
class TopicCheck
{
public:
    explicit TopicCheck(CheckTopic topic) : m_result{topic} {}
    virtual ~TopicCheck() = default;
    TopicCheck(const TopicCheck&) = delete;
    TopicCheck& operator=(const TopicCheck&) = delete;

    /// Returns false once all is done. Throws Error if the check cannot be made.
    virtual bool step() = 0;

    [[nodiscard]] CheckResult& result() { return m_result; }

private:
    CheckResult m_result;
};
