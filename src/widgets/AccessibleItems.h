// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QRect>
#include <QString>

/// What a widget paints that can be pointed at: the places of a map, the bars of a chart. A widget that
/// derives from it offers them to screen readers as the items of a list.
class AccessibleItems
{
public:
    virtual ~AccessibleItems() = default;

    [[nodiscard]] virtual int accessibleItemCount() const = 0;
    [[nodiscard]] virtual QString accessibleItemName(int item) const = 0;

    /// In the widget's own pixels.
    [[nodiscard]] virtual QRect accessibleItemRect(int item) const = 0;

    /// The item that the keyboard acts on, or -1.
    [[nodiscard]] virtual int accessibleCurrentItem() const = 0;

    /// True while the widget shows other widgets in place of its items, such as links: these are its children
    /// then, as anywhere else.
    [[nodiscard]] virtual bool accessibleShowsWidgets() const { return false; }

    /// Makes such widgets known to assistive tools. May be called more than once.
    static void install();

protected:
    AccessibleItems() = default;
    AccessibleItems(const AccessibleItems&) = default;
    AccessibleItems& operator=(const AccessibleItems&) = default;
};
