// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <map>
#include <vector>

class RecordListView;
class SettingsStore;

/// The widths of the columns of each kind: what the user chose, which lasts from one run to the next, else
/// what the layout says.
class ColumnWidths
{
public:
    /// The view must outlive the object.
    explicit ColumnWidths(RecordListView& view) : m_view(view) {}

    /// Gives the columns of a kind, which the view must show, their widths.
    void apply(RecordKind kind);

    /// Makes the widths of the layout so many percent of what they are with the desktop's text.
    void setTextSize(int percent) { m_textSize = percent; }

    /// Widens the columns that are to fit their texts, unless the user chose a width for them.
    void fitTexts(RecordKind kind);

    /// Notes a width in pixels that the user gave a column.
    void choose(RecordKind kind, int column, int width);

    void restore(SettingsStore& settings);
    void save(SettingsStore& settings) const;

private:
    std::vector<int>& chosen(RecordKind kind);
    [[nodiscard]] int scaled(int width) const;

    RecordListView& m_view;
    int m_textSize = 100;                            ///< in percent
    std::map<RecordKind, std::vector<int>> m_chosen; ///< in pixels, 0 if the user chose none
};
