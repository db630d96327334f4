// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/StdREG.h"

#include "platform/SettingsStore.h"

namespace {

QString path(const QString& section, const QString& name)
{
    const QString key = QStringLiteral("SOFTWARE/Tessary/Orvik Database/1.0/");
    return section.isEmpty() ? key + name : key + section + u'/' + name;
}

} // namespace

void StdREG::WriteRegString(const QString& TargetSubKey, const QString& TargetKey, const QString& NewValue)
{
    m_store.setValue(path(TargetSubKey, TargetKey), NewValue);
}

QString StdREG::GetRegString(const QString& TargetSubKey, const QString& TargetKey) const
{
    return m_store.value(path(TargetSubKey, TargetKey)).trimmed();
}
