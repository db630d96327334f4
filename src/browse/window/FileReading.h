// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"

#include <QObject>

class StatusLine;
struct ProgramState;

/// Keeps the index of the files' texts up to date while the user does nothing, by a program of its own, and
/// shows in the status line how far that is. Lives as long as the window.
class FileReading final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the object.
    FileReading(const Platform& platform, const ProgramState& state, StatusLine& status, QObject* parent);

    /// To be called once another database is open, after a change to it, and if its files may have changed.
    void lookForChanges();

    /// Ends the program; what it has read stays.
    void stop();

private:
    Platform m_platform;
    const ProgramState& m_state;
    StatusLine& m_status;
};
