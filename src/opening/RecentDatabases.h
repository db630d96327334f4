// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

class SettingsStore;

/// The databases opened last, as the settings keep them from one run to the next. The names are those of
/// DatabaseName.
class RecentDatabases
{
public:
    static constexpr int limit = 10;

    /// The store must outlive the object.
    explicit RecentDatabases(SettingsStore& settings) : m_settings(settings) {}

    /// At most `limit` names, the one opened last first; none is there twice.
    [[nodiscard]] QStringList names() const;

    /// Puts a name first; if there are too many then, the oldest goes.
    void add(const QString& name);
    void remove(const QString& name);

    /// Captions for the user, one for each of the databases: its name without the ending; with its folder if
    /// another of them is called so too. `files` are paths of the machine.
    [[nodiscard]] static QStringList captions(const QStringList& files);

private:
    void write(const QStringList& names);

    SettingsStore& m_settings;
};
