// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Named texts kept from one run to the next. The only door to the settings of the desktop.
class SettingsStore
{
public:
    virtual ~SettingsStore() = default;

    /// The value under a path such as `SOFTWARE/.../DBFile`; empty if there is none.
    [[nodiscard]] virtual QString value(const QString& path) const = 0;
    virtual void setValue(const QString& path, const QString& value) = 0;

    /// Why values could not be kept beyond this run, in a sentence for the user; empty if all were.
    [[nodiscard]] virtual QString hindrance() const { return {}; }

protected:
    SettingsStore() = default;
    SettingsStore(const SettingsStore&) = default;
    SettingsStore& operator=(const SettingsStore&) = default;
};
