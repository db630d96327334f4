// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/Finding.h"

#include <optional>

class Error;

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

    /// How much of the check is made, in percent; std::nullopt if nobody knows.
    [[nodiscard]] virtual std::optional<int> percent() const { return std::nullopt; }

    /// Notes why a part of the check could not be made. Of several reasons, the first is told.
    void hinder(const Error& reason);

    /// Ends the check. If some findings were only counted, the remark says so.
    void finish();

    [[nodiscard]] const CheckResult& result() const { return m_result; }

protected:
    /// Adds a finding. Beyond the number that is of use, only counts it.
    void add(Finding finding);

    /// Whether the next finding is only counted, so that its sentence need not be made.
    [[nodiscard]] bool isFull() const;

    void setRemark(const QString& remark) { m_result.remark = remark; }

private:
    CheckResult m_result;
};
