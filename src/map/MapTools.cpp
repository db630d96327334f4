// SPDX-License-Identifier: GPL-3.0-or-later

#include "map/MapTools.h"

#include "map/MapView.h"
#include "widgets/IconSet.h"

#include <QActionGroup>

MapTools::MapTools(MapView& map, QWidget* parent)
    : QToolBar(parent), m_map(map), m_pointers(new QActionGroup(this))
{
    setObjectName(QStringLiteral("tbMap"));
    setIconSize(QSize(22, 22));
    addTool(QStringLiteral("mapPointer"), tr("Pointer: select places and drag the map"),
            QStringLiteral("pointer"), static_cast<int>(MapTool::Pointer));
    addTool(QStringLiteral("mapZoomIn"), tr("Zoom in at a click, or to a rectangle"),
            QStringLiteral("list-add"), static_cast<int>(MapTool::ZoomIn));
    addTool(QStringLiteral("mapZoomOut"), tr("Zoom out at a click"), QStringLiteral("list-remove"),
            static_cast<int>(MapTool::ZoomOut));
    addTool(QStringLiteral("mapPan"), tr("Pan: drag the map"), QStringLiteral("transform-move"),
            static_cast<int>(MapTool::Pan));
    m_pointers->actions().constFirst()->setChecked(true);
    connect(&m_map, &MapView::toolChanged, this,
            [this](MapTool tool) { m_pointers->actions().at(static_cast<int>(tool))->setChecked(true); });
    addSeparator();
    connect(addCommand(QStringLiteral("mapFullExtent"), tr("All States"), tr("Full extent: show all states")),
            &QAction::triggered, &m_map, &MapView::showFullExtent);
    connect(addCommand(QStringLiteral("mapContiguousStates"), tr("48 States"),
                       tr("Show the 48 contiguous states")),
            &QAction::triggered, &m_map, &MapView::showContiguousStates);
    addSeparator();
    m_group = addCommand(QStringLiteral("mapGroup"), tr("Group"),
                         tr("Group: draw markers that cover each other as one disc with their number"));
    m_group->setCheckable(true);
    // the only tool that has no key in the map
    QWidget* button = widgetForAction(m_group);
    button->setFocusPolicy(Qt::TabFocus);
    setTabOrder(button, &m_map);
    connect(m_group, &QAction::toggled, &m_map, &MapView::setGrouped);
}

void MapTools::addTool(const QString& name, const QString& text, const QString& icon, int tool)
{
    QAction* action = addAction(IconSet::themeIcon(icon), text);
    action->setObjectName(name);
    action->setCheckable(true);
    m_pointers->addAction(action);
    connect(action, &QAction::triggered, &m_map, [this, tool] { m_map.setTool(static_cast<MapTool>(tool)); });
}

QAction* MapTools::addCommand(const QString& name, const QString& text, const QString& tip)
{
    QAction* action = addAction(text);
    action->setObjectName(name);
    action->setToolTip(tip);
    return action;
}
