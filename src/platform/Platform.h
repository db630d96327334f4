#pragma once

class FileAttributes;
class Messages;
class SettingsStore;

/// The doors to the desktop, as the program was given them at its start. They outlive everything else.
struct Platform
{
    Messages& messages;
    SettingsStore& settings;
    FileAttributes& fileAttributes;
};
