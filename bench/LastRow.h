// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "BenchWindow.h"

#include <QAbstractItemModel>
#include <QObject>

#include <chrono>

/// Notes when a model was emptied for a new list, and when it got its last row.
class LastRow final : public QObject
{
public:
    explicit LastRow(const QAbstractItemModel& model)
    {
        connect(&model, &QAbstractItemModel::rowsInserted, this,
                [this] { m_moment = std::chrono::steady_clock::now(); });
        connect(&model, &QAbstractItemModel::modelReset, this,
                [this] { m_begin = std::chrono::steady_clock::now(); });
    }

    /// The time that the list itself took, without the graphic that is drawn before or after it.
    [[nodiscard]] Milliseconds ofList() const { return since(m_begin); }

    /// The time from a moment to the last row, or to now if no row came since.
    [[nodiscard]] Milliseconds since(std::chrono::steady_clock::time_point begin) const
    {
        return (m_moment > begin ? m_moment : std::chrono::steady_clock::now()) - begin;
    }

private:
    std::chrono::steady_clock::time_point m_begin;
    std::chrono::steady_clock::time_point m_moment;
};
