// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/FileReading.h"

FileReading::FileReading(const Platform& platform, const ProgramState& state, StatusLine& status,
                         QObject* parent)
    : QObject(parent), m_platform(platform), m_state(state), m_status(status)
{
}

void FileReading::lookForChanges() {}

void FileReading::stop() {}
