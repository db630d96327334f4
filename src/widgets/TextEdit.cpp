// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/TextEdit.h"

#include <QMimeData>

void TextEdit::insertFromMimeData(const QMimeData* source)
{
    // Qt looks at the first format without asking whether there is one
    if (source->formats().isEmpty()) return;
    QPlainTextEdit::insertFromMimeData(source);
}
