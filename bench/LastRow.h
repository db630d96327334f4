#pragma once

#include "BenchWindow.h"

#include <QAbstractItemModel>
#include <QObject>

#include <chrono>

/// Notes when a model got its last row.
class LastRow final : public QObject
{
public:
    explicit LastRow(const QAbstractItemModel& model)
    {
        connect(&model, &QAbstractItemModel::rowsInserted, this,
                [this] { m_moment = std::chrono::steady_clock::now(); });
    }

    /// The time from a moment to the last row, or to now where no row came since.
    [[nodiscard]] Milliseconds since(std::chrono::steady_clock::time_point begin) const
    {
        return (m_moment > begin ? m_moment : std::chrono::steady_clock::now()) - begin;
    }

private:
    std::chrono::steady_clock::time_point m_moment;
};
