// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

/// An amount of work in bytes.
struct WorkBytes
{
    qint64 done = 0;
    qint64 all = 0;
};

/// Work that is done in short steps, so that a window can show how far it is, and end it.
class SteppedWork
{
public:
    virtual ~SteppedWork() = default;

    /// Does the next step. Returns false once all is done. Throws Error.
    virtual bool step() = 0;

    /// Takes back what the last steps did, bit by bit, if the work is cancelled. Returns false once nothing
    /// is left of it. Never fails.
    virtual bool undoStep() { return false; }

    /// What the work is, as the title of a window.
    [[nodiscard]] virtual QString title() const = 0;

    /// What the user should know of it while it is done, in a sentence; may be empty.
    [[nodiscard]] virtual QString remark() const { return {}; }

    /// What is done now, for the user.
    [[nodiscard]] virtual QString text() const = 0;

    /// How much is done; std::nullopt if nobody knows how much there is.
    [[nodiscard]] virtual std::optional<int> percent() const = 0;

    /// How much is done in bytes, for work whose rate and remaining time the user wants to know.
    [[nodiscard]] virtual std::optional<WorkBytes> bytes() const { return std::nullopt; }

protected:
    SteppedWork() = default;
    SteppedWork(const SteppedWork&) = default;
    SteppedWork& operator=(const SteppedWork&) = default;
};

/// Work that does another one in its own way, and says of it what that says.
class WrappedWork : public SteppedWork
{
public:
    bool step() override { return m_inner.step(); }
    bool undoStep() override { return m_inner.undoStep(); }
    [[nodiscard]] QString title() const override { return m_inner.title(); }
    [[nodiscard]] QString remark() const override { return m_inner.remark(); }
    [[nodiscard]] QString text() const override { return m_inner.text(); }
    [[nodiscard]] std::optional<int> percent() const override { return m_inner.percent(); }
    [[nodiscard]] std::optional<WorkBytes> bytes() const override { return m_inner.bytes(); }

protected:
    /// The other work must outlive it.
    explicit WrappedWork(SteppedWork& inner) : m_inner(inner) {}

private:
    SteppedWork& m_inner;
};
