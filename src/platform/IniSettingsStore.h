// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/SettingsStore.h"

#include <QSettings>

/// The settings of this user, with those of the whole system behind them.
class IniSettingsStore final : public SettingsStore
{
public:
    IniSettingsStore();

    [[nodiscard]] QString value(const QString& path) const override;
    void setValue(const QString& path, const QString& value) override;

private:
    mutable QSettings m_settings; ///< reading brings it up to date with the file
};
