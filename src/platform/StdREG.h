// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class SettingsStore;

/// The program's own settings: texts under one key, and under sections of it.
class StdREG
{
public:
    /// The store must outlive the object.
    explicit StdREG(SettingsStore& store) : m_store(store) {}

    /// Stores a value under the key, or under a section of it if `TargetSubKey` is not empty. Failures are
    /// ignored.
    void WriteRegString(const QString& TargetSubKey, const QString& TargetKey, const QString& NewValue);

    /// The value, without blanks around it; empty if there is none.
    [[nodiscard]] QString GetRegString(const QString& TargetSubKey, const QString& TargetKey) const;

private:
    SettingsStore& m_store;
};
