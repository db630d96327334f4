// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "lists/ListKind.h"
#include "lists/LookupEntry.h"
#include "platform/Platform.h"

#include <optional>

class DatabaseSession;
class PositionPicker;
class QWidget;

/// Lets the user add an entry to a list without leaving the window at work. Lives as long as the main window.
class NewEntries
{
public:
    /// The session and the picker must outlive the object.
    NewEntries(const Platform& platform, DatabaseSession& session, PositionPicker& positions)
        : m_platform(platform), m_session(session), m_positions(positions)
    {
    }

    /// Opens a dialog over `window`, its fields preset, and returns the entry that was added, if any.
    /// Failures show their own message.
    std::optional<LookupEntry> add(ListKind list, const LookupEntry& preset, QWidget* window) const;

    /// Whether there is a known city of that name in that state. Throws Error.
    [[nodiscard]] bool isKnownCity(const QString& city, const QString& state) const;

private:
    Platform m_platform;
    DatabaseSession& m_session;
    PositionPicker& m_positions;
};
