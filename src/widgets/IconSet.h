// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QIcon>
#include <QString>

/// The small icons of list rows by their keys, each made when first asked for.
class IconSet
{
public:
    [[nodiscard]] QIcon icon(const QString& key);

    /// Forgets all icons, as after a change of the palette.
    void clear() { m_icons.clear(); }

    /// An icon of the desktop's kind for toolbar and menus, fit for the palette in use.
    static QIcon themeIcon(const QString& name);

    /// Chooses the icon theme that can be read on the application's palette.
    static void chooseTheme();

private:
    [[nodiscard]] static QIcon make(const QString& key);

    QHash<QString, QIcon> m_icons;
};
