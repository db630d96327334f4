// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/IniSettingsStore.h"

namespace {

#ifdef Q_OS_WIN
constexpr auto format = QSettings::NativeFormat;
#else
constexpr auto format = QSettings::IniFormat;
#endif

} // namespace

IniSettingsStore::IniSettingsStore()
    : m_settings(format, QSettings::UserScope, QStringLiteral("Orvik"), QStringLiteral("Orvik Database"))
{
}

QString IniSettingsStore::value(const QString& path) const
{
    // another window, a process of its own, may have written meanwhile
    m_settings.sync();
    return m_settings.value(path).toString();
}

void IniSettingsStore::setValue(const QString& path, const QString& value)
{
    m_settings.setValue(path, value);
    m_settings.sync();
}
