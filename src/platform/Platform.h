// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class Clock;
class FileAttributes;
class FileDialogs;
class Messages;
class OtherWindows;
class Printing;
class SettingsStore;
class Shell;
class Volumes;
class WorkRunner;

/// The doors to the desktop, chosen when the program starts. They outlive everything else.
struct Platform
{
    Messages& messages;
    SettingsStore& settings;
    FileAttributes& fileAttributes;
    FileDialogs& fileDialogs;
    Clock& clock;
    Volumes& volumes;
    Shell& shell;
    OtherWindows& otherWindows;
    WorkRunner& works;
    Printing& printing;

    /// The folder of the programs that do parts of the work in processes of their own; empty for none.
    QString programs = {};
};
