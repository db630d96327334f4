#pragma once

#include <QString>

class SettingsStore;

/// The program's own settings: texts under one key, and under sections of it.
class StdREG
{
public:
    /// The store must outlive the object.
    explicit StdREG(SettingsStore& store) : m_store(store) {}

    /// Stores a value under the key, or under a section of it where `TargetSubKey` is not empty. No failure
    /// is reported.
    void WriteRegString(const QString& TargetSubKey, const QString& TargetKey, const QString& NewValue);

    /// The value, without blanks around it; empty where there is none.
    [[nodiscard]] QString GetRegString(const QString& TargetSubKey, const QString& TargetKey) const;

private:
    SettingsStore& m_store;
};
