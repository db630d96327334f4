// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/SheetColumns.h"

#include <QTextTable>

void alignSheetValues(const QTextDocument& document, double captionPercent)
{
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        auto* fields = qobject_cast<QTextTable*>(frame);
        if (fields == nullptr) continue;
        QTextTableFormat columns = fields->format();
        columns.setColumnWidthConstraints({QTextLength(QTextLength::PercentageLength, captionPercent),
                                           QTextLength(QTextLength::PercentageLength, 100 - captionPercent)});
        fields->setFormat(columns);
    }
}
