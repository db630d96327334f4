// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "util/ReadableLine.h"

#include <QStyledItemDelegate>

/// Draws the items of a list, each cut to the text that can be read on one line.
class LineDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QString displayText(const QVariant& value, const QLocale& /*locale*/) const override
    {
        return readableLine(value.toString());
    }
};
