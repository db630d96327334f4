#pragma once

class Clock;
class DatabaseConverter;
class FileAttributes;
class FileDialogs;
class Messages;
class SettingsStore;
class Shell;
class Volumes;

/// The doors to the desktop, chosen when the program starts. They outlive everything else.
struct Platform
{
    Messages& messages;
    SettingsStore& settings;
    FileAttributes& fileAttributes;
    FileDialogs& fileDialogs;
    DatabaseConverter& converter;
    Clock& clock;
    Volumes& volumes;
    Shell& shell;
};
