// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QToolBar>

class MapView;
class QAction;
class QActionGroup;

/// The tools above the map, with the parts of it that are gone to and whether markers are grouped.
class MapTools final : public QToolBar
{
    Q_OBJECT

public:
    /// The map must outlive the tools.
    MapTools(MapView& map, QWidget* parent);

    /// The command that groups markers, which can be checked.
    [[nodiscard]] QAction& group() { return *m_group; }

private:
    void addTool(const QString& name, const QString& text, const QString& icon, int tool);
    QAction* addCommand(const QString& name, const QString& text, const QString& tip);

    MapView& m_map;
    QActionGroup* m_pointers;
    QAction* m_group;
};
