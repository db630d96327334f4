// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/WindowCall.h"

#include <functional>

/// The windows of the user's other starts of the program, each a process with a database of its own. The only
/// door to them.
class OtherWindows
{
public:
    using Receiver = std::function<void(const WindowCall&)>;

    virtual ~OtherWindows() = default;

    /// Takes the calls for a database from now on, and no longer those for the one before; for none if there
    /// is no such file. Returns false, and changes nothing, if another process takes the calls for it.
    [[nodiscard]] virtual bool listen(const QString& database) = 0;

    /// Calls the window that has a database open, and returns true if it has taken the call. Returns false if
    /// there is none but this process, or if it does not answer within a few seconds.
    [[nodiscard]] virtual bool call(const QString& database, const WindowCall& what) = 0;

    /// Sets what is told of the calls, those included that have come already. It may be empty.
    virtual void setReceiver(Receiver receiver) = 0;

protected:
    OtherWindows() = default;
    OtherWindows(const OtherWindows&) = default;
    OtherWindows& operator=(const OtherWindows&) = default;
};

/// For programs with a window that stays by itself.
class NoOtherWindows final : public OtherWindows
{
public:
    [[nodiscard]] bool listen(const QString& /*database*/) override { return true; }
    [[nodiscard]] bool call(const QString& /*database*/, const WindowCall& /*what*/) override
    {
        return false;
    }
    void setReceiver(Receiver /*receiver*/) override {}
};
