// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "map/LegendLines.h"
#include "map/PlaceMarkers.h"

#include <QListWidget>

#include <optional>
#include <vector>

/// The colours of the map's markers and the functions that they stand for. A line that is pointed at, or that
/// the keyboard stands on, raises its markers; a click or the space bar hides them or shows them again.
/// Without functions it is hidden.
class MapLegend final : public QListWidget
{
    Q_OBJECT

public:
    explicit MapLegend(QWidget* parent);

    void setLines(const std::vector<LegendLine>& lines);
    [[nodiscard]] const std::vector<LegendLine>& lines() const { return m_lines; }

    [[nodiscard]] HiddenColours hiddenColours() const { return m_hidden; }
    void showAllColours() { m_hidden.reset(); }

    /// The text of a line, which says so if its colour is hidden.
    [[nodiscard]] QString textOf(const LegendLine& line) const;

    /// Lays the lines out in a column beside the map, at most so many pixels wide, or side by side below it,
    /// at most so many pixels high.
    void setPlace(bool beside, int room);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {40, 20}; }

    [[nodiscard]] int heightForWidth(int width) const override;

Q_SIGNALS:
    /// The markers of a colour are to be raised, or none.
    void raised(std::optional<int> colour);

    /// Other colours are hidden than before.
    void hiddenChanged();

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] bool isHiddenAt(int row) const;
    void showLine(int row);
    void raise(int row);
    void toggle(int row);

    std::vector<LegendLine> m_lines;
    HiddenColours m_hidden;
    std::optional<int> m_raised;
    int m_room = 0; ///< pixels: the width beside the map or the height below it
};
