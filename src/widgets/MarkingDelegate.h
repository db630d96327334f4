// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "util/TextRange.h"
#include "widgets/LineDelegate.h"

#include <functional>
#include <vector>

/// Marks places in the texts of a list, such as the words that the user looks for. A text with nothing to
/// mark is painted as the base does.
class MarkingDelegate : public LineDelegate
{
public:
    using LineDelegate::LineDelegate;

    /// Returns what to mark in the text of a cell as it is shown, in any order.
    using Marker = std::function<std::vector<TextRange>(const QModelIndex& index, const QString& text)>;

    /// Adds a marker to those that there are. The view has to be painted anew if what it marks changes.
    void addMarker(Marker marker) { m_markers.push_back(std::move(marker)); }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    /// Draws one line of text in the item's font and colours, cut to the width of the area. The ranges lie
    /// apart from each other.
    static void drawMarked(QPainter& painter, const QStyleOptionViewItem& item, const QRect& area,
                           const QString& text, const std::vector<TextRange>& ranges);

private:
    [[nodiscard]] std::vector<TextRange> marks(const QModelIndex& index, const QString& text) const;

    std::vector<Marker> m_markers;
};
