#pragma once

#include <QString>

/// Named texts that outlive the program. The only door to where the desktop keeps settings.
class SettingsStore
{
public:
    virtual ~SettingsStore() = default;

    /// The value under a path such as `SOFTWARE/.../DBFile`; empty where there is none.
    [[nodiscard]] virtual QString value(const QString& path) const = 0;
    virtual void setValue(const QString& path, const QString& value) = 0;

protected:
    SettingsStore() = default;
    SettingsStore(const SettingsStore&) = default;
    SettingsStore& operator=(const SettingsStore&) = default;
};
