// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/SettingsStore.h"

#include <QDateTime>
#include <QMap>
#include <QSettings>

/// The settings of this user, with those of the whole system behind them.
class IniSettingsStore final : public SettingsStore
{
public:
    IniSettingsStore();

    [[nodiscard]] QString value(const QString& path) const override;
    void setValue(const QString& path, const QString& value) override;
    [[nodiscard]] QString hindrance() const override;

private:
    bool write(const QMap<QString, QString>& changes);
    bool replace(const QString& file, const QString& by);

    mutable QSettings m_settings;       ///< reading brings it up to date with the file
    QMap<QString, QString> m_unwritten; ///< what could not be written yet
    QDateTime m_written = QDateTime::fromMSecsSinceEpoch(0, Qt::UTC); ///< when it was written last
    int m_writes = 0;
};
