// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"

#include <QCoreApplication>
#include <QString>

#include <optional>

class DatabaseOpener;
struct ProgramState;

/// What the user can have instead of a damaged database: its newest backup, or what can still be read of it.
/// Either becomes a new collection; the damaged one is only read.
class DamagedDatabase final
{
    Q_DECLARE_TR_FUNCTIONS(DamagedDatabase)

public:
    enum class Instead
    {
        Backup,
        Rescue
    };

    /// All must outlive the object.
    DamagedDatabase(const Platform& platform, const DatabaseOpener& opener, const ProgramState& state)
        : m_platform(platform), m_opener(opener), m_state(state)
    {
    }

    /// Whether there is anything to have instead of a file.
    [[nodiscard]] bool hasOffer(const QString& file) const;

    /// Says that a file is damaged, and asks what the user wants instead; std::nullopt for nothing. `cause`
    /// says what is wrong with it, and may be empty.
    [[nodiscard]] std::optional<Instead> ask(const QString& file, const QString& cause) const;

    /// A new collection.
    struct Made
    {
        QString database;
        QString text; ///< says what was made, for the user
    };

    /// Makes the new collection; std::nullopt if the user cancelled that. Throws Error.
    [[nodiscard]] std::optional<Made> make(Instead instead, const QString& file) const;

private:
    [[nodiscard]] std::optional<Made> restore(const QString& file) const;
    [[nodiscard]] std::optional<Made> rescue(const QString& file) const;

    Platform m_platform;
    const DatabaseOpener& m_opener;
    const ProgramState& m_state;
};
