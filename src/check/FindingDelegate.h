// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/FindingsModel.h"
#include "widgets/LineDelegate.h"

#include <QWidget>

/// Draws a finding over the whole width of a list without alternating colours, which each column would draw
/// anew, as long as nothing stands beside it.
class FindingDelegate final : public LineDelegate
{
public:
    using LineDelegate::LineDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const bool isAlone = index.parent().isValid() &&
                             index.siblingAtColumn(FindingsModel::stateColumn).data().toString().isEmpty();
        if (isAlone && index.column() == FindingsModel::stateColumn) return;
        QStyleOptionViewItem wide(option);
        if (isAlone) wide.rect.setRight(option.widget->rect().right());
        LineDelegate::paint(painter, wide, index);
    }
};
