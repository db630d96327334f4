// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>

/// Tells what time it is. The only door to the machine's clock.
class Clock
{
public:
    virtual ~Clock() = default;

    /// The present moment, in local time.
    [[nodiscard]] virtual QDateTime now() const = 0;

protected:
    Clock() = default;
    Clock(const Clock&) = default;
    Clock& operator=(const Clock&) = default;
};

/// The machine's own clock.
class SystemClock final : public Clock
{
public:
    [[nodiscard]] QDateTime now() const override { return QDateTime::currentDateTime(); }
};
