#pragma once

#include "util/ReadableLine.h"

#include <QStyledItemDelegate>

/// Draws the items of a list, each with what of its text can be read on a line.
class LineDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QString displayText(const QVariant& value, const QLocale& /*locale*/) const override
    {
        return readableLine(value.toString());
    }
};
