// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/SheetColumns.h"

#include <QTextTable>

void alignSheetValues(const QTextDocument& document, const QTextLength& captions, const QTextLength& values)
{
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        auto* fields = qobject_cast<QTextTable*>(frame);
        if (fields == nullptr) continue;
        QTextTableFormat columns = fields->format();
        columns.setColumnWidthConstraints({captions, values});
        fields->setFormat(columns);
    }
}
