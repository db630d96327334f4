// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/MapCanvas.h"
#include "map/MapTool.h"

#include <functional>
#include <optional>

/// The map as its user handles it: turns mouse and keyboard into zooming, moving and the choice of places.
class MapView final : public MapCanvas
{
    Q_OBJECT

public:
    explicit MapView(QWidget* parent);

    /// Tells assistive tools what the map shows.
    void setSummary(const QStringList& sentences);

    void setTool(MapTool tool);
    [[nodiscard]] MapTool tool() const { return m_tool; }

    /// Returns the tool tip of an entry's place, in HTML.
    std::function<QString(std::size_t)> describe;

Q_SIGNALS:
    /// The user chose a marker.
    void chosen(std::size_t entry);

    /// The user clicked with the pointer; in degrees, north and east positive.
    void pointed(double lat, double lon);
    void menuRequested(std::size_t entry, const QPoint& globalPosition);
    void toolChanged(MapTool tool);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    /// A press of the left button, until it is released.
    struct Press
    {
        QPointF begin;
        QPointF last;
        bool isDrag = false;
    };

    void click(QPointF position);
    void goToPlace(int step);
    bool moveByKey(int key);
    void updateCursor();

    std::optional<Press> m_press;
    MapTool m_tool = MapTool::Pointer;
};
